// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/system/CommonDialogs.h"

#include "windows/automation/WideText.h"

#include <windows.h>

#include <algorithm>
#include <commdlg.h>
#include <vector>

namespace sm::windows {
namespace {

constexpr std::size_t kLongestPath = 32768; ///< characters

/// "pdf;ps" as "*.pdf;*.ps".
std::string PatternOf(const std::string& extensions)
{
    if (extensions.empty() || extensions == "*")
        return "*.*";
    std::string pattern = "*.";
    for (const char character : extensions) {
        pattern += character;
        if (character == ';')
            pattern += "*.";
    }
    return pattern;
}

std::wstring BoxText(const std::string& name)
{
    std::wstring box = Wide(name).substr(0, kLongestPath - 1);
    box.resize(kLongestPath, L'\0');
    return box;
}

} // namespace

// The embedded program has "/" in its paths, which the system's dialogs refuse.
DialogStart StartOf(const std::string& anyName)
{
    std::string defaultName = anyName;
    std::replace(defaultName.begin(), defaultName.end(), '/', '\\');
    const std::size_t slash = defaultName.rfind('\\');
    if (slash == std::string::npos)
        return {{}, defaultName};
    const std::string name = defaultName.substr(slash + 1);
    // The root of a drive keeps its separator.
    const std::size_t folderEnd = slash == 2 && defaultName[1] == ':' ? slash + 1 : slash;
    return {defaultName.substr(0, std::max<std::size_t>(folderEnd, slash == 0 ? 1 : 0)), name == "*.*" ? "" : name};
}

std::wstring FilterOf(const FileDialog& dialog)
{
    const std::wstring pattern = Wide(PatternOf(dialog.filterExtension));
    const std::string name = dialog.filterName.substr(0, dialog.filterName.find(" ("));
    std::wstring filter = Wide(name) + L" (" + pattern + L")";
    filter += L'\0' + pattern + L'\0' + L'\0';
    return filter;
}

std::optional<std::string> AskFile(const FileDialog& dialog, bool toSave, HWND owner)
{
    const DialogStart start = StartOf(dialog.defaultName);
    const std::wstring title = Wide(dialog.title), folder = Wide(start.folder), filter = FilterOf(dialog);
    const std::wstring extension = Wide(dialog.filterExtension.substr(0, dialog.filterExtension.find(';')));
    std::wstring file = BoxText(start.name);
    OPENFILENAMEW box{};
    box.lStructSize = sizeof box;
    box.hwndOwner = owner;
    box.lpstrFilter = filter.c_str();
    box.lpstrFile = file.data();
    box.nMaxFile = static_cast<DWORD>(file.size());
    box.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    box.lpstrTitle = title.empty() ? nullptr : title.c_str();
    box.lpstrDefExt = extension.empty() || extension == L"*" ? nullptr : extension.c_str();
    box.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST |
                (!toSave                  ? OFN_FILEMUSTEXIST
                 : dialog.warnOnOverwrite ? OFN_OVERWRITEPROMPT
                                          : 0);
    if ((toSave ? GetSaveFileNameW(&box) : GetOpenFileNameW(&box)) == FALSE)
        return std::nullopt;
    return Utf8(file.c_str());
}

std::optional<std::int32_t> AskColorOf(std::int32_t initial, HWND owner)
{
    static COLORREF ownColors[16] = {};
    CHOOSECOLORW box{};
    box.lStructSize = sizeof box;
    box.hwndOwner = owner;
    box.rgbResult = static_cast<COLORREF>(initial);
    box.lpCustColors = ownColors;
    box.Flags = CC_RGBINIT | CC_FULLOPEN;
    if (ChooseColorW(&box) == FALSE)
        return std::nullopt;
    return static_cast<std::int32_t>(box.rgbResult);
}

} // namespace sm::windows
