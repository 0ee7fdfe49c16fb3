// SPDX-License-Identifier: GPL-3.0-or-later
// SmTestHost.dll: the scripted CAD host and the recording publishing library, in the process of whoever creates them.
// regsvr32 registers both.
#include "windows/automation/ComRef.h"
#include "windows/testhost/ClassFactory.h"
#include "windows/testhost/Ids.h"
#include "windows/testhost/TestHost.h"
#include "windows/testhost/TestObject.h"
#include "windows/testhost/server/Scenario.h"

#include <array>
#include <windows.h>

namespace sm::testhost {
namespace {

struct OfferedName {
    const wchar_t* progId;
    const GUID* id;
    windows::ComRef<IDispatch> (*make)();
};

constexpr std::array<OfferedName, 3> kNames{{
    {L"SmTestHost.Application", &kHostClass, [] { return Offer(House().host.Application()); }},
    {L"TwSmPubLib.PubDoc", &kPubDocClass, [] { return Offer(House().library.CreatePubDoc()); }},
    {L"TwSmPubLib.ConversionLog", &kLogClass,
     [] {
         (void)House().library.TakeLog(); // the journal has them
         return Offer(House().library.CreateConversionLog());
     }},
}};

HINSTANCE module = nullptr;

std::wstring ModulePath()
{
    std::array<wchar_t, 1024> path{};
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    return {path.data(), length};
}

} // namespace
} // namespace sm::testhost

using namespace sm::testhost;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*)
{
    if (reason == DLL_PROCESS_ATTACH)
        module = instance;
    return TRUE;
}

extern "C" HRESULT WINAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, void** object)
{
    for (const OfferedName& name : kNames) {
        if (IsEqualGUID(id, *name.id)) {
            const auto factory = sm::windows::ComRef<IClassFactory>::Taken(NewClassFactory(name.make));
            return factory->QueryInterface(interfaceId, object);
        }
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" HRESULT WINAPI DllCanUnloadNow()
{
    return S_FALSE; // the scripted session lives as long as the process
}

extern "C" HRESULT WINAPI DllRegisterServer()
{
    bool done = true;
    for (const OfferedName& name : kNames)
        done = RegisterName(name.progId, *name.id, L"InprocServer32", ModulePath()) && done;
    return done ? S_OK : E_FAIL;
}

extern "C" HRESULT WINAPI DllUnregisterServer()
{
    for (const OfferedName& name : kNames)
        UnregisterName(name.progId, *name.id);
    return S_OK;
}
