// SPDX-License-Identifier: GPL-3.0-or-later
// The registry as it stands, to be compared with how it stood.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

namespace sm::windows {

/// Keys, and values with their type and bytes, by full path; a value's path ends in "\" and its name.
using RegistrySnapshot = std::map<std::wstring, std::string>;

inline std::string Narrow(const std::wstring& text)
{
    std::string narrow;
    for (const wchar_t character : text)
        narrow += static_cast<char>(character < 128 ? character : '?');
    return narrow;
}

inline void TakeSnapshot(HKEY parent, const std::wstring& name, const std::wstring& path, RegistrySnapshot& all)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return;
    all[path + L"\\"] = "key";
    std::vector<wchar_t> text(16384);
    std::vector<BYTE> bytes(1 << 16);
    for (DWORD i = 0;; ++i) {
        DWORD length = static_cast<DWORD>(text.size()), type = 0, size = static_cast<DWORD>(bytes.size());
        if (RegEnumValueW(key, i, text.data(), &length, nullptr, &type, bytes.data(), &size) != ERROR_SUCCESS)
            break;
        all[path + L"\\\\" + std::wstring(text.data(), length)] =
            std::to_string(type) + ":" + std::string(reinterpret_cast<const char*>(bytes.data()), size);
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = static_cast<DWORD>(text.size());
        if (RegEnumKeyExW(key, i, text.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        const std::wstring child(text.data(), length);
        TakeSnapshot(key, child, path + L"\\" + child, all);
    }
    RegCloseKey(key);
}

/// The machine's and the user's. The folder of the user's classes, which every Windows has, is made where a new Wine
/// hasn't got it yet.
inline RegistrySnapshot Both()
{
    HKEY classes = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, nullptr, 0, KEY_READ, nullptr, &classes, nullptr) ==
        ERROR_SUCCESS)
        RegCloseKey(classes);
    RegistrySnapshot all;
    TakeSnapshot(HKEY_LOCAL_MACHINE, L"Software", L"machine", all);
    TakeSnapshot(HKEY_CURRENT_USER, L"Software", L"user", all);
    return all;
}

/// Paths that are in one of the two alone, or differ.
inline std::vector<std::wstring> Differences(const RegistrySnapshot& before, const RegistrySnapshot& after)
{
    std::vector<std::wstring> paths;
    for (const auto& [path, value] : before)
        if (!after.contains(path) || after.at(path) != value)
            paths.push_back(path);
    for (const auto& [path, value] : after)
        if (!before.contains(path))
            paths.push_back(path);
    return paths;
}

} // namespace sm::windows
