// SPDX-License-Identifier: GPL-3.0-or-later
// The interpreter that its own installer has entered into the registry.
#pragma once

#include <string>

namespace sm::ghostscript {

/// The program without a window of the newest version that is entered, for the machine or for the user, in the registry
/// of 64-bit or of 32-bit programs, and is there; empty when there is none.
std::string RegisteredInterpreter();

} // namespace sm::ghostscript
