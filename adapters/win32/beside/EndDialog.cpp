// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/EndDialog.h"

#include "windows/automation/WideText.h"
#include "windows/controls/VisualStyles.h"

#include <string>
#include <vector>

#include <commctrl.h>

namespace sm::win32 {
namespace {

using beside::EndKind;
using beside::NextStep;

enum Answer : int { kShowPdf = 301, kShowFolder, kViewLog, kSaveAgain, kSettingsAgain };

struct Asked {
    const beside::RunEnd& end;
    IDesktop& desktop;
};

/// What opens something leaves the dialog up.
HRESULT CALLBACK OnAnswer(HWND window, UINT notice, WPARAM wide, LPARAM /*extra*/, LONG_PTR reference)
{
    const auto& asked = *reinterpret_cast<const Asked*>(reference);
    if (notice != TDN_BUTTON_CLICKED)
        return S_OK;
    const std::string* const path = wide == kShowPdf      ? &asked.end.pdfPath
                                    : wide == kShowFolder ? &asked.end.folder
                                    : wide == kViewLog    ? &asked.end.logPath
                                                          : nullptr;
    if (path == nullptr)
        return S_OK;
    if (!asked.desktop.OpenDocument(*path)) {
        const std::wstring text = L"There is no program for " + windows::Wide(*path);
        SendMessageW(window, TDM_SET_ELEMENT_TEXT, TDE_FOOTER, reinterpret_cast<LPARAM>(text.c_str()));
    }
    return S_FALSE;
}

const wchar_t* IconOf(EndKind kind)
{
    return kind == EndKind::Failed         ? TD_ERROR_ICON
           : kind == EndKind::MadeWithLoss ? TD_WARNING_ICON
                                           : TD_INFORMATION_ICON;
}

} // namespace

NextStep AskAtEnd(const beside::RunEnd& end, IDesktop& desktop)
{
    const windows::VisualStyles styles;
    std::vector<TASKDIALOG_BUTTON> buttons;
    if (!end.pdfPath.empty())
        buttons.push_back({kShowPdf, L"Show &PDF"});
    if (!end.folder.empty())
        buttons.push_back({kShowFolder, L"Show &Folder"});
    if (!end.logPath.empty())
        buttons.push_back({kViewLog, L"View &Log"});
    if (end.offersSave)
        buttons.push_back({kSaveAgain, L"&Save PDF..."});
    buttons.push_back({kSettingsAgain, L"S&ettings..."});
    const std::wstring headline = windows::Wide(end.headline);
    std::wstring lines;
    for (const std::string& line : end.lines)
        lines += (lines.empty() ? L"" : L"\n") + windows::Wide(line);
    const Asked asked{end, desktop};
    TASKDIALOGCONFIG config = {};
    config.cbSize = sizeof config;
    config.hwndParent = GetActiveWindow();
    config.dwFlags = TDF_ALLOW_DIALOG_CANCELLATION | TDF_SIZE_TO_CONTENT;
    config.dwCommonButtons = TDCBF_CLOSE_BUTTON;
    config.pszWindowTitle = L"Create PDF";
    config.pszMainIcon = IconOf(end.kind);
    config.pszMainInstruction = headline.c_str();
    config.pszContent = lines.empty() ? nullptr : lines.c_str();
    config.pszFooter = L" ";
    config.pButtons = buttons.data();
    config.cButtons = static_cast<UINT>(buttons.size());
    config.nDefaultButton = IDCLOSE;
    config.pfCallback = &OnAnswer;
    config.lpCallbackData = reinterpret_cast<LONG_PTR>(&asked);
    int answer = IDCLOSE;
    TaskDialogIndirect(&config, &answer, nullptr, nullptr);
    return answer == kSaveAgain       ? NextStep::SaveAgain
           : answer == kSettingsAgain ? NextStep::SettingsAgain
                                      : NextStep::Close;
}

} // namespace sm::win32
