// SPDX-License-Identifier: GPL-3.0-or-later
// Texts, attributes, dimensions, inserts and viewports of R9 to R12.
#include "dwg/old/OldRecord.h"

namespace sm::drawing::dwg {

namespace {

void PutAngle(int code, OldRecord& record, unsigned option, TagSink& sink)
{
    if (record.Has(option))
        sink.Real(code, record.fields.RD() * kDegreesPerRadian);
}

void PutReal(int code, OldRecord& record, unsigned option, TagSink& sink)
{
    if (record.Has(option))
        sink.Real(code, record.fields.RD());
}

void PutByte(int code, OldRecord& record, unsigned option, TagSink& sink)
{
    if (record.Has(option))
        sink.Integer(code, record.fields.RC());
}

/// How a text is set: the options are in the same order for TEXT and attributes, from `first` on.
void PutSetting(const OldFile& file, OldRecord& record, unsigned first, int verticalCode, TagSink& sink)
{
    PutAngle(50, record, first, sink);
    PutReal(41, record, first << 1U, sink);
    PutAngle(51, record, first << 2U, sink);
    if (record.Has(first << 3U))
        sink.Text(7, file.Name(OldTable::Style, record.fields.RC()));
    PutByte(71, record, first << 4U, sink);
    PutByte(72, record, first << 5U, sink);
    if (record.Has(first << 6U))
        sink.Point(11, Raised(record.fields.Point2(), record.elevation));
    if (record.Has(first << 7U))
        sink.Point(210, record.fields.Point3());
    PutByte(verticalCode, record, first << 8U, sink);
}

void PutText(const OldFile& file, OldRecord& record, TagSink& sink)
{
    sink.Point(10, Raised(record.fields.Point2(), record.elevation));
    sink.Real(40, record.fields.RD());
    sink.Text(1, record.fields.Text());
    PutSetting(file, record, 1, 73, sink);
}

void PutAttribute(const OldFile& file, OldRecord& record, TagSink& sink)
{
    sink.Point(10, Raised(record.fields.Point2(), record.elevation));
    sink.Real(40, record.fields.RD());
    sink.Text(1, record.fields.Text());
    if (record.type == OldType::AttributeDefinition)
        sink.Text(3, record.fields.Text());
    sink.Text(2, record.fields.Text());
    sink.Integer(70, record.fields.RC());
    if (record.Has(1))
        sink.Integer(73, record.fields.RS());
    PutSetting(file, record, 2, 74, sink);
}

void PutInsert(const OldFile& file, OldRecord& record, TagSink& sink)
{
    if (record.hasMembers)
        sink.Integer(66, 1);
    sink.Text(2, file.Name(OldTable::Block, record.fields.Count()));
    sink.Point(10, Raised(record.fields.Point2(), record.elevation));
    PutReal(41, record, 1, sink);
    PutReal(42, record, 2, sink);
    PutAngle(50, record, 4, sink);
    PutReal(43, record, 8, sink);
    if (record.Has(0x10))
        sink.Integer(70, record.fields.RS());
    if (record.Has(0x20))
        sink.Integer(71, record.fields.RS());
    PutReal(44, record, 0x40, sink);
    PutReal(45, record, 0x80, sink);
    if (record.Has(0x100))
        sink.Point(210, record.fields.Point3());
}

void PutDimension(const OldFile& file, OldRecord& record, TagSink& sink)
{
    const bool flat = record.release == OldRelease::R9;
    const auto point = [&] { return flat ? Raised(record.fields.Point2(), record.elevation) : record.fields.Point3(); };
    const auto flatPoint = [&] { return Raised(record.fields.Point2(), record.elevation); };
    sink.Text(2, file.Name(OldTable::Block, record.fields.Count()));
    sink.Point(10, point());
    sink.Point(11, flatPoint());
    if (record.Has(1))
        sink.Point(12, flatPoint());
    PutByte(70, record, 2, sink);
    if (record.Has(4))
        sink.Text(1, record.fields.Text());
    for (int code = 13; code <= 15; ++code)
        if (record.Has(8U << static_cast<unsigned>(code - 13)))
            sink.Point(code, point());
    if (record.Has(0x40))
        sink.Point(16, flatPoint());
    PutReal(40, record, 0x80, sink);
    PutAngle(50, record, 0x100, sink);
    PutAngle(52, record, 0x200, sink);
    PutAngle(53, record, 0x400, sink);
    if (record.Has(0x4000))
        sink.Point(210, record.fields.Point3());
    if (record.Has(0x8000))
        sink.Text(3, file.Name(OldTable::DimensionStyle, record.fields.Count()));
}

void PutViewport(OldRecord& record, TagSink& sink)
{
    sink.Point(10, record.fields.Point3());
    sink.Real(40, record.fields.RD());
    sink.Real(41, record.fields.RD());
    const int number = record.fields.RS();
    sink.Integer(68, number);
    sink.Integer(69, number);
}

} // namespace

void PutNoteFields(const OldFile& file, OldRecord& record, TagSink& sink)
{
    switch (record.type) {
    case OldType::Text:
        return PutText(file, record, sink);
    case OldType::AttributeDefinition:
    case OldType::Attribute:
        return PutAttribute(file, record, sink);
    case OldType::Insert:
        return PutInsert(file, record, sink);
    case OldType::Dimension:
        return PutDimension(file, record, sink);
    case OldType::Viewport:
        return PutViewport(record, sink);
    default:
        return;
    }
}

} // namespace sm::drawing::dwg
