// SPDX-License-Identifier: GPL-3.0-or-later
// Lines, curves, areas and polylines of R9 to R12.
#include "dwg/old/OldRecord.h"

namespace sm::drawing::dwg {

namespace {

/// A point of an entity that has a z of its own but for the flat ones.
Vec3 PointOf(OldRecord& record, bool deep)
{
    return deep ? record.fields.Point3() : Raised(record.fields.Point2(), record.elevation);
}

void PutExtrusion(OldRecord& record, unsigned option, TagSink& sink)
{
    if (record.Has(option))
        sink.Point(210, record.fields.Point3());
}

void PutLine(OldRecord& record, TagSink& sink)
{
    const bool old = record.release == OldRelease::R9;
    const bool line3d = record.type == OldType::Line3d;
    const bool deepStart = old ? line3d && record.Has(1) : !record.isFlat;
    const bool deepEnd = old ? line3d && record.Has(2) : !record.isFlat;
    sink.Point(10, PointOf(record, deepStart));
    sink.Point(11, PointOf(record, deepEnd));
    if (!line3d)
        PutExtrusion(record, 1, sink);
}

void PutPoint(OldRecord& record, TagSink& sink)
{
    sink.Point(10, PointOf(record, record.release != OldRelease::R9 && !record.isFlat));
    PutExtrusion(record, 1, sink);
    if (record.Has(2))
        sink.Real(50, record.fields.RD() * kDegreesPerRadian);
}

void PutArc(OldRecord& record, TagSink& sink)
{
    const Vec2 center = record.fields.Point2();
    sink.Real(40, record.fields.RD());
    if (record.type == OldType::Arc) {
        sink.Real(50, record.fields.RD() * kDegreesPerRadian);
        sink.Real(51, record.fields.RD() * kDegreesPerRadian);
    }
    PutExtrusion(record, 1, sink);
    const double z = record.Has(2) ? record.fields.RD() : record.elevation;
    sink.Point(10, Raised(center, z));
}

void PutArea(OldRecord& record, TagSink& sink)
{
    Vec2 corners[4];
    for (Vec2& corner : corners)
        corner = record.fields.Point2();
    PutExtrusion(record, 1, sink);
    const double z = record.Has(2) ? record.fields.RD() : record.elevation;
    for (int i = 0; i < 4; ++i)
        sink.Point(10 + i, Raised(corners[i], z));
}

void PutFace(OldRecord& record, TagSink& sink)
{
    const bool old = record.release == OldRelease::R9;
    for (unsigned i = 0; i < 4; ++i)
        sink.Point(static_cast<int>(10 + i), PointOf(record, old ? record.Has(1U << i) : !record.isFlat));
    if (!old && record.Has(1))
        sink.Integer(70, record.fields.RS());
}

void PutShape(const OldFile& file, OldRecord& record, TagSink& sink)
{
    sink.Point(10, Raised(record.fields.Point2(), record.elevation));
    sink.Real(40, record.fields.RD());
    sink.Integer(70, record.fields.RC());
    if (record.Has(1))
        sink.Real(50, record.fields.RD() * kDegreesPerRadian);
    if (record.Has(2))
        sink.Text(7, file.Name(OldTable::Style, record.fields.RC()));
    if (record.Has(4))
        sink.Real(41, record.fields.RD());
    if (record.Has(8))
        sink.Real(51, record.fields.RD() * kDegreesPerRadian);
}

/// Each field that is there, in the order of their bits.
void PutShorts(OldRecord& record, unsigned firstOption, std::initializer_list<int> codes, TagSink& sink)
{
    unsigned option = firstOption;
    for (const int code : codes) {
        if (record.Has(option))
            sink.Integer(code, record.fields.RS());
        option <<= 1U;
    }
}

void PutPolyline(OldRecord& record, TagSink& sink)
{
    sink.Integer(66, 1);
    sink.Point(10, Vec3{0, 0, record.elevation});
    if (record.Has(1))
        sink.Integer(70, record.fields.RC());
    if (record.Has(2))
        sink.Real(40, record.fields.RD());
    if (record.Has(4))
        sink.Real(41, record.fields.RD());
    PutExtrusion(record, 8, sink);
    PutShorts(record, 0x10, {71, 72, 73, 74, 75}, sink);
}

void PutVertex(OldRecord& record, TagSink& sink)
{
    constexpr unsigned kNoPoint = 0x4000;
    const Vec2 point = record.Has(kNoPoint) ? Vec2{} : record.fields.Point2();
    sink.Point(10, Raised(point, record.elevation));
    if (record.Has(1))
        sink.Real(40, record.fields.RD());
    if (record.Has(2))
        sink.Real(41, record.fields.RD());
    if (record.Has(4))
        sink.Real(42, record.fields.RD());
    if (record.Has(8))
        sink.Integer(70, record.fields.RC());
    if (record.Has(0x10))
        sink.Real(50, record.fields.RD() * kDegreesPerRadian);
    PutShorts(record, 0x20, {71, 72, 73, 74}, sink);
}

} // namespace

void PutOwnFields(const OldFile& file, OldRecord& record, TagSink& sink)
{
    switch (record.type) {
    case OldType::Line:
    case OldType::Line3d:
        return PutLine(record, sink);
    case OldType::Point:
        return PutPoint(record, sink);
    case OldType::Circle:
    case OldType::Arc:
        return PutArc(record, sink);
    case OldType::Trace:
    case OldType::Solid:
        return PutArea(record, sink);
    case OldType::Face3d:
        return PutFace(record, sink);
    case OldType::Shape:
        return PutShape(file, record, sink);
    case OldType::Polyline:
        return PutPolyline(record, sink);
    case OldType::Vertex:
        return PutVertex(record, sink);
    default:
        return PutNoteFields(file, record, sink);
    }
}

} // namespace sm::drawing::dwg
