// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/TaggedPoints.h"
#include "entities/EntityTags.h"

#include <array>

namespace sm::drawing {

namespace {

constexpr int kFirstX = 10, kLastX = 18, kStep = 10;

/// Collects points; a y or z belongs to the last x of its group.
class PointCollector {
public:
    explicit PointCollector(std::vector<TaggedPoint>& points) : m_points(points) { m_points.clear(); }

    void Take(int code, double value)
    {
        if (code < kFirstX || code > kLastX + 2 * kStep || code % kStep > kLastX - kFirstX)
            return;
        const int x = kFirstX + code % kStep;
        auto& last = m_last[static_cast<std::size_t>(x - kFirstX)];
        if (code == x) {
            m_points.push_back({x, {value, 0, 0}});
            last = m_points.size();
        } else if (last != 0)
            (code - x == kStep ? m_points[last - 1].point.y : m_points[last - 1].point.z) = value;
    }

private:
    std::vector<TaggedPoint>& m_points;
    std::array<std::size_t, kLastX - kFirstX + 1> m_last{}; ///< position of each group's last point, from 1
};

} // namespace

void ReadPoints(const Drawing& drawing, const EntityRecord& record, std::vector<TaggedPoint>& points)
{
    PointCollector collector(points);
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next())
        if (const int code = tags.Code(); code >= kFirstX && code <= kLastX + 2 * kStep)
            collector.Take(code, tags.Real());
}

Vec2 ReadTableSize(const Drawing& drawing, const EntityRecord& record)
{
    constexpr int kRowHeight = 141, kColumnWidth = 142;
    Vec2 size;
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next()) {
        if (tags.Code() == kRowHeight)
            size.y += tags.Real();
        else if (tags.Code() == kColumnWidth)
            size.x += tags.Real();
    }
    return size;
}

} // namespace sm::drawing
