// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/dwg/Twins.h"

#include "drawing/EntityKinds.h"
#include "drawing/entities/AnnotationContexts.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/Graphics.h"
#include "drawing/entities/Hatches.h"
#include "drawing/entities/Hyperlinks.h"
#include "drawing/entities/Images.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/Points.h"
#include "drawing/entities/Polylines.h"
#include "drawing/entities/Solids.h"
#include "drawing/entities/Texts.h"
#include "drawing/entities/Viewports.h"

namespace sm::drawing::twins {

namespace {

template <class Data> struct Both {
    Data dwg, dxf;
    Both(const Pair& pair, const EntityRecord& a, const EntityRecord& b)
    {
        Read(pair.dwg, a, dwg);
        Read(pair.dxf, b, dxf);
    }
};

void CompareVertices(Fields& f, const std::vector<PolyVertex>& dwg, const std::vector<PolyVertex>& dxf)
{
    f.Each("vertices", dwg, dxf, [&](const PolyVertex& x, const PolyVertex& y) {
        f.Is("vertex.point", x.point, y.point);
        f.Is("vertex.bulge", x.bulge, y.bulge);
        f.Is("vertex.startWidth", x.startWidth, y.startWidth);
        f.Is("vertex.endWidth", x.endWidth, y.endWidth);
        f.Is("vertex.flags", x.flags, y.flags);
        for (std::size_t i = 0; i < x.face.size(); ++i)
            f.Is("vertex.face", x.face[i], y.face[i]);
    });
}

void Compare(const Pair&, Fields& f, const LineData& a, const LineData& b)
{
    f.Is("start", a.start, b.start);
    f.Is("end", a.end, b.end);
}

void Compare(const Pair&, Fields& f, const CircleData& a, const CircleData& b)
{
    f.Is("center", a.center, b.center);
    f.Is("radius", a.radius, b.radius);
}

void Compare(const Pair&, Fields& f, const ArcData& a, const ArcData& b)
{
    f.Is("center", a.center, b.center);
    f.Is("radius", a.radius, b.radius);
    f.Is("startAngle", a.startAngle, b.startAngle);
    f.Is("endAngle", a.endAngle, b.endAngle);
}

void Compare(const Pair&, Fields& f, const EllipseData& a, const EllipseData& b)
{
    f.Is("center", a.center, b.center);
    f.Is("majorAxis", a.majorAxis, b.majorAxis);
    f.Is("ratio", a.ratio, b.ratio);
    f.Is("startParameter", a.startParameter, b.startParameter);
    f.Is("endParameter", a.endParameter, b.endParameter);
}

void Compare(const Pair&, Fields& f, const PolylineData& a, const PolylineData& b)
{
    f.Is("closed", a.closed, b.closed);
    f.Is("is3d", a.is3d, b.is3d);
    f.Is("isMesh", a.isMesh, b.isMesh);
    f.Is("isPolyface", a.isPolyface, b.isPolyface);
    f.Is("plinegen", a.plinegen, b.plinegen);
    f.Is("constantWidth", a.constantWidth, b.constantWidth);
    f.Is("defaultStartWidth", a.defaultStartWidth, b.defaultStartWidth);
    f.Is("defaultEndWidth", a.defaultEndWidth, b.defaultEndWidth);
    f.Is("curveType", a.curveType, b.curveType);
    f.Is("splineFitted", a.splineFitted, b.splineFitted);
    f.Is("curveFitted", a.curveFitted, b.curveFitted);
    f.Is("meshM", a.meshM, b.meshM);
    f.Is("meshN", a.meshN, b.meshN);
    f.Is("meshClosedM", a.meshClosedM, b.meshClosedM);
    f.Is("meshClosedN", a.meshClosedN, b.meshClosedN);
    CompareVertices(f, a.vertices, b.vertices);
}

void Compare(const Pair&, Fields& f, const SplineData& a, const SplineData& b)
{
    f.Is("degree", a.degree, b.degree);
    f.Is("closed", a.closed, b.closed);
    f.Is("periodic", a.periodic, b.periodic);
    f.Is("rational", a.rational, b.rational);
    f.Is("knots", a.knots, b.knots);
    f.Is("weights", a.weights, b.weights);
    f.Is("controlPoints", a.controlPoints, b.controlPoints);
    f.Is("fitPoints", a.fitPoints, b.fitPoints);
    f.Is("startTangent", a.startTangent, b.startTangent);
    f.Is("endTangent", a.endTangent, b.endTangent);
}

void Compare(const Pair&, Fields& f, const PointData& a, const PointData& b)
{
    f.Is("location", a.location, b.location);
    f.Is("angle", a.angle, b.angle);
}

void Compare(const Pair&, Fields& f, const QuadData& a, const QuadData& b)
{
    for (std::size_t i = 0; i < a.corners.size(); ++i)
        f.Is("corners", a.corners[i], b.corners[i]);
    f.Is("invisibleEdges", a.invisibleEdges, b.invisibleEdges);
}

void Compare(const Pair& pair, Fields& f, const TextData& a, const TextData& b)
{
    f.Is("insertion", a.insertion, b.insertion);
    f.Is("hasAlignment", a.hasAlignment, b.hasAlignment);
    f.Is("alignment", a.alignment, b.alignment);
    f.Is("text", a.text, b.text);
    f.Is("tag", a.tag, b.tag);
    f.Is("prompt", a.prompt, b.prompt);
    f.Is("style", StyleName(pair.dwg, a.style), StyleName(pair.dxf, b.style));
    f.Is("height", a.height, b.height);
    f.Is("rotation", a.rotation, b.rotation);
    f.Is("widthFactor", a.widthFactor, b.widthFactor);
    f.Is("oblique", a.oblique, b.oblique);
    f.Is("backward", a.backward, b.backward);
    f.Is("upsideDown", a.upsideDown, b.upsideDown);
    f.Is("horizontal", a.horizontal, b.horizontal);
    f.Is("vertical", a.vertical, b.vertical);
    f.Is("attributeFlags", a.attributeFlags, b.attributeFlags);
    f.Is("embeddedMText", a.embeddedMText.has_value(), b.embeddedMText.has_value());
    if (a.embeddedMText && b.embeddedMText) {
        const Both<MTextData> inside(pair, *a.embeddedMText, *b.embeddedMText);
        CompareMText(pair, f, inside.dwg, inside.dxf);
    }
}

void Compare(const Pair& pair, Fields& f, const MTextData& a, const MTextData& b)
{
    CompareMText(pair, f, a, b);
}

void Compare(const Pair& pair, Fields& f, const InsertData& a, const InsertData& b)
{
    f.Is("block", BlockHandle(pair.dwg, a.block), BlockHandle(pair.dxf, b.block));
    f.Is("insertion", a.insertion, b.insertion);
    f.Is("scale", a.scale, b.scale);
    f.Is("rotation", a.rotation, b.rotation);
    f.Is("columns", a.columns, b.columns);
    f.Is("rows", a.rows, b.rows);
    f.Is("columnSpacing", a.columnSpacing, b.columnSpacing);
    f.Is("rowSpacing", a.rowSpacing, b.rowSpacing);
    f.Each("attributes", a.attributes, b.attributes, [&](const EntityRecord& x, const EntityRecord& y) {
        const Both<TextData> texts(pair, x, y);
        f.Is("attribute.handle", texts.dwg.handle, texts.dxf.handle);
        Compare(pair, f, texts.dwg, texts.dxf);
        CompareCommon(pair, f, texts.dwg, texts.dxf);
    });
}

void CompareEdge(Fields& f, const HatchEdge& a, const HatchEdge& b)
{
    f.Is("edge.kind", a.kind, b.kind);
    f.Is("edge.start", a.start, b.start);
    f.Is("edge.end", a.end, b.end);
    f.Is("edge.center", a.center, b.center);
    f.Is("edge.majorAxis", a.majorAxis, b.majorAxis);
    f.Is("edge.radius", a.radius, b.radius);
    f.Is("edge.ratio", a.ratio, b.ratio);
    f.Is("edge.startAngle", a.startAngle, b.startAngle);
    f.Is("edge.endAngle", a.endAngle, b.endAngle);
    f.Is("edge.counterClockwise", a.counterClockwise, b.counterClockwise);
    f.Is("edge.degree", a.degree, b.degree);
    f.Is("edge.knots", a.knots, b.knots);
    f.Is("edge.weights", a.weights, b.weights);
    f.Is("edge.points", a.points, b.points);
    f.Is("edge.fitPoints", a.fitPoints, b.fitPoints);
}

void Compare(const Pair&, Fields& f, const HatchData& a, const HatchData& b)
{
    f.Is("solid", a.solid, b.solid);
    f.Is("patternName", a.patternName, b.patternName);
    f.Is("style", a.style, b.style);
    f.Is("patternAngle", a.patternAngle, b.patternAngle);
    f.Is("patternScale", a.patternScale, b.patternScale);
    f.Is("patternDouble", a.patternDouble, b.patternDouble);
    f.Is("gradient", a.gradient, b.gradient);
    f.Is("gradientName", a.gradientName, b.gradientName);
    f.Is("gradientAngle", a.gradientAngle, b.gradientAngle);
    f.Is("gradientShift", a.gradientShift, b.gradientShift);
    f.Is("gradientTint", a.gradientTint, b.gradientTint);
    f.Is("gradientColors", a.gradientColors, b.gradientColors);
    f.Each("lines", a.lines, b.lines, [&](const HatchLine& x, const HatchLine& y) {
        f.Is("line.angle", x.angle, y.angle);
        f.Is("line.base", x.base, y.base);
        f.Is("line.offset", x.offset, y.offset);
        f.Is("line.dashes", x.dashes, y.dashes);
    });
    f.Each("paths", a.paths, b.paths, [&](const HatchPath& x, const HatchPath& y) {
        f.Is("path.flags", x.flags, y.flags);
        f.Is("path.closed", x.closed, y.closed);
        f.Is("path.sources", x.sources, y.sources);
        CompareVertices(f, x.polyline, y.polyline);
        f.Each("path.edges", x.edges, y.edges, [&](const HatchEdge& s, const HatchEdge& t) { CompareEdge(f, s, t); });
    });
}

void Compare(const Pair& pair, Fields& f, const ViewportData& a, const ViewportData& b)
{
    f.Is("center", a.center, b.center);
    f.Is("width", a.width, b.width);
    f.Is("height", a.height, b.height);
    f.Is("shown", a.status != 0, b.status != 0);
    f.Is("isSheet", a.id == 1, b.id == 1);
    f.Is("flags", a.flags, b.flags);
    f.Is("viewCenter", a.viewCenter, b.viewCenter);
    f.Is("viewHeight", a.viewHeight, b.viewHeight);
    f.Is("lens", a.depth.lens, b.depth.lens);
    f.Is("front", a.depth.front, b.depth.front);
    f.Is("back", a.depth.back, b.depth.back);
    f.Is("shadePlot", a.shadePlot, b.shadePlot);
    f.Is("direction", a.direction, b.direction);
    f.Is("target", a.target, b.target);
    f.Is("twist", a.twist, b.twist);
    f.Is("clipEntity", a.clipEntity, b.clipEntity);
    f.Is("frozenLayers", LayerNames(pair.dwg, a.frozenLayers), LayerNames(pair.dxf, b.frozenLayers));
}

void Compare(const Pair&, Fields& f, const ImageData& a, const ImageData& b)
{
    f.Is("insertion", a.insertion, b.insertion);
    f.Is("u", a.u, b.u);
    f.Is("v", a.v, b.v);
    f.Is("size", a.size, b.size);
    f.Is("definition", a.definition, b.definition);
    f.Is("flags", a.flags, b.flags);
    f.Is("clipType", a.clipType, b.clipType);
    f.Is("clip", a.clip, b.clip);
    f.Is("clipping", a.clipping, b.clipping);
    f.Is("clipInverted", a.clipInverted, b.clipInverted);
    f.Is("brightness", a.brightness, b.brightness);
    f.Is("contrast", a.contrast, b.contrast);
    f.Is("fade", a.fade, b.fade);
}

void Compare(const Pair&, Fields& f, const ShapeData& a, const ShapeData& b)
{
    f.Is("insertion", a.insertion, b.insertion);
    f.Is("name", a.name, b.name);
    f.Is("size", a.size, b.size);
    f.Is("rotation", a.rotation, b.rotation);
    f.Is("widthFactor", a.widthFactor, b.widthFactor);
    f.Is("oblique", a.oblique, b.oblique);
}

void Compare(const Pair&, Fields& f, const MeshData& a, const MeshData& b)
{
    f.Is("vertices", a.vertices, b.vertices);
    f.Is("faces", a.faces, b.faces);
}

void Compare(const Pair&, Fields& f, const SolidData& a, const SolidData& b)
{
    f.Is("complete", a.complete, b.complete);
    f.Each("edges", a.edges, b.edges, [&](const SolidEdge& x, const SolidEdge& y) {
        f.Is("edge.kind", x.kind, y.kind);
        f.Is("edge.start", x.start, y.start);
        f.Is("edge.end", x.end, y.end);
        f.Is("edge.center", x.center, y.center);
        f.Is("edge.points", x.points, y.points);
    });
}

void Compare(const Pair&, Fields& f, const GraphicsData& a, const GraphicsData& b)
{
    f.Is("complete", a.complete, b.complete);
    f.Each("steps", a.steps, b.steps, [&](const Graphic& x, const Graphic& y) {
        f.Is("step.kind", x.kind, y.kind);
        f.Is("step.points", x.points, y.points);
        f.Is("step.text", x.text, y.text);
    });
}

template <class Data> void CompareAs(const Pair& pair, const EntityRecord& dwg, const EntityRecord& dxf, Fields& fields)
{
    const Both<Data> both(pair, dwg, dxf);
    CompareCommon(pair, fields, both.dwg, both.dxf);
    Compare(pair, fields, both.dwg, both.dxf);
}

using Compared = void (*)(const Pair&, const EntityRecord&, const EntityRecord&, Fields&);

Compared ByKind(EntityKind kind)
{
    using Kind = EntityKind;
    static const std::map<Kind, Compared> kKinds{{Kind::Line, CompareAs<LineData>},
                                                 {Kind::XLine, CompareAs<LineData>},
                                                 {Kind::Ray, CompareAs<LineData>},
                                                 {Kind::Circle, CompareAs<CircleData>},
                                                 {Kind::Arc, CompareAs<ArcData>},
                                                 {Kind::Ellipse, CompareAs<EllipseData>},
                                                 {Kind::LwPolyline, CompareAs<PolylineData>},
                                                 {Kind::Polyline, CompareAs<PolylineData>},
                                                 {Kind::Spline, CompareAs<SplineData>},
                                                 {Kind::Helix, CompareAs<SplineData>},
                                                 {Kind::Point, CompareAs<PointData>},
                                                 {Kind::Solid, CompareAs<QuadData>},
                                                 {Kind::Trace, CompareAs<QuadData>},
                                                 {Kind::Face3d, CompareAs<QuadData>},
                                                 {Kind::Text, CompareAs<TextData>},
                                                 {Kind::Attdef, CompareAs<TextData>},
                                                 {Kind::MText, CompareAs<MTextData>},
                                                 {Kind::Insert, CompareAs<InsertData>},
                                                 {Kind::Hatch, CompareAs<HatchData>},
                                                 {Kind::MPolygon, CompareAs<HatchData>},
                                                 {Kind::Viewport, CompareAs<ViewportData>},
                                                 {Kind::Image, CompareAs<ImageData>},
                                                 {Kind::Wipeout, CompareAs<ImageData>},
                                                 {Kind::Underlay, CompareAs<ImageData>},
                                                 {Kind::Shape, CompareAs<ShapeData>},
                                                 {Kind::Mesh, CompareAs<MeshData>},
                                                 {Kind::Region, CompareAs<SolidData>},
                                                 {Kind::Solid3d, CompareAs<SolidData>},
                                                 {Kind::Body, CompareAs<SolidData>},
                                                 {Kind::Surface, CompareAs<SolidData>},
                                                 {Kind::Proxy, CompareAs<GraphicsData>},
                                                 {Kind::Unknown, CompareAs<GraphicsData>},
                                                 {Kind::OleFrame, CompareAs<GraphicsData>}};
    const auto found = kKinds.find(kind);
    return found == kKinds.end() ? nullptr : found->second;
}

template <class Data> void CompareForms(const Pair& pair, const EntityRecord& dwg, const EntityRecord& dxf, Fields& f)
{
    for (const Handle scale : pair.scales) {
        Both<Data> both(pair, dwg, dxf);
        AdaptTo(pair.dwg, dwg, scale, both.dwg);
        AdaptTo(pair.dxf, dxf, scale, both.dxf);
        f.Is("form.insertion", both.dwg.insertion, both.dxf.insertion);
        f.Is("form.rotation", both.dwg.rotation, both.dxf.rotation);
        if constexpr (!std::is_same_v<Data, InsertData>)
            f.Is("form.height", both.dwg.height, both.dxf.height);
        else
            f.Is("form.scale", both.dwg.scale, both.dxf.scale);
    }
}

void CompareAttached(const Pair& pair, const EntityRecord& dwg, const EntityRecord& dxf, Fields& f)
{
    std::vector<Hyperlink> a, b;
    ReadHyperlinks(pair.dwg, dwg, a);
    ReadHyperlinks(pair.dxf, dxf, b);
    f.Each("hyperlinks", a, b, [&](const Hyperlink& x, const Hyperlink& y) {
        f.Is("hyperlink.url", x.url, y.url);
        f.Is("hyperlink.description", x.description, y.description);
        f.Is("hyperlink.subLocation", x.subLocation, y.subLocation);
    });
    if (dxf.kind == EntityKind::Text)
        CompareForms<TextData>(pair, dwg, dxf, f);
    else if (dxf.kind == EntityKind::MText)
        CompareForms<MTextData>(pair, dwg, dxf, f);
    else if (dxf.kind == EntityKind::Insert)
        CompareForms<InsertData>(pair, dwg, dxf, f);
    else if (dxf.kind == EntityKind::Viewport)
        f.Is("annotationScale", AnnotationScaleOf(pair.dwg, dwg), AnnotationScaleOf(pair.dxf, dxf));
    std::vector<Vec3> clipA, clipB;
    const bool clips = ReadInsertClip(pair.dwg, dwg, clipA);
    f.Is("clip", clips, ReadInsertClip(pair.dxf, dxf, clipB));
    if (clips)
        f.Is("clip.boundary", clipA, clipB);
}

} // namespace

void CompareEntity(const Pair& pair, const EntityRecord& dwg, const EntityRecord& dxf, Report& report,
                   const std::string& place)
{
    const std::string kind(pair.dxf.EntityName(dxf));
    Fields fields(report, kind, place);
    fields.Is("name", std::string(pair.dwg.EntityName(dwg)), kind);
    if (dwg.kind != dxf.kind)
        return;
    fields.Is("paperSpace", dwg.paperSpace, dxf.paperSpace);
    if (const Compared compare = ByKind(dxf.kind))
        compare(pair, dwg, dxf, fields);
    else
        CompareNote(pair, dwg, dxf, fields);
    CompareAttached(pair, dwg, dxf, fields);
}

} // namespace sm::drawing::twins
