// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/HostError.h"
#include "windows/automation/AutomationObject.h"
#include "windows/automation/Values.h"
#include "windows/system/Attempted.h"
#include "windows/system/WindowsSystem.h"

#include <algorithm>
#include <objbase.h>

namespace sm::windows {
namespace {

class ScriptingFileSystem final : public IFileSystem {
public:
    bool FolderExists(const std::string& path) override { return Ask("FolderExists", path); }
    bool FileExists(const std::string& path) override { return Ask("FileExists", path); }
    std::vector<std::string> ListFiles(const std::string& folder) override
    {
        return Attempted(std::vector<std::string>(), [&] { return NamesIn(folder); });
    }

private:
    bool Ask(std::string_view member, const std::string& path)
    {
        return Attempted(false, [&] { return ToBoolean(Scripting().Call(member, FromText(path)).Raw()); });
    }
    std::vector<std::string> NamesIn(const std::string& folder);
    AutomationObject& Scripting();

    std::unique_ptr<AutomationObject> m_scripting; ///< null until first asked
};

AutomationObject& ScriptingFileSystem::Scripting()
{
    if (!m_scripting) {
        CLSID id{};
        ComRef<IDispatch> object;
        HRESULT result = CLSIDFromProgID(L"Scripting.FileSystemObject", &id);
        if (SUCCEEDED(result))
            result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                      reinterpret_cast<void**>(object.Receive()));
        if (FAILED(result))
            throw HostError("The file system's scripting object can't be made");
        m_scripting = std::make_unique<AutomationObject>(object.Get());
    }
    return *m_scripting;
}

ComRef<IEnumVARIANT> Enumerator(AutomationObject& collection)
{
    const OwnedVariant listed = collection.Call("_NewEnum");
    ComRef<IEnumVARIANT> enumerator;
    const VARTYPE type = V_VT(&listed.Raw());
    if ((type == VT_UNKNOWN || type == VT_DISPATCH) && V_UNKNOWN(&listed.Raw()) != nullptr)
        V_UNKNOWN(&listed.Raw())->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(enumerator.Receive()));
    if (!enumerator)
        throw HostError("The folder's files can't be listed");
    return enumerator;
}

std::vector<std::string> ScriptingFileSystem::NamesIn(const std::string& folder)
{
    AutomationObject found(ToObject(Scripting().Call("GetFolder", FromText(folder)).Raw()).Get());
    AutomationObject files(ToObject(found.Call("Files").Raw()).Get());
    const ComRef<IEnumVARIANT> enumerator = Enumerator(files);
    std::vector<std::string> names;
    OwnedVariant file;
    while (enumerator->Next(1, file.Receive(), nullptr) == S_OK)
        names.push_back(ToText(AutomationObject(ToObject(file.Raw()).Get()).Call("Name").Raw()));
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

std::unique_ptr<IFileSystem> CreateFileSystem()
{
    return std::make_unique<ScriptingFileSystem>();
}

} // namespace sm::windows
