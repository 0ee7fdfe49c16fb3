// SPDX-License-Identifier: GPL-3.0-or-later
// The controls by which a page setup is edited, as both of its forms carry them.
#pragma once

#include "ui/form/FormTable.h"

namespace sm {

/// The tag of every control that the custom page setup switch governs.
inline constexpr const char* kAcadPageSetupTag = "AcadPageSetup";

/// Adds the six frames and the units combo, each a child of `parent` ("" the form), whose inside is 374 by 236.
/// `onItsOwn`: as the page setup dialog has them, else as the settings dialog has them.
void AddPageSetupRows(FormTable& table, const char* parent, bool onItsOwn);

} // namespace sm
