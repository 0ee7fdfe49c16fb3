// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/RegisteredInterpreter.h"

#include "base/files/Paths.h"
#include "base/windows/Handles.h"

#include <charconv>
#include <filesystem>
#include <optional>
#include <vector>

#include <winreg.h>

namespace sm::ghostscript {
namespace {

namespace fs = std::filesystem;

/// Below each lie keys named after versions. The value of a version tells a file in the folder of its programs, or the
/// folder above that.
struct Entered {
    const wchar_t* key;
    const wchar_t* value; ///< null: the key's own
    bool isFolderAbove;
};

constexpr Entered kEntered[] = {{L"Software\\GPL Ghostscript", L"GS_DLL", false},
                                {L"Software\\Artifex Ghostscript", L"GS_DLL", false},
                                {L"Software\\Artifex\\GPL Ghostscript", nullptr, true}};
constexpr const char* kPrograms[] = {"gswin64c.exe", "gswin32c.exe"};

/// "10.02.1" as its numbers.
std::vector<int> Version(const std::string& name)
{
    std::vector<int> numbers;
    for (const char *at = name.data(), *end = at + name.size(); at < end; ++at) {
        int number = 0;
        const auto [next, error] = std::from_chars(at, end, number);
        if (error != std::errc())
            break;
        numbers.push_back(number);
        at = next;
    }
    return numbers;
}

std::vector<std::wstring> KeysBelow(HKEY key)
{
    std::vector<std::wstring> names;
    wchar_t name[256] = {};
    for (DWORD length = 256; ::RegEnumKeyExW(key, static_cast<DWORD>(names.size()), name, &length, nullptr, nullptr,
                                             nullptr, nullptr) == ERROR_SUCCESS;
         length = 256)
        names.emplace_back(name, length);
    return names;
}

std::string TextIn(HKEY key, const std::wstring& below, const wchar_t* value)
{
    std::wstring text(32768, L'\0');
    auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    const LSTATUS read = ::RegGetValueW(key, below.c_str(), value, RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    text.resize(read == ERROR_SUCCESS ? bytes / sizeof(wchar_t) - 1 : 0);
    return base::Narrow(text);
}

/// Empty when there is none in the folder.
fs::path ProgramIn(const fs::path& folder)
{
    for (const char* name : kPrograms) {
        std::error_code unreadable;
        fs::path program = folder / base::ToPath(name);
        if (folder.is_absolute() && fs::is_regular_file(program, unreadable))
            return program;
    }
    return {};
}

struct Found {
    std::vector<int> version;
    fs::path program;
};

void Look(HKEY root, REGSAM view, const Entered& entered, Found& newest)
{
    HKEY key = nullptr;
    if (::RegOpenKeyExW(root, entered.key, 0, KEY_READ | view, &key) != ERROR_SUCCESS)
        return;
    for (const std::wstring& name : KeysBelow(key)) {
        const fs::path told = base::ToPath(TextIn(key, name, entered.value));
        const fs::path program = ProgramIn(entered.isFolderAbove ? told / "bin" : told.parent_path());
        std::vector<int> version = Version(base::Narrow(name));
        if (!program.empty() && (newest.program.empty() || newest.version < version))
            newest = {std::move(version), program};
    }
    ::RegCloseKey(key);
}

} // namespace

std::string RegisteredInterpreter()
{
    Found newest;
    for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER})
        for (const REGSAM view : {KEY_WOW64_64KEY, KEY_WOW64_32KEY})
            for (const Entered& entered : kEntered)
                Look(root, view, entered, newest);
    return base::ToText(newest.program);
}

} // namespace sm::ghostscript
