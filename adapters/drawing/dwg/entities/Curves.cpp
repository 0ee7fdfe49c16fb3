// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

#include <vector>

namespace sm::drawing::dwg {

void DecodeLine(Object& object)
{
    BitReader& data = object.data;
    Vec3 start, end;
    if (object.Before(Release::R2000)) {
        start = object.BD3();
        end = object.BD3();
    } else {
        const bool flat = data.B();
        start.x = data.RD();
        end.x = data.DD(start.x);
        start.y = data.RD();
        end.y = data.DD(start.y);
        start.z = flat ? 0 : data.RD();
        end.z = flat ? 0 : data.DD(start.z);
    }
    object.WriteThickness(object.BT());
    object.sink.Point(10, start);
    object.sink.Point(11, end);
    object.WriteExtrusion(object.BE());
}

void DecodePoint(Object& object)
{
    object.sink.Point(10, object.BD3());
    object.WriteThickness(object.BT());
    object.WriteExtrusion(object.BE());
    if (const double angle = object.data.BD(); angle != 0)
        object.WriteAngle(50, angle);
}

void DecodeCircle(Object& object)
{
    object.sink.Point(10, object.BD3());
    object.sink.Real(40, object.data.BD());
    object.WriteThickness(object.BT());
    object.WriteExtrusion(object.BE());
}

void DecodeArc(Object& object)
{
    DecodeCircle(object);
    object.WriteAngle(50, object.data.BD());
    object.WriteAngle(51, object.data.BD());
}

void DecodeEllipse(Object& object)
{
    object.sink.Point(10, object.BD3());
    object.sink.Point(11, object.BD3());
    object.WriteExtrusion(object.BD3());
    object.sink.Real(40, object.data.BD());
    object.sink.Real(41, object.data.BD());
    object.sink.Real(42, object.data.BD());
}

void DecodeRay(Object& object)
{
    object.sink.Point(10, object.BD3());
    object.sink.Point(11, object.BD3());
}

namespace {

constexpr std::int32_t kClosedSpline = 1, kPeriodic = 2, kRational = 4;

void DecodeControlForm(Object& object, std::uint32_t degree)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    std::int32_t flags = data.B() ? kRational : 0;
    flags |= data.B() ? kClosedSpline : 0;
    flags |= data.B() ? kPeriodic : 0;
    (void)data.BD();
    (void)data.BD();
    std::uint32_t knots = data.BL(), points = data.BL();
    const bool weighted = data.B();
    sink.Integer(70, flags);
    sink.Integer(71, degree);
    for (knots = data.Count(knots, 2); knots > 0 && !data.Overrun(); --knots)
        sink.Real(40, data.BD());
    for (points = data.Count(points, 6); points > 0 && !data.Overrun(); --points) {
        sink.Point(10, object.BD3());
        if (weighted)
            sink.Real(41, data.BD());
    }
}

/// What fit points and tangents define.
struct FitForm {
    Vec3 startTangent, endTangent;
    std::vector<Vec3> points;
};

FitForm ReadFitForm(Object& object)
{
    BitReader& data = object.data;
    FitForm form;
    (void)data.BD();
    form.startTangent = object.BD3();
    form.endTangent = object.BD3();
    for (std::uint32_t points = data.Count(data.BL(), 6); points > 0 && !data.Overrun(); --points)
        form.points.push_back(object.BD3());
    return form;
}

void WriteFitForm(TagSink& sink, const FitForm& form)
{
    if (form.startTangent != Vec3{})
        sink.Point(12, form.startTangent);
    if (form.endTangent != Vec3{})
        sink.Point(13, form.endTangent);
    for (const Vec3& point : form.points)
        sink.Point(11, point);
}

/// Two points and two tangents over even knots are one Bezier curve: there the length of the tangents counts, which
/// readers of fit points don't look at.
bool IsBezier(const FitForm& form, std::uint32_t knots)
{
    constexpr std::uint32_t kEvenKnots = 2;
    return knots == kEvenKnots && form.points.size() == 2 && form.startTangent != Vec3{} && form.endTangent != Vec3{};
}

void WriteBezier(TagSink& sink, const FitForm& form)
{
    constexpr double kThird = 1.0 / 3;
    for (const double knot : {0, 0, 0, 0, 1, 1, 1, 1})
        sink.Real(40, knot);
    sink.Point(10, form.points[0]);
    sink.Point(10, form.points[0] + form.startTangent * kThird);
    sink.Point(10, form.points[1] - form.endTangent * kThird);
    sink.Point(10, form.points[1]);
}

} // namespace

void DecodeSpline(Object& object)
{
    constexpr std::uint32_t kFitScenario = 2, kFitMethod = 1, kClosedFit = 4, kCustomKnots = 15;
    BitReader& data = object.data;
    bool fit = data.BL() == kFitScenario;
    std::int32_t flags = 0;
    std::uint32_t knots = 0;
    if (object.Since(Release::R2013)) {
        const std::uint32_t bits = data.BL();
        knots = data.BL();
        fit = (bits & kFitMethod) != 0 && knots != kCustomKnots;
        flags = (bits & kClosedFit) != 0 ? kClosedSpline : 0;
    }
    const std::uint32_t degree = data.BL();
    if (!fit) {
        DecodeControlForm(object, degree);
        return;
    }
    const FitForm form = ReadFitForm(object);
    object.sink.Integer(70, flags);
    object.sink.Integer(71, degree);
    if (IsBezier(form, knots))
        WriteBezier(object.sink, form);
    else
        WriteFitForm(object.sink, form);
}

void DecodeHelix(Object& object)
{
    object.sink.Text(100, "AcDbSpline");
    DecodeSpline(object);
    object.sink.Text(100, "AcDbHelix");
}

} // namespace sm::drawing::dwg
