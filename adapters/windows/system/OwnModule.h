// SPDX-License-Identifier: GPL-3.0-or-later
// The module that this code was linked into: the component, or a program of the tests.
#pragma once

#include <string>
#include <windef.h>

namespace sm::windows {

HMODULE OwnModule();
/// Its full path.
std::wstring OwnModulePath();

} // namespace sm::windows
