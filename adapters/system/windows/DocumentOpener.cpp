#include "system/DocumentOpener.h"

#include "base/files/Paths.h"

#include <filesystem>

#include <windows.h>

#include <shellapi.h>

namespace sm::system {

bool OpenOnDesktop(const Environment&, const std::string& pathOrAddress)
{
    constexpr INT_PTR kLastFault = 32; // what ShellExecute answers in place of a handle
    const std::filesystem::path named = base::ToPath(pathOrAddress);
    const bool isAddress = pathOrAddress.find("://") != std::string::npos || pathOrAddress.starts_with("mailto:");
    const std::filesystem::path target = isAddress ? named : std::filesystem::absolute(named).make_preferred();
    const HINSTANCE shown = ::ShellExecuteW(nullptr, L"open", target.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(shown) > kLastFault;
}

} // namespace sm::system
