// SPDX-License-Identifier: GPL-3.0-or-later
// The walk over the drawing, as the painters of entities that hold others ask for it.
#pragma once

#include "context/PaintOptions.h"
#include "ink/Camera.h"
#include "render/Canvas.h"
#include "render/FrontEnd.h"

namespace sm::render {

/// What a view in space asks for.
struct SpaceLook {
    Camera camera;
    bool hidesLines = false;
    /// Whether it is to be drawn otherwise than flat.
    [[nodiscard]] bool InSpace() const { return hidesLines || camera.LimitsDepth(); }
};
/// `scale`: millimetres for a unit of the view; `axis`: where its target lies on the sheet.
SpaceLook LookOf(const drawing::ViewDepth& depth, Vec3 direction, double scale, Vec2 axis, bool hidesLines);

class IWalk {
public:
    virtual ~IWalk() = default;
    /// All that a block holds, of an external reference's its drawing; the best outcome of it. Ends the run's budget
    /// when the block unfolds to too much.
    virtual Outcome PaintBlock(std::uint32_t block, const Frame& frame) = 0;
    /// The same for a space, which costs nothing of the budget.
    virtual Outcome PaintAll(std::uint32_t block, const Frame& frame) = 0;
    /// The same for a view that hides lines, looks from one point or ends at some depth.
    virtual Outcome PaintInSpace(std::uint32_t block, const Frame& frame, const SpaceLook& look) = 0;
    /// What belongs to another entity and isn't counted on its own.
    virtual Outcome PaintPart(const drawing::EntityRecord& record, const Frame& frame) = 0;
    /// Appends the outline of an entity that bounds something else, whether it is visible or not. False for one that
    /// can't bound anything.
    virtual bool CatchPath(const drawing::EntityRecord& record, const Frame& frame, Path& path) = 0;
};

} // namespace sm::render
