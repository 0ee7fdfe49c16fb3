// SPDX-License-Identifier: GPL-3.0-or-later
// What makes the component known on a machine, or to one user.
#pragma once

#include <windef.h>
#include <winnt.h>

namespace sm::windows {

enum class RegisteredFor { Machine, User };

/// Makes the classes, interfaces and the type library known, all or none of them. Returns SELFREG_E_CLASS when that
/// can't be written.
HRESULT Register(RegisteredFor whom) noexcept;
/// Takes everything back that `Register` wrote; what isn't there is no failure.
HRESULT Unregister(RegisteredFor whom) noexcept;

} // namespace sm::windows
