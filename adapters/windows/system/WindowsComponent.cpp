#include "windows/automation/WideText.h"
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

std::unique_ptr<IComponent> CreateComponent()
{
    return std::make_unique<WindowsComponent>();
}

} // namespace sm::windows
