// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the boundary paths and the pattern of a hatch tag by tag.
#pragma once

#include "drawing/entities/Hatches.h"
#include "entities/EntityTags.h"

namespace sm::drawing {

/// Fills a HatchData that may have been used before: its lists keep their memory.
class HatchReader {
public:
    explicit HatchReader(HatchData& data);
    void Take(const EntityTags& tags);
    void Finish();

private:
    /// The parts of a HATCH follow each other: 91 starts the paths, 75 or 76 the pattern, 98 the seed points.
    enum class Part : std::uint8_t { Head, Paths, Pattern, Seeds };

    void TakeHead(const EntityTags& tags);
    void TakePath(const EntityTags& tags);
    void TakePolyline(const EntityTags& tags, HatchPath& path);
    void TakeEdge(const EntityTags& tags, HatchPath& path);
    void TakePattern(const EntityTags& tags);
    bool TakeGradient(const EntityTags& tags);
    void StartPath(std::int32_t flags);
    void EndPath();

    HatchData& m_data;
    std::size_t m_paths = 0, m_edges = 0;
    Part m_part = Part::Head;
};

} // namespace sm::drawing
