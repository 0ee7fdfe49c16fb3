// SPDX-License-Identifier: GPL-3.0-or-later
// The one place where a failing automation call becomes the port's error.
#pragma once

#include "ports/HostError.h"

#include <oaidl.h>
#include <string>

namespace sm::windows {

/// The system's text of a code without its line end; "Automation error 0x80004005" when the system has none.
std::string TextOfResult(HRESULT result);

/// Of a call that returned `result`: the exception's own description when there is one, else the text of its code.
/// Frees what `exception` holds.
HostError ErrorOfCall(HRESULT result, EXCEPINFO& exception);

/// Throws HostError with the text of a value that has another type or shape than the operation needs.
[[noreturn]] void ThrowTypeMismatch();

/// The object, or the whole process that held it, is no longer there.
bool IsDisconnected(HRESULT result);
/// The other process was busy and did not take the call; calling again is safe.
bool IsBusy(HRESULT result);

} // namespace sm::windows
