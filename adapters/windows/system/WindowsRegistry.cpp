// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/RegistryKeys.h"
#include "windows/automation/WideText.h"
#include "windows/system/WindowsSystem.h"

#include <windows.h>

#include <cstring>

namespace sm::windows {
namespace {

HKEY RootKey(RegistryRoot root)
{
    return root == RegistryRoot::CurrentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

/// What the installer writes for the machine; who installs for one user alone may write it only there.
bool IsInstallFact(RegistryRoot root, const std::string& path)
{
    const std::string maker = std::string(kMakerKey) + "\\";
    return root == RegistryRoot::LocalMachine && _strnicmp(path.c_str(), maker.c_str(), maker.size()) == 0;
}

RegistryKey FromHandle(HKEY handle)
{
    return reinterpret_cast<RegistryKey>(handle);
}

HKEY ToHandle(RegistryKey key)
{
    return reinterpret_cast<HKEY>(key);
}

class WindowsRegistry final : public IRegistry {
public:
    std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) override
    {
        HKEY key = nullptr;
        const std::string name = Encode(path);
        if (RegOpenKeyA(RootKey(root), name.c_str(), &key) == ERROR_SUCCESS ||
            (IsInstallFact(root, name) && RegOpenKeyA(HKEY_CURRENT_USER, name.c_str(), &key) == ERROR_SUCCESS))
            return FromHandle(key);
        return std::nullopt;
    }

    std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) override
    {
        HKEY key = nullptr;
        if (RegCreateKeyA(RootKey(root), Encode(path).c_str(), &key) != ERROR_SUCCESS)
            return std::nullopt;
        return FromHandle(key);
    }

    std::optional<RegistryValueInfo> QueryInfo(RegistryKey key, const std::string& name) override;
    bool QueryValue(RegistryKey key, const std::string& name, std::string& buffer) override;

    bool SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                  std::uint32_t byteCount) override
    {
        return byteCount <= data.size() &&
               RegSetValueExA(ToHandle(key), Encode(name).c_str(), 0, static_cast<DWORD>(type),
                              reinterpret_cast<const BYTE*>(data.c_str()), byteCount) == ERROR_SUCCESS;
    }

    bool CloseKey(RegistryKey key) override { return RegCloseKey(ToHandle(key)) == ERROR_SUCCESS; }

    std::string Encode(const std::string& utf8) override;
    std::string Decode(const std::string& bytes) override;
};

std::optional<RegistryValueInfo> WindowsRegistry::QueryInfo(RegistryKey key, const std::string& name)
{
    DWORD type = 0, size = 0;
    if (RegQueryValueExA(ToHandle(key), Encode(name).c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
        return std::nullopt;
    return RegistryValueInfo{static_cast<RegistryType>(type), size};
}

bool WindowsRegistry::QueryValue(RegistryKey key, const std::string& name, std::string& buffer)
{
    // A value that doesn't fit may have been written in part.
    std::string read = buffer;
    auto size = static_cast<DWORD>(read.size());
    if (RegQueryValueExA(ToHandle(key), Encode(name).c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(read.data()),
                         &size) != ERROR_SUCCESS)
        return false;
    buffer = std::move(read);
    return true;
}

std::string WindowsRegistry::Encode(const std::string& utf8)
{
    const std::wstring wide = Wide(utf8);
    const int length = static_cast<int>(wide.size());
    std::string bytes(
        static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

std::string WindowsRegistry::Decode(const std::string& bytes)
{
    const int length = static_cast<int>(bytes.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, wide.data(), static_cast<int>(wide.size()));
    return Utf8(wide);
}

} // namespace

std::unique_ptr<IRegistry> CreateRegistry()
{
    return std::make_unique<WindowsRegistry>();
}

} // namespace sm::windows
