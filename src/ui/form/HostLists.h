// SPDX-License-Identifier: GPL-3.0-or-later
// What the forms list from the drawing, and what they ask the user to pick in it.
#pragma once

#include "plugin/CallContext.h"
#include "ports/Variant.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sm {

/// The names of all layouts, in the order of their tabs. Throws HostError.
std::vector<std::string> LayoutNames(IAcadDocument& document);
/// The names of the named views. Throws HostError.
std::vector<std::string> ViewNames(IAcadDocument& document);
/// The name of the drawing's active layout; empty when it can't be read.
std::string CurrentLayoutName(CallContext& context);

/// One point of the drawing, world coordinates; nothing when the user cancels or the host fails.
std::optional<AcadPoint> PickPoint(CallContext& context);
/// Two opposite corners as picked; nothing when the user cancels either.
std::optional<std::pair<AcadPoint, AcadPoint>> PickRectangle(CallContext& context);

} // namespace sm
