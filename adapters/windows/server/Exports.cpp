// SPDX-License-Identifier: GPL-3.0-or-later
// What the system calls of the component.
#include "windows/objects/ModuleUse.h"
#include "windows/server/ClassFactory.h"
#include "windows/server/Registration.h"

#include <windows.h>

#include <cwchar>
#include <objbase.h>

using namespace sm::windows;

STDAPI DllCanUnloadNow()
{
    return ModuleUse::Any() ? S_FALSE : S_OK;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** object)
{
    return GetFactory(classId, interfaceId, object);
}

STDAPI DllRegisterServer()
{
    return Register(RegisteredFor::Machine);
}

STDAPI DllUnregisterServer()
{
    return Unregister(RegisteredFor::Machine);
}

/// "regsvr32 /n /i:user" and "regsvr32 /n /u /i:user": for the user alone; anything else: for the machine.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine)
{
    const bool forUser = commandLine != nullptr && _wcsicmp(commandLine, L"user") == 0;
    const RegisteredFor whom = forUser ? RegisteredFor::User : RegisteredFor::Machine;
    return install != FALSE ? Register(whom) : Unregister(whom);
}
