// SPDX-License-Identifier: GPL-3.0-or-later
// The descriptions of the component's interfaces, by which scripts call them.
#pragma once

#include "windows/automation/ComRef.h"

#include <memory>
#include <oaidl.h>
#include <vector>

namespace sm::windows {

/// The type library inside this module. Read once for all objects that use it at a time.
class TypeInfos {
public:
    /// Null when the library can't be read.
    static std::shared_ptr<TypeInfos> Shared();
    explicit TypeInfos(ComRef<ITypeLib> library) : m_library(std::move(library)) {}

    /// Null when it isn't described.
    ComRef<ITypeInfo> Of(REFIID interfaceId);

private:
    ComRef<ITypeLib> m_library;
};

/// Whether a member may be called in that way (DISPATCH_METHOD and so on) with so many arguments. A member that isn't
/// there may: that is for the call to find out.
bool MayTake(ITypeInfo& described, DISPID member, WORD kind, UINT arguments);

/// Which of a member's arguments, the first one first, are objects.
std::vector<bool> ObjectPlaces(ITypeInfo& described, DISPID member, WORD kind);

} // namespace sm::windows
