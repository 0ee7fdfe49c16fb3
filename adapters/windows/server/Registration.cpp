// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/server/Registration.h"

#include "windows/automation/WideText.h"
#include "windows/objects/Identities.h"
#include "windows/server/ClassFactory.h"
#include "windows/system/Attempted.h"
#include "windows/system/OwnModule.h"

#include <windows.h>

#include <olectl.h>
#include <string>
#include <vector>

#define SM_TEXT_OF(identity) #identity
#define SM_BRACED(identity) L"{" SM_TEXT_OF(identity) "}"

namespace sm::windows {
namespace {

const std::wstring kClasses = L"Software\\Classes";
const std::wstring kLibrary = SM_BRACED(SM_LIBRARY_ID);
const std::wstring kLibraryKey = L"TypeLib\\" + kLibrary;
/// The system's own marshalling by type library.
const wchar_t* const kMarshaller = L"{00020424-0000-0000-C000-000000000046}";
/// The other kind of processes has keys of its own for classes and interfaces, and shares names and type libraries.
#ifdef _WIN64
const wchar_t *const kPlatform = L"win64", *const kOtherPlatform = L"win32";
constexpr REGSAM kOtherView = KEY_WOW64_32KEY;
#else
const wchar_t *const kPlatform = L"win32", *const kOtherPlatform = L"win64";
constexpr REGSAM kOtherView = KEY_WOW64_64KEY;
#endif

/// One text value under the classes' key; without a name, the key's own.
struct Entry {
    std::wstring key, name, text;
};

/// Of a key under the classes' key; of that key itself, when there is no name.
std::wstring PathOf(const std::wstring& key)
{
    return key.empty() ? kClasses : kClasses + L'\\' + key;
}

std::wstring Braced(const GUID& identity)
{
    wchar_t text[40] = {};
    StringFromGUID2(identity, text, 40);
    return text;
}

void AddClass(const OfferedClass& offered, const std::wstring& path, std::vector<Entry>& entries)
{
    const std::wstring id = Braced(offered.classId), progId = Wide(offered.progId), key = L"CLSID\\" + id;
    const std::wstring interfaceKey = L"Interface\\" + Braced(offered.interfaceId);
    const std::wstring description = Wide(offered.description);
    const std::wstring interfaceName = L"I" + progId.substr(progId.find(L'.') + 2);
    entries.insert(entries.end(), {{key, L"", description},
                                   {key + L"\\InprocServer32", L"", path},
                                   {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
                                   {key + L"\\ProgID", L"", progId},
                                   {key + L"\\Programmable", L"", L""},
                                   {key + L"\\TypeLib", L"", kLibrary},
                                   {key + L"\\Version", L"", L"1.0"},
                                   {progId, L"", description},
                                   {progId + L"\\CLSID", L"", id},
                                   {interfaceKey, L"", interfaceName},
                                   {interfaceKey + L"\\ProxyStubClsid32", L"", kMarshaller},
                                   {interfaceKey + L"\\TypeLib", L"", kLibrary},
                                   {interfaceKey + L"\\TypeLib", L"Version", L"1.0"}});
}

std::vector<Entry> AllEntries()
{
    const std::wstring path = OwnModulePath();
    std::vector<Entry> entries;
    for (const OfferedClass& offered : OfferedClasses())
        AddClass(offered, path, entries);
    const std::wstring version = kLibraryKey + L"\\1.0";
    entries.insert(entries.end(), {{version, L"", L"Tarnwick Sheetmaker PDF for AutoCAD"},
                                   {version + L"\\0\\" + kPlatform, L"", path},
                                   {version + L"\\FLAGS", L"", L"0"},
                                   {version + L"\\HELPDIR", L"", path.substr(0, path.find_last_of(L'\\'))}});
    return entries;
}

HKEY RootOf(RegisteredFor whom)
{
    return whom == RegisteredFor::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

bool Write(HKEY root, const Entry& entry)
{
    HKEY key = nullptr;
    if (RegCreateKeyExW(root, PathOf(entry.key).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr) !=
        ERROR_SUCCESS)
        return false;
    const auto* const bytes = reinterpret_cast<const BYTE*>(entry.text.c_str());
    const auto count = static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t));
    const LSTATUS written = RegSetValueExW(key, entry.name.c_str(), 0, REG_SZ, bytes, count);
    RegCloseKey(key);
    return written == ERROR_SUCCESS;
}

bool HasKey(HKEY root, const std::wstring& path, REGSAM view = 0)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, PathOf(path).c_str(), 0, KEY_QUERY_VALUE | view, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

bool RemoveTree(HKEY root, const std::wstring& path)
{
    const LSTATUS removed = RegDeleteTreeW(root, PathOf(path).c_str());
    return removed == ERROR_SUCCESS || removed == ERROR_FILE_NOT_FOUND;
}

/// The folders of keys that may not have been there before anything was registered.
void RemoveIfEmpty(HKEY root, const std::wstring& path)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, PathOf(path).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return;
    DWORD keys = 1, values = 1;
    const LSTATUS known = RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                                           nullptr, nullptr, nullptr);
    RegCloseKey(key);
    if (known == ERROR_SUCCESS && keys == 0 && values == 0)
        RegDeleteKeyW(root, PathOf(path).c_str());
}

/// The type library's key is shared with the component for the other kind of processes.
bool RemoveLibrary(HKEY root)
{
    const std::wstring platforms = kLibraryKey + L"\\1.0\\0\\";
    return HasKey(root, platforms + kOtherPlatform) ? RemoveTree(root, platforms + kPlatform)
                                                    : RemoveTree(root, kLibraryKey);
}

/// Its name stays as long as the component for the other kind of processes answers to it. The class goes first: a
/// system that has one kind of processes alone shows it as the other's, too.
bool RemoveClass(HKEY root, const OfferedClass& offered)
{
    const std::wstring key = L"CLSID\\" + Braced(offered.classId);
    bool removed = RemoveTree(root, key);
    removed = RemoveTree(root, L"Interface\\" + Braced(offered.interfaceId)) && removed;
    return HasKey(root, key + L"\\InprocServer32", kOtherView) ? removed
                                                               : RemoveTree(root, Wide(offered.progId)) && removed;
}

bool RemoveAll(HKEY root)
{
    bool removed = RemoveLibrary(root);
    for (const OfferedClass& offered : OfferedClasses())
        removed = RemoveClass(root, offered) && removed;
    for (const wchar_t* folder : {L"CLSID", L"Interface", L"TypeLib", L""})
        RemoveIfEmpty(root, folder);
    return removed;
}

bool WriteAll(HKEY root)
{
    for (const Entry& entry : AllEntries())
        if (!Write(root, entry))
            return false;
    return true;
}

} // namespace

HRESULT Register(RegisteredFor whom) noexcept
{
    if (Attempted(false, [&] { return WriteAll(RootOf(whom)); }))
        return S_OK;
    Unregister(whom);
    return SELFREG_E_CLASS;
}

HRESULT Unregister(RegisteredFor whom) noexcept
{
    return Attempted(false, [&] { return RemoveAll(RootOf(whom)); }) ? S_OK : SELFREG_E_CLASS;
}

} // namespace sm::windows
