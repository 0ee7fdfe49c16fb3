// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/DisplayRecorder.h"

#include "render/ClipBox.h"
#include "render/FontFace.h"
#include "render/Picture.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace sm::scene {
namespace {

using render::Verb;

constexpr std::uint32_t kChunkItems = 256;
constexpr std::size_t kPiecePoints = 512; ///< a longer stroke is cut between its sub-paths

constexpr std::array<std::string_view, 8> kNothingToSnap{"HATCH",  "MPOLYGON", "TEXT",  "MTEXT",
                                                         "ATTRIB", "ATTDEF",   "SHAPE", "TOLERANCE"};
constexpr std::array<std::string_view, 2> kNoCircles{"SPLINE", "HELIX"};
constexpr std::array<std::string_view, 2> kEndless{"XLINE", "RAY"};

template <std::size_t Count> bool IsOneOf(std::string_view kind, const std::array<std::string_view, Count>& kinds)
{
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

std::size_t PointsFor(Verb verb)
{
    return verb == Verb::Cubic ? 3 : verb == Verb::Close ? 0 : 1;
}

bool IsBox(const Path& path)
{
    if (path.points.size() != 4 && !(path.points.size() == 5 && path.points.front() == path.points.back()))
        return false;
    for (std::size_t i = 0; i < 4; ++i) {
        const Vec2 a = path.points[i];
        const Vec2 b = path.points[(i + 1) % 4];
        const bool level = a.y == b.y;
        const bool upright = a.x == b.x;
        const bool lies = (i % 2 == 0) == (path.points[0].y == path.points[1].y);
        if (lies ? !level : !upright)
            return false;
    }
    return std::find(path.verbs.begin(), path.verbs.end(), Verb::Cubic) == path.verbs.end();
}

Spot SpotOf(Vec2 point, Vec2 origin)
{
    return {static_cast<float>(point.x - origin.x), static_cast<float>(point.y - origin.y)};
}

} // namespace

void DisplayRecorder::BeginEntity(const render::EntityMark& mark)
{
    m_endless = IsOneOf(mark.kind, kEndless);
    m_snapping = IsOneOf(mark.kind, kNothingToSnap) ? Snapping::None
                 : IsOneOf(mark.kind, kNoCircles)   ? Snapping::Lines
                                                    : Snapping::Curves;
    m_hasCourse = false;
}

void DisplayRecorder::EndEntity()
{
    m_snapping = Snapping::None;
    m_endless = false;
}

void DisplayRecorder::PushClip(const Path& path, render::FillRule rule)
{
    Clip clip;
    clip.path = path;
    clip.rule = rule;
    clip.parent = ClipAtHand();
    clip.box = render::HullOf(path);
    const Clip& parent = m_list.clips[clip.parent];
    if (clip.parent != 0)
        clip.box = render::Intersection(clip.box, parent.box);
    clip.rectangular = IsBox(path) && (clip.parent == 0 || parent.rectangular);
    m_open.push_back(static_cast<std::uint32_t>(m_list.clips.size()));
    m_list.clips.push_back(std::move(clip));
}

void DisplayRecorder::PopClip()
{
    if (!m_open.empty())
        m_open.pop_back();
}

void DisplayRecorder::Snap(const Path& path)
{
    if (m_keepsShapes && m_snapping != Snapping::None)
        m_shapes.Add(path, m_snapping == Snapping::Curves, !m_endless, ClipAtHand());
}

void DisplayRecorder::Course(const Path& path)
{
    Snap(path);
    m_hasCourse = true;
}

void DisplayRecorder::Stroke(const Path& path, const render::StrokeStyle& style)
{
    if (!m_hasCourse)
        Snap(path);
    m_hasCourse = false;
    Item item;
    item.kind = ItemKind::Stroke;
    item.color = style.color;
    item.width = static_cast<float>(style.width);
    item.cap = style.cap;
    item.join = style.join;
    item.endless = m_endless;
    AddPieces(path, item);
}

// Long strokes become several items, so that zooming in leaves most of a dense hatch alone.
void DisplayRecorder::AddPieces(const Path& path, Item item)
{
    std::size_t verb = 0;
    std::size_t point = 0;
    std::size_t points = 0;
    for (std::size_t i = 0; i < path.verbs.size(); ++i) {
        if (path.verbs[i] == Verb::Move && points - point >= kPiecePoints) {
            AddPath(path, verb, i, point, item);
            verb = i;
            point = points;
        }
        points += PointsFor(path.verbs[i]);
    }
    AddPath(path, verb, path.verbs.size(), point, item);
}

void DisplayRecorder::Fill(const Path& path, std::uint32_t color, render::FillRule rule)
{
    Item item;
    item.kind = ItemKind::Fill;
    item.color = color;
    item.rule = rule;
    AddPath(path, 0, path.verbs.size(), 0, item);
    constexpr std::size_t kCorners = 12; // of areas whose corners are worth snapping to; glyphs have more
    if (path.points.size() <= kCorners)
        Snap(path);
}

void DisplayRecorder::AddPath(const Path& path, std::size_t verb, std::size_t verbEnd, std::size_t point, Item item)
{
    std::size_t count = 0;
    for (std::size_t i = verb; i < verbEnd; ++i)
        count += PointsFor(path.verbs[i]);
    if (count == 0 || point + count > path.points.size())
        return;
    Box2 box;
    for (std::size_t i = point; i < point + count; ++i)
        box.Add(path.points[i]);
    item.origin = box.min;
    item.first = static_cast<std::uint32_t>(m_list.points.size());
    item.verb = static_cast<std::uint32_t>(m_list.verbs.size());
    item.verbs = static_cast<std::uint32_t>(verbEnd - verb);
    for (std::size_t i = point; i < point + count; ++i)
        m_list.points.push_back(SpotOf(path.points[i], item.origin));
    m_list.verbs.insert(m_list.verbs.end(), path.verbs.begin() + static_cast<std::ptrdiff_t>(verb),
                        path.verbs.begin() + static_cast<std::ptrdiff_t>(verbEnd));
    Add(item, box);
}

void DisplayRecorder::Add(Item item, const Box2& box)
{
    const Spot low = SpotOf(box.min, item.origin);
    const Spot high = SpotOf(box.max, item.origin);
    item.left = low.x;
    item.bottom = low.y;
    item.right = high.x;
    item.top = high.y;
    item.clip = ClipAtHand();
    if (m_list.chunks.empty() || m_list.chunks.back().count == kChunkItems)
        m_list.chunks.push_back({static_cast<std::uint32_t>(m_list.items.size()), 0, {}});
    Chunk& chunk = m_list.chunks.back();
    ++chunk.count;
    chunk.box.Add(render::Grown(item.Box(), static_cast<double>(item.width)));
    m_list.items.push_back(item);
}

std::uint32_t DisplayRecorder::GlyphIndex(const render::FontFace& face, std::uint32_t glyph)
{
    const auto [place, isNew] = m_glyphs.try_emplace({&face, glyph}, static_cast<std::uint32_t>(m_list.glyphs.size()));
    if (isNew) {
        Glyph added;
        added.stroked = face.IsStroked();
        face.Outline(glyph, added.outline);
        m_list.glyphs.push_back(std::move(added));
    }
    return place->second;
}

void DisplayRecorder::Text(const render::TextRun& run)
{
    if (run.font == nullptr || run.invisible)
        return;
    GlyphRun added;
    added.first = static_cast<std::uint32_t>(m_list.placed.size());
    added.stroked = run.font->IsStroked();
    const Matrix2& m = run.toPaper;
    added.a = static_cast<float>(m.a);
    added.b = static_cast<float>(m.b);
    added.c = static_cast<float>(m.c);
    added.d = static_cast<float>(m.d);
    Box2 em;
    for (std::size_t i = 0; i < run.glyphs.size() && i < run.positions.size(); ++i) {
        const std::uint32_t glyph = GlyphIndex(*run.font, run.glyphs[i]);
        const Box2 outline = render::HullOf(m_list.glyphs[glyph].outline);
        if (outline.Empty())
            continue;
        m_list.placed.push_back({glyph, SpotOf(run.positions[i], {})});
        em.Add(Box2{outline.min + run.positions[i], outline.max + run.positions[i]});
        ++added.count;
    }
    if (added.count == 0)
        return;
    Box2 box;
    for (const Vec2 corner : {em.min, Vec2{em.max.x, em.min.y}, em.max, Vec2{em.min.x, em.max.y}})
        box.Add(m.Apply(corner));
    Item item;
    item.kind = ItemKind::Text;
    item.origin = {m.e, m.f};
    item.color = run.color;
    item.width = static_cast<float>(run.penWidth);
    item.first = static_cast<std::uint32_t>(m_list.runs.size());
    m_list.runs.push_back(added);
    Add(item, box);
}

void DisplayRecorder::Image(const render::Picture& picture, const Matrix2& toPaper, std::uint32_t color)
{
    auto& kept = m_pictures[picture.id];
    if (kept == nullptr)
        kept = std::make_shared<const render::Picture>(picture);
    Box2 box;
    for (const Vec2 corner : {Vec2{0, 0}, Vec2{1, 0}, Vec2{1, 1}, Vec2{0, 1}})
        box.Add(toPaper.Apply(corner));
    Item item;
    item.kind = ItemKind::Image;
    item.color = color;
    item.origin = box.min;
    item.first = static_cast<std::uint32_t>(m_list.pictures.size());
    m_list.pictures.push_back({kept, toPaper});
    Add(item, box);
}

DisplayList DisplayRecorder::TakeList()
{
    m_glyphs.clear();
    m_pictures.clear();
    m_open.clear();
    return std::exchange(m_list, {});
}

} // namespace sm::scene
