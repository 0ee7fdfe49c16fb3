// SPDX-License-Identifier: GPL-3.0-or-later
// Builds small DXF texts for tests.
#pragma once

#include "drawing/Drawing.h"

#include <memory>
#include <string>

namespace sm::drawing::testing {

/// Writes groups one after the other: DxfText().Tag(0, "LINE").Tag(8, "Walls").
class DxfText {
public:
    explicit DxfText(std::string lineEnd = "\n") : m_lineEnd(std::move(lineEnd)) {}

    DxfText& Tag(int code, const std::string& value)
    {
        m_text += std::to_string(code) + m_lineEnd + value + m_lineEnd;
        return *this;
    }
    DxfText& Section(const std::string& name) { return Tag(0, "SECTION").Tag(2, name); }
    DxfText& EndSection() { return Tag(0, "ENDSEC"); }
    DxfText& Variable(const std::string& name, int code, const std::string& value)
    {
        return Tag(9, name).Tag(code, value);
    }
    DxfText& Header(const std::string& version, const std::string& codePage = "ANSI_1252")
    {
        Section("HEADER").Variable("$ACADVER", 1, version);
        return Variable("$DWGCODEPAGE", 3, codePage).EndSection();
    }
    DxfText& Table(const std::string& name) { return Tag(0, "TABLE").Tag(2, name); }
    DxfText& EndTable() { return Tag(0, "ENDTAB"); }
    DxfText& End() { return Tag(0, "EOF"); }
    /// Groups that stand as text already, "0\nLINE\n8\n0\n"; their line ends become this text's.
    DxfText& Raw(const std::string& groups)
    {
        for (const char c : groups)
            m_text += c == '\n' ? m_lineEnd : std::string(1, c);
        return *this;
    }

    [[nodiscard]] const std::string& Text() const { return m_text; }
    [[nodiscard]] std::unique_ptr<Drawing> Open() const { return Drawing::FromBytes(m_text, "test.dxf"); }

private:
    std::string m_lineEnd;
    std::string m_text;
};

/// A drawing with these entities only.
inline std::unique_ptr<Drawing> OpenEntities(const std::string& groups)
{
    return DxfText().Section("ENTITIES").Raw(groups).EndSection().End().Open();
}

/// The entities of the model space.
inline std::span<const EntityRecord> ModelEntities(const Drawing& drawing)
{
    return drawing.EntitiesOf(drawing.Layouts().front().block);
}

/// Reads the only entity of a text that holds one.
template <class Data> Data ReadOnly(const std::string& groups)
{
    const auto drawing = OpenEntities(groups);
    Data data;
    if (const auto entities = ModelEntities(*drawing); !entities.empty())
        Read(*drawing, entities.front(), data);
    return data;
}

} // namespace sm::drawing::testing
