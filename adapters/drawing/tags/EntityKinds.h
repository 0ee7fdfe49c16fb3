// The names of entities in DXF files.
#pragma once

#include "drawing/Entities.h"

#include <string_view>

namespace sm::drawing {

/// Unknown for names that aren't in the list.
EntityKind KindOf(std::string_view name);

} // namespace sm::drawing
