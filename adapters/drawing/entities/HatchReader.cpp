// SPDX-License-Identifier: GPL-3.0-or-later
#include "entities/HatchReader.h"

#include "entities/HatchEdges.h"

namespace sm::drawing {

HatchReader::HatchReader(HatchData& data) : m_data(data)
{
    HatchData kept = std::move(data);
    data = {};
    kept.patternName.clear();
    kept.gradientName.clear();
    kept.lines.clear();
    kept.gradientColors.clear();
    data.patternName = std::move(kept.patternName);
    data.gradientName = std::move(kept.gradientName);
    data.paths = std::move(kept.paths);
    data.lines = std::move(kept.lines);
    data.gradientColors = std::move(kept.gradientColors);
}

void HatchReader::Take(const EntityTags& tags)
{
    switch (tags.Code()) {
    case 91:
        m_part = m_part == Part::Head ? Part::Paths : m_part;
        break;
    case 75:
    case 76:
        m_part = Part::Pattern;
        break;
    case 98:
        m_part = Part::Seeds;
        break;
    default:
        break;
    }
    if (TakeGradient(tags))
        return;
    switch (m_part) {
    case Part::Head:
        TakeHead(tags);
        break;
    case Part::Paths:
        TakePath(tags);
        break;
    case Part::Pattern:
        TakePattern(tags);
        break;
    case Part::Seeds:
        break;
    }
}

void HatchReader::TakeHead(const EntityTags& tags)
{
    switch (tags.Code()) {
    case 2:
        tags.Source().text->Decode(tags.Name(), m_data.patternName);
        break;
    case 30:
        m_data.elevation = tags.Real();
        break;
    case 70:
        m_data.solid = tags.Integer() == 1;
        break;
    default:
        tags.TakeCommon(m_data);
    }
}

void HatchReader::StartPath(std::int32_t flags)
{
    EndPath();
    if (m_paths == m_data.paths.size())
        m_data.paths.emplace_back();
    HatchPath& path = m_data.paths[m_paths++];
    path.flags = flags;
    path.closed = true;
    path.polyline.clear();
    path.sources.clear();
    m_edges = 0;
}

void HatchReader::EndPath()
{
    if (m_paths > 0)
        m_data.paths[m_paths - 1].edges.resize(m_edges);
}

void HatchReader::TakePath(const EntityTags& tags)
{
    if (tags.Code() == 92) {
        StartPath(tags.Integer());
        return;
    }
    if (m_paths == 0)
        return;
    HatchPath& path = m_data.paths[m_paths - 1];
    if (tags.Code() == 330)
        path.sources.push_back(tags.HandleValue());
    else if ((path.flags & 2) != 0)
        TakePolyline(tags, path);
    else
        TakeEdge(tags, path);
}

void HatchReader::TakePolyline(const EntityTags& tags, HatchPath& path)
{
    switch (tags.Code()) {
    case 73:
        path.closed = tags.Integer() != 0;
        break;
    case 10:
        path.polyline.push_back({.point = {tags.Real(), 0, m_data.elevation}});
        break;
    case 20:
        if (!path.polyline.empty())
            path.polyline.back().point.y = tags.Real();
        break;
    case 42:
        if (!path.polyline.empty())
            path.polyline.back().bulge = tags.Real();
        break;
    default:
        break;
    }
}

void HatchReader::TakeEdge(const EntityTags& tags, HatchPath& path)
{
    if (tags.Code() == 72) {
        if (m_edges == path.edges.size())
            path.edges.emplace_back();
        StartHatchEdge(path.edges[m_edges++], tags.Integer());
    } else if (m_edges > 0) {
        TakeHatchEdgeTag(tags, path.edges[m_edges - 1]);
    }
}

void HatchReader::TakePattern(const EntityTags& tags)
{
    switch (tags.Code()) {
    case 75:
        m_data.style = tags.Integer();
        return;
    case 52:
        m_data.patternAngle = tags.Real();
        return;
    case 41:
        m_data.patternScale = tags.Real();
        return;
    case 77:
        m_data.patternDouble = tags.Integer() != 0;
        return;
    case 53:
        m_data.lines.emplace_back();
        m_data.lines.back().angle = tags.Real();
        return;
    default:
        break;
    }
    if (m_data.lines.empty())
        return;
    HatchLine& line = m_data.lines.back();
    switch (tags.Code()) {
    case 43:
        line.base.x = tags.Real();
        break;
    case 44:
        line.base.y = tags.Real();
        break;
    case 45:
        line.offset.x = tags.Real();
        break;
    case 46:
        line.offset.y = tags.Real();
        break;
    case 49:
        line.dashes.push_back(tags.Real());
        break;
    default:
        break;
    }
}

bool HatchReader::TakeGradient(const EntityTags& tags)
{
    switch (tags.Code()) {
    case 450:
        m_data.gradient = tags.Integer() != 0;
        break;
    case 460:
        m_data.gradientAngle = tags.Real();
        break;
    case 461:
        m_data.gradientShift = tags.Real();
        break;
    case 462:
        m_data.gradientTint = tags.Real();
        break;
    case 470:
        tags.Source().text->Decode(tags.Name(), m_data.gradientName);
        break;
    case 421:
        m_data.gradientColors.push_back(static_cast<std::uint32_t>(tags.Integer()) & 0xFFFFFF);
        break;
    default:
        return false;
    }
    return true;
}

void HatchReader::Finish()
{
    EndPath();
    m_data.paths.resize(m_paths);
}

void Read(const Drawing& drawing, const EntityRecord& record, HatchData& data)
{
    HatchReader reader(data);
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next())
        reader.Take(tags);
    reader.Finish();
}

} // namespace sm::drawing
