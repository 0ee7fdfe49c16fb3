// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/MultiLeaders.h"
#include "drawing/entities/Texts.h"
#include "geometry/Nurbs.h"
#include "notes/NotePicture.h"

#include <array>

namespace sm::render {

namespace {

using Leader = drawing::MultiLeaderData;

/// Appends a straight line without the stretches that `gaps` take out of it.
void AppendWithGaps(Path& path, Vec2 from, Vec2 to, const NotePicture& picture, const std::vector<Leader::Gap>& gaps)
{
    const Vec2 along = Unit(to - from);
    const double length = Length(to - from);
    const double slack = length * 1e-6;
    std::vector<std::pair<double, double>> holes;
    for (const Leader::Gap& gap : gaps) {
        const Vec2 a = picture.ToPlane(gap.start) - from, b = picture.ToPlane(gap.end) - from;
        const bool onLine = std::abs(Cross(along, a)) <= slack && std::abs(Cross(along, b)) <= slack;
        const double start = std::min(Dot(along, a), Dot(along, b)), end = std::max(Dot(along, a), Dot(along, b));
        if (onLine && start < length && end > 0) {
            holes.emplace_back(start, end);
        }
    }
    std::sort(holes.begin(), holes.end());
    double at = 0;
    for (const auto& [start, end] : holes) {
        if (start > at) {
            path.MoveTo(from + along * at);
            path.LineTo(from + along * start);
        }
        at = std::max(at, end);
    }
    if (at < length) {
        if (holes.empty() && !path.Empty() && path.points.back() == from) {
            path.LineTo(to);
            return;
        }
        path.MoveTo(from + along * at);
        path.LineTo(to);
    }
}

bool ShowsDogleg(const Leader& note, const Leader::Leader& leader)
{
    return note.dogleg && leader.hasEnd && leader.doglegLength > 0 && !(leader.dogleg == Vec3{});
}

void BuildLine(const Leader& note, const Leader::Leader& leader, const Leader::Line& line, const NoteTools& tools,
               NotePicture& picture)
{
    std::vector<Vec2> points;
    for (const Vec3 vertex : line.vertices) {
        points.push_back(picture.ToPlane(vertex));
    }
    if (leader.hasEnd) {
        points.push_back(picture.ToPlane(leader.end));
    }
    if (points.size() < 2) {
        return;
    }
    const Vec2 first = points[1] - points[0];
    // A line shorter than its arrow goes without one.
    if (Length(first) > line.arrowSize) {
        const double cut = AddArrow(picture, tools, line.arrow, points[0], first * -1, line.arrowSize, line.pen);
        points[0] = points[0] + Unit(first) * cut;
    }
    Path& path = picture.Add(line.pen);
    FitTangents tangents{first, points.back() - points[points.size() - 2]};
    if (ShowsDogleg(note, leader)) {
        tangents.end = picture.ToPlane(leader.dogleg);
    }
    if (note.spline && AppendFitCurve(path, points, tangents, false)) {
        return;
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
        AppendWithGaps(path, points[i - 1], points[i], picture, line.gaps);
    }
}

void BuildLeaders(const Leader& note, const NoteTools& tools, NotePicture& picture)
{
    for (const Leader::Leader& leader : note.leaders) {
        for (const Leader::Line& line : leader.lines) {
            BuildLine(note, leader, line, tools, picture);
        }
        if (ShowsDogleg(note, leader)) {
            const Vec2 end = picture.ToPlane(leader.end);
            AppendWithGaps(picture.Add(note.pen), end, end + Unit(picture.ToPlane(leader.dogleg)) * leader.doglegLength,
                           picture, leader.gaps);
        }
    }
}

/// The text's box, from below left counter-clockwise.
std::array<Vec2, 4> BoxOf(const LaidText& text, double margin)
{
    const auto& outline = text.outline;
    const Vec2 right = Unit(outline[1] - outline[0]) * margin, up = Unit(outline[3] - outline[0]) * margin;
    return {outline[0] - right - up, outline[1] + right - up, outline[2] + right + up, outline[3] - right + up};
}

/// Forms of attachment that draw a line along the text (DXF reference, MLEADERSTYLE 174 and 178).
bool Underlines(std::int32_t attachment)
{
    constexpr std::int32_t kUnderBottomLine = 5, kUnderTopLine = 6, kUnderAll = 8;
    return attachment == kUnderBottomLine || attachment == kUnderTopLine || attachment == kUnderAll;
}

/// An underlined text: the landing runs on to the far end of the text.
void BuildUnderlines(const Leader& note, const LaidText& text, NotePicture& picture)
{
    const std::array<Vec2, 4> box = BoxOf(text, note.landingGap);
    const Vec2 right = Unit(box[1] - box[0]);
    for (const Leader::Leader& leader : note.leaders) {
        const Vec2 along = picture.ToPlane(leader.dogleg);
        const bool fromLeft = Dot(along, right) > 0;
        if (leader.vertical || !leader.hasEnd || along == Vec2{} ||
            !Underlines(fromLeft ? note.leftAttachment : note.rightAttachment)) {
            continue;
        }
        const Vec2 start = picture.ToPlane(leader.end) + Unit(along) * (note.dogleg ? leader.doglegLength : 0);
        const Vec2 far = fromLeft ? box[1] : box[0];
        picture.AddLine(start, start + right * Dot(far - start, right), note.pen);
    }
}

void BuildText(const Leader& note, const NoteTools& tools, NotePicture& picture)
{
    drawing::MTextData text = note.text;
    text.linetype = note.pen.linetype;
    const LaidText& laid = tools.text.Lay(tools.drawing, text);
    if (laid.outline.size() == 4) {
        BuildUnderlines(note, laid, picture);
        if (note.textFrame) {
            const std::array<Vec2, 4> box = BoxOf(laid, note.landingGap);
            picture.AddPolygon({box[0], box[1], box[2], box[3]}, note.pen);
        }
    }
    picture.texts.push_back(std::move(text));
}

Vec3 AnyPoint(const Leader& note)
{
    for (const Leader::Leader& leader : note.leaders) {
        for (const Leader::Line& line : leader.lines) {
            if (!line.vertices.empty()) {
                return line.vertices.front();
            }
        }
    }
    return {};
}

} // namespace

void Build(const drawing::MultiLeaderData& leader, const NoteTools& tools, NotePicture& picture)
{
    const bool text = leader.content == Leader::Content::Text, block = leader.content == Leader::Content::Block;
    const Vec3 normal = text ? leader.text.extrusion : block ? leader.block.extrusion : Vec3{0, 0, 1};
    picture.SetPlane(normal, text ? leader.text.insertion : block ? leader.block.insertion : AnyPoint(leader));
    if (!leader.hidden) {
        BuildLeaders(leader, tools, picture);
    }
    if (text) {
        BuildText(leader, tools, picture);
    } else if (block) {
        NotePicture::Copy copy{leader.block, leader.attributes};
        const Vec2 at = picture.ToPlane(leader.block.insertion);
        copy.insert.insertion = {at.x, at.y, picture.elevation};
        picture.copies.push_back(std::move(copy));
    }
}

} // namespace sm::render
