// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/Drawing.h"
#include "drawing/EntityKinds.h"
#include "drawing/entities/Viewports.h"

namespace sm::drawing {

const EntityRecord* SheetViewportOf(const Drawing& drawing, std::uint32_t block)
{
    constexpr std::int32_t kSheetId = 1;
    const EntityRecord* first = nullptr;
    bool hasIds = false;
    ViewportData viewport;
    for (const EntityRecord& record : drawing.EntitiesOf(block)) {
        if (record.kind != EntityKind::Viewport)
            continue;
        Read(drawing, record, viewport);
        if (viewport.id == kSheetId)
            return &record;
        first = first == nullptr ? &record : first;
        hasIds = hasIds || viewport.id > 0;
    }
    return hasIds ? nullptr : first;
}

} // namespace sm::drawing
