// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "entities/EntityTags.h"

#include <array>

namespace sm::drawing {

namespace {

bool TakePlace(const EntityTags& tags, std::vector<Vec3>& points)
{
    constexpr int kX = 10, kY = 20, kZ = 30;
    if (tags.Code() == kX)
        points.push_back({tags.Real(), 0, 0});
    else if (tags.Code() == kY && !points.empty())
        points.back().y = tags.Real();
    else if (tags.Code() == kZ && !points.empty())
        points.back().z = tags.Real();
    else
        return false;
    return true;
}

bool TakeDirection(const EntityTags& tags, Vec3& direction)
{
    constexpr int kX = 211, kY = 221, kZ = 231;
    if (tags.Code() == kX)
        direction = {tags.Real(), 0, 0};
    else if (tags.Code() == kY)
        direction.y = tags.Real();
    else if (tags.Code() == kZ)
        direction.z = tags.Real();
    else
        return false;
    return true;
}

bool TakeDimensionPoint(const EntityTags& tags, DimensionData& data)
{
    return tags.Take(10, data.definitionPoint) || tags.Take(11, data.textMidpoint) || tags.Take(12, data.blockOffset) ||
           tags.Take(13, data.first) || tags.Take(14, data.second) || tags.Take(15, data.third) ||
           tags.Take(16, data.arcPoint);
}

bool TakeDimensionTag(const EntityTags& tags, DimensionData& data)
{
    switch (tags.Code()) {
    case 1:
        DecodeText(tags.Source(), tags.RawText(), data.text);
        break;
    case 2:
        data.block = tags.Source().BlockOf(tags.Name());
        tags.Source().text->Decode(tags.Name(), data.blockName);
        break;
    case 50:
        data.rotation = tags.Real();
        break;
    case 51:
        data.horizontal = tags.Real();
        break;
    case 52:
        data.oblique = tags.Real();
        break;
    case 53:
        data.textRotation = tags.Real();
        break;
    case 70:
        data.type = tags.Integer();
        break;
    default:
        return false;
    }
    return true;
}

DimensionData::Form FormOf(const Drawing& drawing, const EntityRecord& record, std::int32_t type)
{
    if (drawing.EntityName(record) == "ARC_DIMENSION")
        return DimensionData::Form::Arc;
    if (drawing.EntityName(record) == "LARGE_RADIAL_DIMENSION")
        return DimensionData::Form::Jogged;
    constexpr std::int32_t kForms = 15, kLast = static_cast<std::int32_t>(DimensionData::Form::Ordinate);
    return static_cast<DimensionData::Form>((type & kForms) <= kLast ? type & kForms : 0);
}

/// A DWG leaves the hook line to whoever draws it (group 75); a DXF has it among the points.
constexpr std::int32_t kHookToMake = 2;

/// Text and tolerances hang on a hook line where the last segment is steeper than 15 degrees against the leader's
/// direction.
bool NeedsHook(const LeaderData& data)
{
    constexpr double kSine = 0.25881904510252074;
    if (data.spline || data.annotation > 1 || data.vertices.size() < 2)
        return false;
    const Vec3 last = data.vertices.back() - data.vertices[data.vertices.size() - 2];
    const Vec3 along = data.horizontal;
    const Vec3 cross{last.y * along.z - last.z * along.y, last.z * along.x - last.x * along.z,
                     last.x * along.y - last.y * along.x};
    const auto square = [](const Vec3& v) { return v.x * v.x + v.y * v.y + v.z * v.z; };
    return square(cross) > kSine * kSine * square(last) * square(along);
}

/// It is as long as an arrow.
void AddHook(const Drawing& drawing, const EntityRecord& record, double side, LeaderData& data)
{
    DimStyle style;
    Read(drawing, record, style);
    const Vec3 end = data.vertices.back();
    data.vertices.back() = end + data.horizontal * (side * style.arrowSize * style.scale);
    data.vertices.push_back(end);
    data.hook = true;
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, LeaderData& data)
{
    std::vector<Vec3> vertices = std::move(data.vertices);
    data = {};
    vertices.clear();
    data.vertices = std::move(vertices);
    EntityTags tags(drawing.Tags(), record);
    bool hookToMake = false, alongDirection = false;
    while (tags.Next()) {
        if (TakePlace(tags, data.vertices) || TakeDirection(tags, data.horizontal))
            continue;
        switch (tags.Code()) {
        case 41:
            data.textWidth = tags.Real();
            break;
        case 71:
            data.arrowHead = tags.Integer() != 0;
            break;
        case 72:
            data.spline = tags.Integer() == 1;
            break;
        case 73:
            data.annotation = tags.Integer();
            break;
        case 74:
            alongDirection = tags.Integer() != 0;
            break;
        case 75:
            data.hook = tags.Integer() == 1;
            hookToMake = tags.Integer() == kHookToMake;
            break;
        default:
            tags.TakeCommon(data);
        }
    }
    if (hookToMake && NeedsHook(data))
        AddHook(drawing, record, alongDirection ? 1 : -1, data);
}

void Read(const Drawing& drawing, const EntityRecord& record, DimensionData& data)
{
    std::string name = std::move(data.blockName), text = std::move(data.text);
    data = {};
    name.clear();
    text.clear();
    data.blockName = std::move(name);
    data.text = std::move(text);
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next())
        if (!TakeDimensionPoint(tags, data) && !TakeDimensionTag(tags, data))
            tags.TakeCommon(data);
    data.form = FormOf(drawing, record, data.type);
}

void Read(const Drawing& drawing, const EntityRecord& record, ToleranceData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next()) {
        if (tags.Take(10, data.insertion) || tags.Take(11, data.direction))
            continue;
        if (tags.Code() == 1)
            DecodeText(tags.Source(), tags.RawText(), data.text);
        else
            tags.TakeCommon(data);
    }
}

} // namespace sm::drawing
