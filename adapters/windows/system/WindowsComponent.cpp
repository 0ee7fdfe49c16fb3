// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/automation/WideText.h"
#include "windows/system/OwnModule.h"
#include "windows/system/WindowsSystem.h"

#include <windows.h>

#include <vector>

namespace sm::windows {
namespace {

class WindowsComponent final : public IComponent {
public:
    std::string Folder() override
    {
        const std::wstring path = OwnModulePath();
        const std::size_t slash = path.find_last_of(L'\\');
        return Utf8(path.substr(0, slash == std::wstring::npos ? 0 : slash));
    }
    ComponentVersion Version() override;
};

ComponentVersion WindowsComponent::Version()
{
    const std::wstring path = OwnModulePath();
    const DWORD size = GetFileVersionInfoSizeW(path.c_str(), nullptr);
    std::vector<char> block(size);
    void* found = nullptr;
    UINT length = 0;
    if (size == 0 || GetFileVersionInfoW(path.c_str(), 0, size, block.data()) == FALSE ||
        VerQueryValueW(block.data(), L"\\", &found, &length) == FALSE || length < sizeof(VS_FIXEDFILEINFO))
        return {};
    const auto& info = *static_cast<const VS_FIXEDFILEINFO*>(found);
    return {HIWORD(info.dwFileVersionMS), LOWORD(info.dwFileVersionMS), HIWORD(info.dwFileVersionLS)};
}

} // namespace

std::unique_ptr<IComponent> CreateComponent()
{
    return std::make_unique<WindowsComponent>();
}

} // namespace sm::windows
