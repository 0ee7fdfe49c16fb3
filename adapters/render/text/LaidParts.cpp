// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/LaidParts.h"

#include <iterator>

namespace sm::render {

namespace {

template <class Part> void PutAside(std::vector<Part>& used, std::vector<Part>& spare)
{
    std::move(used.begin(), used.end(), std::back_inserter(spare));
    used.clear();
}

template <class Part> Part& Take(std::vector<Part>& used, std::vector<Part>& spare)
{
    if (spare.empty()) {
        used.emplace_back();
    } else {
        used.push_back(std::move(spare.back()));
        spare.pop_back();
    }
    return used.back();
}

void Clear(TextRun& run)
{
    run.font = nullptr;
    run.text.clear();
    run.glyphs.clear();
    run.positions.clear();
    run.clusters.clear();
    run.advance = 0;
    run.toPaper = {};
    run.color = 0;
    run.penWidth = 0;
    run.invisible = false;
}

void Map(Path& path, const Matrix2& map)
{
    for (Vec2& point : path.points) {
        point = map.Apply(point);
    }
}

} // namespace

void SetCorners(const Box2& box, const Matrix2& map, std::vector<Vec2>& corners)
{
    corners = {map.Apply(box.min), map.Apply({box.max.x, box.min.y}), map.Apply(box.max),
               map.Apply({box.min.x, box.max.y})};
}

void LaidParts::Begin()
{
    PutAside(m_result.glyphs, m_spareGlyphs);
    PutAside(m_result.rules, m_spareRules);
    m_result.outline.clear();
    m_result.frame.clear();
    m_result.elevation = 0;
    m_result.extrusion = {0, 0, 1};
}

GlyphPart& LaidParts::AddGlyphs()
{
    GlyphPart& part = Take(m_result.glyphs, m_spareGlyphs);
    Clear(part.run);
    part.color.reset();
    part.missing = false;
    return part;
}

RulePart& LaidParts::AddRule()
{
    RulePart& part = Take(m_result.rules, m_spareRules);
    part.path.Clear();
    part.color.reset();
    return part;
}

void LaidParts::Place(const Matrix2& map, const Box2& box)
{
    for (GlyphPart& part : m_result.glyphs) {
        part.run.toPaper = Compose(map, part.run.toPaper);
    }
    for (RulePart& part : m_result.rules) {
        Map(part.path, map);
    }
    if (!box.Empty()) {
        SetCorners(box, map, m_result.outline);
    }
}

} // namespace sm::render
