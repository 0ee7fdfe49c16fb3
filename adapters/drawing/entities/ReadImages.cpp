// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/EntityKinds.h"
#include "drawing/entities/Images.h"
#include "entities/EntityTags.h"

#include "base/Units.h"

#include <algorithm>

namespace sm::drawing {

namespace {

void Reset(ImageData& data)
{
    std::vector<Vec2> clip = std::move(data.clip);
    data = {};
    clip.clear();
    data.clip = std::move(clip);
}

bool TakeClipPoint(const EntityTags& tags, int base, ImageData& data)
{
    if (tags.Code() == base)
        data.clip.emplace_back();
    return !data.clip.empty() && tags.Take(base, data.clip.back());
}

std::int32_t Percent(const EntityTags& tags)
{
    return std::clamp<std::int32_t>(tags.Integer(), 0, 100);
}

void TakeImageTag(const EntityTags& tags, ImageData& data)
{
    switch (tags.Code()) {
    case 70:
        data.flags = tags.Integer();
        break;
    case 71:
        data.clipType = tags.Integer();
        break;
    case 280:
        data.clipping = tags.Integer() != 0;
        break;
    case 281:
        data.brightness = Percent(tags);
        break;
    case 282:
        data.contrast = Percent(tags);
        break;
    case 283:
        data.fade = Percent(tags);
        break;
    case 290:
        data.clipInverted = tags.Integer() != 0;
        break;
    case 340:
        data.definition = tags.HandleValue();
        break;
    default:
        tags.TakeCommon(data);
    }
}

/// An underlay has scales and a rotation in place of vectors (DXF reference, PDFUNDERLAY: 41 to 43, 50).
void TakeUnderlayTag(const EntityTags& tags, ImageData& data, Vec3& scale, double& rotation)
{
    switch (tags.Code()) {
    case 41:
        scale.x = tags.Real();
        break;
    case 42:
        scale.y = tags.Real();
        break;
    case 43:
        scale.z = tags.Real();
        break;
    case 50:
        rotation = tags.Real();
        break;
    case 280:
        data.flags = tags.Integer();
        break;
    case 281:
        data.contrast = Percent(tags);
        break;
    case 282:
        data.fade = Percent(tags);
        break;
    case 290:
        data.clipInverted = tags.Integer() != 0;
        break;
    case 340:
        data.definition = tags.HandleValue();
        break;
    default:
        tags.TakeCommon(data);
    }
}

void ReadUnderlay(EntityTags& tags, ImageData& data)
{
    Vec3 scale{1, 1, 1};
    double rotation = 0;
    data.contrast = 100;
    while (tags.Next())
        if (!tags.Take(10, data.insertion) && !TakeClipPoint(tags, 11, data))
            TakeUnderlayTag(tags, data, scale, rotation);
    const double angle = base::RadiansOf(rotation);
    data.u = Vec3{std::cos(angle), std::sin(angle), 0} * scale.x;
    data.v = Vec3{-std::sin(angle), std::cos(angle), 0} * scale.y;
    data.clipping = (data.flags & 1) != 0 && !data.clip.empty();
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, ImageData& data)
{
    Reset(data);
    EntityTags tags(drawing.Tags(), record);
    if (record.kind == EntityKind::Underlay) {
        ReadUnderlay(tags, data);
        return;
    }
    while (tags.Next()) {
        if (tags.Take(10, data.insertion) || tags.Take(11, data.u) || tags.Take(12, data.v))
            continue;
        if (!tags.Take(13, data.size) && !TakeClipPoint(tags, 14, data))
            TakeImageTag(tags, data);
    }
    constexpr std::int32_t kUseClip = 4;
    data.clipping = data.clipping && (data.flags & kUseClip) != 0 && data.clip.size() >= 2;
}

} // namespace sm::drawing
