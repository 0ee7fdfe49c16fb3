// SPDX-License-Identifier: GPL-3.0-or-later
// Drawings that hold no entries themselves: what is entered for them is kept in a file beside them.
#pragma once

#include "run/ScreenParts.h"

#include <string>

namespace sm::drawing {
class Drawing;
} // namespace sm::drawing

namespace sm::app {

/// The file that a save writes; `name` is the drawing's as given.
std::string RecordsFileOf(const drawing::Drawing& drawing, const std::string& name);
/// The same where it is a file beside a DXF that can't hold entries (R12 and older); else empty. A DWG is never
/// written, which is known.
std::string KeptBeside(const drawing::Drawing& drawing, const std::string& name);
/// Says so before anything is entered, unless such a file is there already.
void TellWhereEntriesGo(const drawing::Drawing& drawing, const std::string& name, IDesktop& desktop);

} // namespace sm::app
