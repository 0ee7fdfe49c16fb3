// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/system/OwnModule.h"

#include <windows.h>

namespace sm::windows {

HMODULE OwnModule()
{
    static const char anchor = 0;
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&anchor), &module);
    return module;
}

std::wstring OwnModulePath()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(OwnModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size())
            return path.substr(0, length);
        path.resize(path.size() * 2);
    }
}

} // namespace sm::windows
