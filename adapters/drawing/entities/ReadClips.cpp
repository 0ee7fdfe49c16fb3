// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Inserts.h"
#include "entities/EntityTags.h"
#include "tags/ObjectLinks.h"

#include <array>

namespace sm::drawing {

namespace {

/// Rows of an affine map of space: x' = m[0] x + m[1] y + m[2] z + m[3], and so on.
using Affine = std::array<double, 12>;
constexpr Affine kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0};

Vec3 Apply(const Affine& m, Vec3 p)
{
    return {m[0] * p.x + m[1] * p.y + m[2] * p.z + m[3], m[4] * p.x + m[5] * p.y + m[6] * p.z + m[7],
            m[8] * p.x + m[9] * p.y + m[10] * p.z + m[11]};
}

/// The identity for a map that can't be turned round.
Affine Inverse(const Affine& m)
{
    const double a = m[5] * m[10] - m[6] * m[9], b = m[6] * m[8] - m[4] * m[10], c = m[4] * m[9] - m[5] * m[8];
    const double determinant = m[0] * a + m[1] * b + m[2] * c;
    if (!(std::abs(determinant) > 1e-300) || !std::isfinite(1 / determinant))
        return kIdentity;
    const double k = 1 / determinant;
    Affine r{a * k, (m[2] * m[9] - m[1] * m[10]) * k, (m[1] * m[6] - m[2] * m[5]) * k, 0,
             b * k, (m[0] * m[10] - m[2] * m[8]) * k, (m[2] * m[4] - m[0] * m[6]) * k, 0,
             c * k, (m[1] * m[8] - m[0] * m[9]) * k,  (m[0] * m[5] - m[1] * m[4]) * k, 0};
    const Vec3 moved = Apply(r, {m[3], m[7], m[11]});
    r[3] = -moved.x;
    r[7] = -moved.y;
    r[11] = -moved.z;
    return r;
}

/// SPATIAL_FILTER (DXF reference): 10 the boundary in its own system, two points for a rectangle; 71 in force; 72 and
/// 40 a front plane; then 40, twelve each: the insert's map turned round, and the map to the boundary's system.
struct Filter {
    std::vector<Vec2> boundary;
    std::vector<double> reals;
    bool on = true;
    bool hasFront = false;

    void Take(const TagCursor& tag)
    {
        constexpr std::size_t kMost = 100'000;
        switch (tag.Code()) {
        case 10:
            if (boundary.size() < kMost)
                boundary.push_back({tag.Real(), 0});
            break;
        case 20:
            if (!boundary.empty())
                boundary.back().y = tag.Real();
            break;
        case 71:
            on = tag.Integer() != 0;
            break;
        case 72:
            hasFront = tag.Integer() != 0;
            break;
        case 40:
            if (reals.size() < 25)
                reals.push_back(tag.Real());
            break;
        default:
            break;
        }
    }
    [[nodiscard]] Affine Map(std::size_t which) const
    {
        Affine map = kIdentity;
        const std::size_t first = (hasFront ? 1 : 0) + which * map.size();
        if (reals.size() >= first + map.size())
            std::copy_n(reals.begin() + static_cast<std::ptrdiff_t>(first), map.size(), map.begin());
        return map;
    }
};

std::vector<Vec2> Corners(const std::vector<Vec2>& boundary)
{
    if (boundary.size() != 2)
        return boundary;
    const Vec2 a = boundary[0], b = boundary[1];
    return {a, {b.x, a.y}, b, {a.x, b.y}};
}

} // namespace

bool ReadInsertClip(const Drawing& drawing, const EntityRecord& record, std::vector<Vec3>& boundary)
{
    boundary.clear();
    const Drawing::Source& source = drawing.Tags();
    if (!source.HasSpatialFilters())
        return false;
    const TagCursor tags = source.TagsOf(record);
    const Handle filters = DictionaryEntry(source, ExtensionDictionaryOf(tags), "ACAD_FILTER");
    const NamedSlice* const object = source.FindObject(DictionaryEntry(source, filters, "SPATIAL"));
    if (object == nullptr || object->name != "SPATIAL_FILTER")
        return false;
    Filter filter;
    ForEachObjectTag(source, *object, [&](const TagCursor& tag) { filter.Take(tag); });
    const Affine toBlock = filter.Map(0), fromBoundary = Inverse(filter.Map(1));
    for (const Vec2 corner : Corners(filter.boundary))
        boundary.push_back(Apply(toBlock, Apply(fromBoundary, {corner.x, corner.y, 0})));
    return filter.on && boundary.size() > 2;
}

} // namespace sm::drawing
