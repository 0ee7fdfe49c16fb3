// SPDX-License-Identifier: GPL-3.0-or-later
// Class factories that make objects of one function, and the names by which classes are found.
#pragma once

#include "windows/automation/ComRef.h"

#include <functional>
#include <oaidl.h>
#include <string>

namespace sm::testhost {

using MakeObject = std::function<windows::ComRef<IDispatch>()>;

/// A factory with one reference, which the caller owns. `make` may give null or throw: no instance is made then.
IClassFactory* NewClassFactory(MakeObject make);

/// Writes the name of a class, its id and its server, machine-wide: Wine looks for classes nowhere else. `serverKey` is
/// "InprocServer32" or "LocalServer32"; an empty path writes the name and the id alone. False when the registry
/// refuses.
bool RegisterName(const std::wstring& progId, const GUID& id, const std::wstring& serverKey, const std::wstring& path);
void UnregisterName(const std::wstring& progId, const GUID& id);

} // namespace sm::testhost
