// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/publishing/LibraryPresence.h"

#include "windows/automation/ComRef.h"

#include <objbase.h>
#include <string>

namespace sm::windows {
namespace {

constexpr const wchar_t* kDocument = L"TwSmPubLib.PubDoc";
constexpr const wchar_t* kServers[] = {L"InprocServer32", L"LocalServer32"};

bool KeyIsThere(const std::wstring& path, REGSAM view)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ | view, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

} // namespace

bool LibraryIsThere() noexcept
{
    CLSID id{};
    ComRef<IUnknown> factory;
    return SUCCEEDED(CLSIDFromProgID(kDocument, &id)) &&
           SUCCEEDED(CoGetClassObject(id, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, nullptr, IID_IClassFactory,
                                      reinterpret_cast<void**>(factory.Receive())));
}

bool LibraryIsRegistered(ProgramBits bits) noexcept
{
    const REGSAM view = bits == ProgramBits::Of64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY;
    CLSID id{};
    wchar_t text[40] = {};
    if (FAILED(CLSIDFromProgID(kDocument, &id)) || StringFromGUID2(id, text, 40) == 0)
        return false;
    for (const wchar_t* server : kServers)
        if (KeyIsThere(std::wstring(L"CLSID\\") + text + L"\\" + server, view))
            return true;
    return false;
}

} // namespace sm::windows
