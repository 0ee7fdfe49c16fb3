// SPDX-License-Identifier: GPL-3.0-or-later
// SmTestHost.exe: the scripted CAD host as a program of its own.
//     SmTestHost.exe /RegServer | /UnregServer      registers "SmTestHost.RemoteApplication"
// Started by COM it serves until its last object is released.
#include "windows/testhost/ClassFactory.h"
#include "windows/testhost/Ids.h"
#include "windows/testhost/TestHost.h"
#include "windows/testhost/TestObject.h"
#include "windows/testhost/server/Scenario.h"

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>
#include <windows.h>

namespace sm::testhost {
namespace {

constexpr const wchar_t* kProgId = L"SmTestHost.RemoteApplication";
constexpr UINT kLookAgain = 100; // ms

bool Register()
{
    std::array<wchar_t, 1024> path{};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return RegisterName(kProgId, kRemoteHostClass, L"LocalServer32", L"\"" + std::wstring(path.data()) + L"\"");
}

int Serve()
{
    const HANDLE running = CreateMutexW(nullptr, FALSE, kRunningName); // goes with the process, however it ends
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    DWORD registration = 0;
    IClassFactory* const factory = NewClassFactory([] { return Offer(House().host.Application()); });
    const HRESULT result =
        CoRegisterClassObject(kRemoteHostClass, factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &registration);
    bool wasUsed = false;
    SetTimer(nullptr, 0, kLookAgain, nullptr);
    MSG message;
    while (SUCCEEDED(result) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
        wasUsed = wasUsed || TestObject::Alive() > 0;
        if (wasUsed && TestObject::Alive() == 0)
            break;
    }
    CoRevokeClassObject(registration);
    factory->Release();
    CoUninitialize();
    CloseHandle(running);
    return FAILED(result);
}

/// The client, whose environment this process has, writes a journal, too.
void KeepAJournalOfItsOwn()
{
    if (const char* const path = std::getenv("SM_JOURNAL"))
        _putenv_s("SM_JOURNAL", (std::string(path) + ".host").c_str());
}

} // namespace
} // namespace sm::testhost

int main(int count, char** arguments)
{
    using namespace sm::testhost;
    const std::string_view verb = count > 1 ? arguments[1] : "";
    if (verb == "/RegServer")
        return Register() ? 0 : 1;
    if (verb == "/UnregServer") {
        UnregisterName(kProgId, kRemoteHostClass);
        return 0;
    }
    KeepAJournalOfItsOwn();
    return Serve();
}
