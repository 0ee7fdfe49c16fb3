// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DocumentOpener.h"

#include "base/files/Paths.h"

#include <filesystem>

#include <windows.h>

#include <shellapi.h>

namespace sm::system {
namespace {

/// The system's shell, with all that stands behind it, is loaded by those runs alone that open something.
decltype(&::ShellExecuteW) ShellExecuteFunction()
{
    const HMODULE shell = ::LoadLibraryExW(L"shell32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const FARPROC function = shell != nullptr ? ::GetProcAddress(shell, "ShellExecuteW") : nullptr;
    return reinterpret_cast<decltype(&::ShellExecuteW)>(reinterpret_cast<void*>(function));
}

} // namespace

bool OpenOnDesktop(const Environment&, const std::string& pathOrAddress)
{
    constexpr INT_PTR kLastFault = 32; // what ShellExecute answers in place of a handle
    const std::filesystem::path named = base::ToPath(pathOrAddress);
    const bool isAddress = pathOrAddress.find("://") != std::string::npos || pathOrAddress.starts_with("mailto:");
    const std::filesystem::path target = isAddress ? named : std::filesystem::absolute(named).make_preferred();
    const auto execute = ShellExecuteFunction();
    if (execute == nullptr)
        return false;
    const HINSTANCE shown = execute(nullptr, L"open", target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(shown) > kLastFault;
}

bool OpenAndSee(const Environment& environment, const std::string& pathOrAddress)
{
    return OpenOnDesktop(environment, pathOrAddress); // the shell says at once what it can't show
}

} // namespace sm::system
