// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of R9 to R12: records of fixed size.
#include "dwg/old/OldDrawing.h"

#include <algorithm>
#include <array>

namespace sm::drawing::dwg {

namespace {

using Value = OldValue;

constexpr OldRow As(Value value, std::int16_t code, std::uint8_t size = 0)
{
    return {value, code, size, nullptr};
}

constexpr std::array kLayer{As(Value::Short, 62), As(Value::Linetype, 6)};
constexpr std::array kStyle{As(Value::Real, 40), As(Value::Real, 41),    As(Value::Angle, 50),  As(Value::Byte, 71),
                            As(Value::Real, 42), As(Value::Text, 3, 64), As(Value::Text, 4, 64)};
constexpr std::array kView{As(Value::Real, 40), As(Value::Point2, 10), As(Value::Real, 41),  As(Value::Point3, 11),
                           SkipBytes(2),        As(Value::Point3, 12), As(Value::Short, 71), As(Value::Real, 42),
                           As(Value::Real, 43), As(Value::Real, 44),   As(Value::Angle, 50)};
constexpr std::array kUcs{As(Value::Point3, 10), As(Value::Point3, 11), As(Value::Point3, 12)};
constexpr std::array kViewportRow{
    As(Value::Point2, 10), As(Value::Point2, 11), As(Value::Point3, 17), As(Value::Point3, 16), As(Value::Angle, 51),
    As(Value::Real, 40),   As(Value::Point2, 12), As(Value::Real, 41),   As(Value::Real, 42),   As(Value::Real, 43),
    As(Value::Real, 44),   As(Value::Short, 71),  As(Value::Short, 72),  As(Value::Short, 73),  As(Value::Short, 74),
    As(Value::Short, 75),  As(Value::Short, 76),  As(Value::Short, 77),  As(Value::Short, 78),  As(Value::Angle, 50),
    As(Value::Point2, 13), As(Value::Point2, 14), As(Value::Point2, 15)};
constexpr std::array kDimensionStyle{
    As(Value::Real, 40),    As(Value::Real, 41),    As(Value::Real, 42),    As(Value::Real, 43),
    As(Value::Real, 44),    As(Value::Real, 45),    As(Value::Real, 46),    As(Value::Real, 47),
    As(Value::Real, 48),    As(Value::Real, 140),   As(Value::Real, 141),   As(Value::Real, 142),
    As(Value::Real, 143),   As(Value::Real, 144),   As(Value::Real, 145),   As(Value::Byte, 71),
    As(Value::Byte, 72),    As(Value::Byte, 73),    As(Value::Byte, 74),    As(Value::Byte, 75),
    As(Value::Byte, 76),    As(Value::Byte, 77),    As(Value::Byte, 78),    As(Value::Byte, 170),
    As(Value::Byte, 171),   As(Value::Byte, 172),   As(Value::Byte, 173),   As(Value::Byte, 174),
    As(Value::Byte, 175),   As(Value::Text, 3, 16), As(Value::Text, 4, 16), As(Value::Text, 5, 33),
    As(Value::Text, 6, 33), As(Value::Text, 7, 33), As(Value::Short, 176),  As(Value::Short, 177),
    As(Value::Short, 178),  As(Value::Real, 146),   As(Value::Real, 147)};

struct TableKind {
    OldTable table;
    const char* name;
    std::span<const OldRow> rows;
};
const std::array kKinds{TableKind{OldTable::Layer, "LAYER", kLayer},
                        TableKind{OldTable::Style, "STYLE", kStyle},
                        TableKind{OldTable::View, "VIEW", kView},
                        TableKind{OldTable::Ucs, "UCS", kUcs},
                        TableKind{OldTable::Viewport, "VPORT", kViewportRow},
                        TableKind{OldTable::AppId, "APPID", {}},
                        TableKind{OldTable::DimensionStyle, "DIMSTYLE", kDimensionStyle}};

void PutHead(const OldRecordHead& head, const char* table, TagSink& sink)
{
    sink.TableEntry(table);
    sink.Text(2, head.name);
    sink.Integer(70, head.flags);
}

/// Description, alignment, number and lengths of the dashes, and the length of the whole pattern.
void PutLinetype(const OldRecordHead& head, TagSink& sink)
{
    constexpr unsigned kMostDashes = 12;
    PutHead(head, "LTYPE", sink);
    OldBytes bytes(head.fields);
    sink.Text(3, bytes.Take(48));
    sink.Integer(72, bytes.RC());
    const unsigned dashes = std::min<unsigned>(bytes.RC(), kMostDashes);
    sink.Integer(73, dashes);
    sink.Real(40, bytes.RD());
    for (unsigned i = 0; i < dashes; ++i)
        sink.Real(49, bytes.RD());
}

} // namespace

void PutTables(const OldFile& file, TagSink& sink)
{
    for (const TableKind& kind : kKinds)
        for (const std::string_view record : file.Records(kind.table)) {
            const OldRecordHead head = HeadOf(file, record);
            PutHead(head, kind.name, sink);
            OldBytes bytes(head.fields);
            PutRows(file, kind.rows, bytes, sink);
        }
    for (const std::string_view record : file.Records(OldTable::Linetype))
        PutLinetype(HeadOf(file, record), sink);
    sink.Close();
}

} // namespace sm::drawing::dwg
