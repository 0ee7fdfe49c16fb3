// SPDX-License-Identifier: GPL-3.0-or-later
// Compares a drawing's DWG with its DXF, both saved by the same program, field by field.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/entities/Texts.h"

#include <cmath>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace sm::drawing::twins {

/// Differences by kind and field, with the first one of each as an example.
class Report {
public:
    struct Row {
        std::uint64_t count = 0;
        std::string example;
    };
    std::map<std::string, Row> different;
    std::map<std::string, std::uint64_t> both, onlyDwg, onlyDxf; ///< objects by kind

    void Add(const std::string& field, const std::string& example)
    {
        Row& row = different[field];
        if (row.count++ == 0)
            row.example = example;
    }
};

/// The two roads of one drawing.
struct Pair {
    const Drawing& dwg;
    const Drawing& dxf;
    std::vector<Handle> scales; ///< that viewports of the DXF show their annotations at
};
/// Fills `scales`.
Pair MakePair(const Drawing& dwg, const Drawing& dxf);

inline bool Near(double a, double b)
{
    return std::abs(a - b) <= 1e-9 * std::max({1.0, std::abs(a), std::abs(b)});
}
inline bool Same(double a, double b)
{
    return Near(a, b);
}
inline bool Same(const Vec2& a, const Vec2& b)
{
    return Near(a.x, b.x) && Near(a.y, b.y);
}
inline bool Same(const Vec3& a, const Vec3& b)
{
    return Near(a.x, b.x) && Near(a.y, b.y) && Near(a.z, b.z);
}
inline bool Same(const Box2& a, const Box2& b)
{
    return (a.Empty() && b.Empty()) || (Same(a.min, b.min) && Same(a.max, b.max));
}
template <class T> bool Same(const T& a, const T& b)
{
    return a == b;
}

inline std::string Show(const Vec2& v)
{
    return std::to_string(v.x) + "," + std::to_string(v.y);
}
inline std::string Show(const Vec3& v)
{
    return Show(Vec2{v.x, v.y}) + "," + std::to_string(v.z);
}
inline std::string Show(const Box2& box)
{
    return Show(box.min) + " " + Show(box.max);
}
inline std::string Show(const std::string& text)
{
    return "'" + text.substr(0, 60) + "'";
}
template <class T> std::string Show(const T& value)
{
    std::ostringstream out;
    out.precision(12);
    if constexpr (sizeof(T) == 1)
        out << static_cast<int>(value);
    else
        out << value;
    return out.str();
}
template <class T> std::string Show(const std::optional<T>& value)
{
    return value ? Show(*value) : "none";
}

/// Compares the fields of one thing.
class Fields {
public:
    Fields(Report& report, std::string kind, std::string place)
        : m_report(report), m_kind(std::move(kind)), m_place(std::move(place))
    {
    }
    template <class T> void Is(const std::string& field, const T& dwg, const T& dxf)
    {
        if (!Same(dwg, dxf))
            m_report.Add(m_kind + "." + field, m_place + ": dwg " + Show(dwg) + ", dxf " + Show(dxf));
    }
    template <class T> void Is(const std::string& field, const std::optional<T>& dwg, const std::optional<T>& dxf)
    {
        if (dwg.has_value() != dxf.has_value() || (dwg && !Same(*dwg, *dxf)))
            m_report.Add(m_kind + "." + field, m_place + ": dwg " + Show(dwg) + ", dxf " + Show(dxf));
    }
    template <class T> void Is(const std::string& field, const std::vector<T>& dwg, const std::vector<T>& dxf)
    {
        Each(field, dwg, dxf, [&](const T& a, const T& b) { Is(field, a, b); });
    }
    /// Compares the sizes, then calls `compare` for each couple.
    template <class List, class Compare>
    void Each(const std::string& field, const List& dwg, const List& dxf, Compare compare)
    {
        Is(field + ".size", dwg.size(), dxf.size());
        for (std::size_t i = 0; i < dwg.size() && i < dxf.size(); ++i)
            compare(dwg[i], dxf[i]);
    }

private:
    Report& m_report;
    std::string m_kind, m_place;
};

/// Handles and names in place of indexes, which may differ.
std::string LayerName(const Drawing& drawing, std::uint32_t index);
std::vector<std::string> LayerNames(const Drawing& drawing, const std::vector<std::uint32_t>& layers);
std::string LinetypeName(const Drawing& drawing, std::uint32_t index);
std::string StyleName(const Drawing& drawing, std::uint32_t index);
Handle BlockHandle(const Drawing& drawing, std::uint32_t index);

void CompareTables(const Pair& pair, Report& report, const std::string& name);
void CompareBlocks(const Pair& pair, Report& report, const std::string& name);
/// One entity of each road, of the same handle.
void CompareEntity(const Pair& pair, const EntityRecord& dwg, const EntityRecord& dxf, Report& report,
                   const std::string& place);
void CompareNote(const Pair& pair, const EntityRecord& dwg, const EntityRecord& dxf, Fields& fields);
void CompareCommon(const Pair& pair, Fields& fields, const Entity& dwg, const Entity& dxf);
void CompareMText(const Pair& pair, Fields& fields, const MTextData& dwg, const MTextData& dxf);

} // namespace sm::drawing::twins
