// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/old/OldRows.h"

namespace sm::drawing::dwg {

namespace {

std::size_t SizeOf(const OldRow& row)
{
    switch (row.value) {
    case OldValue::Skip:
    case OldValue::Text:
        return row.size;
    case OldValue::Byte:
        return 1;
    case OldValue::Real:
    case OldValue::Angle:
    case OldValue::Date:
    case OldValue::Handle:
        return 8;
    case OldValue::Point2:
        return 16;
    case OldValue::Point3:
        return 24;
    default:
        return 2;
    }
}

double DateOf(OldBytes& bytes)
{
    constexpr double kMillisecondsADay = 86400000.0;
    const double days = bytes.RL();
    return days + bytes.RL() / kMillisecondsADay;
}

std::uint64_t HandleOf(OldBytes& bytes)
{
    std::uint64_t value = 0;
    for (const char c : bytes.Take(8))
        value = value << 8U | static_cast<unsigned char>(c);
    return value;
}

void PutName(const OldFile& file, const OldRow& row, unsigned index, TagSink& sink)
{
    if (row.value == OldValue::Linetype)
        sink.Text(row.code, file.LinetypeName(index));
    else
        sink.Text(row.code, file.Name(row.value == OldValue::Layer ? OldTable::Layer : OldTable::Style, index));
}

} // namespace

void PutRow(const OldFile& file, const OldRow& row, OldBytes& bytes, TagSink& sink)
{
    if (row.value != OldValue::Skip && row.name != nullptr)
        sink.Variable(row.name);
    switch (row.value) {
    case OldValue::Skip:
        bytes.Take(row.size);
        break;
    case OldValue::Byte:
        sink.Integer(row.code, bytes.RC());
        break;
    case OldValue::Short:
        sink.Integer(row.code, bytes.RS());
        break;
    case OldValue::Real:
        sink.Real(row.code, bytes.RD());
        break;
    case OldValue::Angle:
        sink.Real(row.code, bytes.Degrees());
        break;
    case OldValue::Point2:
        sink.Point(row.code, bytes.Point2());
        break;
    case OldValue::Point3:
        sink.Point(row.code, bytes.Point3());
        break;
    case OldValue::Text:
        sink.Text(row.code, bytes.Take(row.size));
        break;
    case OldValue::Date:
        sink.Real(row.code, DateOf(bytes));
        break;
    case OldValue::Handle:
        sink.HandleTag(row.code, HandleOf(bytes));
        break;
    default:
        PutName(file, row, bytes.Count(), sink);
    }
}

void PutRows(const OldFile& file, std::span<const OldRow> rows, OldBytes& bytes, TagSink& sink)
{
    for (const OldRow& row : rows) {
        if (bytes.Left() < SizeOf(row))
            return;
        PutRow(file, row, bytes, sink);
    }
}

} // namespace sm::drawing::dwg
