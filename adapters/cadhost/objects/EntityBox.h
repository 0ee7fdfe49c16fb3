// SPDX-License-Identifier: GPL-3.0-or-later
// The box round an entity.
#pragma once

#include "render/FrontEnd.h"

namespace sm::cadhost {

/// What the entity draws; where it draws nothing itself, the place that it takes: the frame of a viewport, picture,
/// underlay or table, the points of a block reference or dimension whose block is missing or empty, else the points
/// among its tags: the base point of an XLINE or RAY, the vertices of a MESH or MLINE. World x and y. Empty for an
/// entity that has neither, such as a solid whose geometry is held in a binary form.
Box2 BoxOf(const drawing::Drawing& drawing, const drawing::EntityRecord& record, render::TextEngine& text,
           render::References* references = nullptr);

} // namespace sm::cadhost
