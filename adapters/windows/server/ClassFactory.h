// SPDX-License-Identifier: GPL-3.0-or-later
// The classes that the component offers, and what makes their objects.
#pragma once

#include <array>
#include <unknwn.h>

namespace sm::windows {

/// One class that other programs can make objects of.
struct OfferedClass {
    const GUID& classId;
    const GUID& interfaceId;
    const char* progId;
    const char* description;
    /// A new object with one reference. May throw.
    IUnknown* (*make)();
};

/// The four classes, in the type library's order.
const std::array<OfferedClass, 4>& OfferedClasses();

/// The factory of a class, as `DllGetClassObject` gives it.
HRESULT GetFactory(REFCLSID classId, REFIID interfaceId, void** factory) noexcept;

} // namespace sm::windows
