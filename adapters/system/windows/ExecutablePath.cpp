// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/Places.h"

#include <windows.h>

namespace sm::system {

std::filesystem::path ExecutablePath()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size())
            return path.substr(0, length);
        path.resize(path.size() * 2);
    }
}

} // namespace sm::system
