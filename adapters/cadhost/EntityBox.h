// The box round an entity.
#pragma once

#include "render/FrontEnd.h"

namespace sm::cadhost {

/// What the entity draws; where it draws nothing itself, the place that it takes: a viewport's frame, the frame of a
/// picture or underlay, the points of a block reference or dimension whose block is missing or empty. World x and y.
/// Empty for an entity that has neither.
drawing::Box2 BoxOf(const drawing::Drawing& drawing, const drawing::EntityRecord& record, render::TextEngine& text);

} // namespace sm::cadhost
