// SPDX-License-Identifier: GPL-3.0-or-later
// The view that the active layout is looked at in, and named views.
#pragma once

#include "ports/Variant.h"
#include "session/OpenDrawing.h"

namespace sm::cadhost {

/// The middle of a view: in world coordinates for a plan view, in its display plane else.
Vec2 CenterOf(const drawing::NamedView& view);

/// What turns world into display coordinates on the active layout; the identity for sheets and plan views.
render::Matrix3 DisplayMatrix(OpenDrawing& open);

/// World to display coordinates and back.
class DisplayView {
public:
    explicit DisplayView(OpenDrawing& open) : m_view(DisplayMatrix(open)) {}
    [[nodiscard]] AcadPoint ToDisplay(const AcadPoint& point, bool vector) const;
    [[nodiscard]] AcadPoint ToWorld(const AcadPoint& point, bool vector) const;

private:
    render::Matrix3 m_view;
};

} // namespace sm::cadhost
