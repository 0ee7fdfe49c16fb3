// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader calls a control that has no caption of its own.
#pragma once

#include "ports/FormControls.h"

#include <cstddef>
#include <string>
#include <vector>

namespace sm::qt {

/// `caption` as it is spoken: without "&" before the mnemonic, "&&" as one, without a colon at the end.
std::string Spoken(const std::string& caption);

/// The label or option on the left in the same row and the label on the right ("Custom, Inches"); without these the
/// label right above; else the caption of the frame, the tab page or the form.
std::string SpokenName(const std::vector<FormControl>& controls, std::size_t control);

/// The control that a label is for, to which its mnemonic leads: the next one in the table, on the same parent, at
/// which the keyboard stops. 0 when there is none.
std::size_t BuddyOf(const std::vector<FormControl>& controls, std::size_t label);

} // namespace sm::qt
