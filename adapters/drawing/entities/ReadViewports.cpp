// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Viewports.h"
#include "entities/EntityTags.h"

namespace sm::drawing {

namespace {

void Reset(ViewportData& data)
{
    std::vector<std::uint32_t> layers = std::move(data.frozenLayers);
    data = {};
    layers.clear();
    data.frozenLayers = std::move(layers);
}

constexpr std::int32_t kDepthModes = 1 | 2 | 4 | 16, kHidesLines = 0x800;

void TakeFrozen(const EntityTags& tags, ViewportData& data)
{
    const auto& layers = tags.Source().layerOfHandle;
    const auto found = layers.find(tags.HandleValue());
    if (found != layers.end())
        data.frozenLayers.push_back(found->second);
}

void TakeViewportTag(const EntityTags& tags, ViewportData& data)
{
    switch (tags.Code()) {
    case 40:
        data.width = tags.Real();
        break;
    case 41:
        data.height = tags.Real();
        break;
    case 42:
        data.depth.lens = tags.Real();
        break;
    case 43:
        data.depth.front = tags.Real();
        break;
    case 44:
        data.depth.back = tags.Real();
        break;
    case 45:
        data.viewHeight = tags.Real();
        break;
    case 51:
        data.twist = tags.Real();
        break;
    case 68:
        data.status = tags.Integer();
        break;
    case 69:
        data.id = tags.Integer();
        break;
    case 90:
        data.flags = tags.Integer();
        data.depth.mode = data.flags & kDepthModes;
        break;
    case 170:
        data.shadePlot = tags.Integer();
        break;
    case 331:
    case 341:
        TakeFrozen(tags, data);
        break;
    case 340:
        data.clipEntity = tags.HandleValue();
        break;
    default:
        tags.TakeCommon(data);
    }
}

/// The view of an R12 viewport as its extended data "MVIEW" lists it (DXF reference R12, VIEWPORT): two 1010 points
/// (target, direction), then reals (twist, height, centre x, centre y, lens, front, back), integers (the view's mode,
/// seven of the screen, hidden lines) and frozen layers.
class MviewReader {
public:
    explicit MviewReader(const Drawing::Source& source, ViewportData& data) : m_source(source), m_data(data) {}

    void Take(const TagCursor& tags)
    {
        switch (tags.Code()) {
        case 1010:
            TakeX(tags.Real());
            break;
        case 1020:
            (m_points == 1 ? m_data.target : m_data.direction).y = tags.Real();
            break;
        case 1030:
            (m_points == 1 ? m_data.target : m_data.direction).z = tags.Real();
            break;
        case 1040:
            TakeReal(tags.Real());
            break;
        case 1003:
            TakeLayer(tags.Name());
            break;
        case 1070:
            TakeInteger(tags.Integer());
            break;
        default:
            break;
        }
    }

private:
    void TakeInteger(std::int32_t value)
    {
        // 1070 16 stands in front of the points, as the version of what follows.
        if (m_points == 0)
            return;
        constexpr int kMode = 0, kHides = 8;
        if (m_integers == kMode)
            m_data.depth.mode = value & kDepthModes;
        else if (m_integers == kHides && value != 0)
            m_data.flags |= kHidesLines;
        ++m_integers;
    }
    void TakeX(double x)
    {
        ++m_points;
        (m_points == 1 ? m_data.target : m_data.direction) = {x, 0, 0};
    }
    void TakeReal(double value)
    {
        switch (m_reals++) {
        case 0:
            m_data.twist = value;
            break;
        case 1:
            m_data.viewHeight = value;
            break;
        case 2:
            m_data.viewCenter.x = value;
            break;
        case 3:
            m_data.viewCenter.y = value;
            break;
        case 4:
            m_data.depth.lens = value;
            break;
        case 5:
            m_data.depth.front = value;
            break;
        case 6:
            m_data.depth.back = value;
            break;
        default:
            break;
        }
    }
    void TakeLayer(std::string_view name)
    {
        if (const auto layer = m_source.layers.Find(name, *m_source.text))
            m_data.frozenLayers.push_back(*layer);
    }

    const Drawing::Source& m_source;
    ViewportData& m_data;
    int m_points = 0, m_reals = 0, m_integers = 0;
};

/// `tags` stands on the first 1001 group.
void ReadMview(TagCursor tags, const Drawing::Source& source, ViewportData& data)
{
    MviewReader reader(source, data);
    bool mine = false;
    bool inView = false;
    do {
        if (tags.Code() == 1001)
            mine = tags.Name() == "ACAD";
        else if (mine && tags.Code() == 1000)
            inView = tags.Name() == "MVIEW";
        else if (mine && inView)
            reader.Take(tags);
    } while (tags.Next());
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, ViewportData& data)
{
    Reset(data);
    EntityTags tags(drawing.Tags(), record);
    bool hasView = false;
    while (tags.Next()) {
        if (tags.Take(10, data.center) || tags.Take(12, data.viewCenter) || tags.Take(17, data.target))
            continue;
        hasView = hasView || tags.Code() == 45;
        if (!tags.Take(16, data.direction))
            TakeViewportTag(tags, data);
    }
    if (!hasView && tags.Cursor().Code() == 1001)
        ReadMview(tags.Cursor(), tags.Source(), data);
    if (data.direction == Vec3{})
        data.direction = {0, 0, 1};
}

} // namespace sm::drawing
