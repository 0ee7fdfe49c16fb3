// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/RegistryKeys.h"
#include "windows/automation/WideText.h"
#include "windows/system/CodePages.h"
#include "windows/system/WindowsSystem.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace sm::windows {
namespace {

HKEY RootKey(RegistryRoot root)
{
    return root == RegistryRoot::CurrentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

/// What the installer writes for the machine; who installs for one user alone may write it only there.
bool IsInstallFact(RegistryRoot root, const std::string& path)
{
    constexpr std::string_view maker = kMakerKey;
    return root == RegistryRoot::LocalMachine && path.size() > maker.size() && path[maker.size()] == '\\' &&
           _strnicmp(path.c_str(), maker.data(), maker.size()) == 0;
}

RegistryKey FromHandle(HKEY handle)
{
    return reinterpret_cast<RegistryKey>(handle);
}

HKEY ToHandle(RegistryKey key)
{
    return reinterpret_cast<HKEY>(key);
}

LSTATUS OpenExisting(HKEY root, const std::string& path, HKEY* key)
{
    const std::string name = BytesOf(Wide(path), GetACP());
    return IsBeyondCodePage(name) ? RegOpenKeyW(root, Wide(path).c_str(), key) : RegOpenKeyA(root, name.c_str(), key);
}

LSTATUS OpenOrMake(HKEY root, const std::string& path, HKEY* key)
{
    const std::string name = BytesOf(Wide(path), GetACP());
    return IsBeyondCodePage(name) ? RegCreateKeyW(root, Wide(path).c_str(), key)
                                  : RegCreateKeyA(root, name.c_str(), key);
}

/// A text as it is stored, whatever the code page; nothing when the value isn't one.
std::optional<std::wstring> StoredText(HKEY key, const std::wstring& name)
{
    std::wstring text(MAX_PATH, L'\0');
    DWORD type = REG_NONE, size = 0;
    LSTATUS read = ERROR_MORE_DATA;
    while (read == ERROR_MORE_DATA) {
        text.resize(std::max<std::size_t>(text.size(), size / sizeof(wchar_t) + 1));
        size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        read = RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size);
    }
    if (read != ERROR_SUCCESS || type != REG_SZ)
        return std::nullopt;
    text.resize(size / sizeof(wchar_t));
    return text;
}

class WindowsRegistry final : public IRegistry {
public:
    std::optional<RegistryKey> OpenKey(RegistryRoot root, const std::string& path) override
    {
        HKEY key = nullptr;
        if (OpenExisting(RootKey(root), path, &key) == ERROR_SUCCESS ||
            (IsInstallFact(root, path) && OpenExisting(HKEY_CURRENT_USER, path, &key) == ERROR_SUCCESS))
            return FromHandle(key);
        return std::nullopt;
    }

    std::optional<RegistryKey> CreateKey(RegistryRoot root, const std::string& path) override
    {
        HKEY key = nullptr;
        if (OpenOrMake(RootKey(root), path, &key) != ERROR_SUCCESS)
            return std::nullopt;
        return FromHandle(key);
    }

    std::optional<RegistryValueInfo> QueryInfo(RegistryKey key, const std::string& name) override;
    bool QueryValue(RegistryKey key, const std::string& name, std::string& buffer) override;

    bool SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                  std::uint32_t byteCount) override;

    bool CloseKey(RegistryKey key) override { return RegCloseKey(ToHandle(key)) == ERROR_SUCCESS; }

    std::string Encode(const std::string& utf8) override { return BytesOf(Wide(utf8), GetACP()); }
    std::string Decode(const std::string& bytes) override { return Utf8(TextOfBytes(bytes, GetACP())); }

private:
    /// The bytes of a text that the code page can't hold: the functions of the code page give it with characters
    /// replaced, and don't say so. Nothing for every other value.
    static std::optional<std::string> WholeText(RegistryKey key, const std::string& name)
    {
        const auto text = StoredText(ToHandle(key), Wide(name));
        std::string bytes = text ? BytesOf(*text, GetACP()) : std::string();
        return IsBeyondCodePage(bytes) ? std::optional(std::move(bytes)) : std::nullopt;
    }
};

std::optional<RegistryValueInfo> WindowsRegistry::QueryInfo(RegistryKey key, const std::string& name)
{
    DWORD type = 0, size = 0;
    if (RegQueryValueExA(ToHandle(key), Encode(name).c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
        return std::nullopt;
    if (const auto whole = WholeText(key, name))
        size = static_cast<DWORD>(whole->size());
    return RegistryValueInfo{static_cast<RegistryType>(type), size};
}

bool WindowsRegistry::QueryValue(RegistryKey key, const std::string& name, std::string& buffer)
{
    if (const auto whole = WholeText(key, name)) {
        if (whole->size() > buffer.size())
            return false;
        buffer.replace(0, whole->size(), *whole);
        return true;
    }
    // A value that doesn't fit may have been written in part.
    std::string read = buffer;
    auto size = static_cast<DWORD>(read.size());
    if (RegQueryValueExA(ToHandle(key), Encode(name).c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(read.data()),
                         &size) != ERROR_SUCCESS)
        return false;
    buffer = std::move(read);
    return true;
}

bool WindowsRegistry::SetValue(RegistryKey key, const std::string& name, RegistryType type, const std::string& data,
                               std::uint32_t byteCount)
{
    if (byteCount > data.size())
        return false;
    const std::string_view given(data.data(), byteCount);
    if (type == RegistryType::String && IsBeyondCodePage(given)) {
        const std::wstring text = TextOfBytes(given, GetACP());
        return RegSetValueExW(ToHandle(key), Wide(name).c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                              static_cast<DWORD>(text.size() * sizeof(wchar_t))) == ERROR_SUCCESS;
    }
    return RegSetValueExA(ToHandle(key), Encode(name).c_str(), 0, static_cast<DWORD>(type),
                          reinterpret_cast<const BYTE*>(data.c_str()), byteCount) == ERROR_SUCCESS;
}

} // namespace

std::unique_ptr<IRegistry> CreateRegistry()
{
    return std::make_unique<WindowsRegistry>();
}

} // namespace sm::windows
