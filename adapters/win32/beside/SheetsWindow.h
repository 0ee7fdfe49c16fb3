// SPDX-License-Identifier: GPL-3.0-or-later
// The window with the list of sheets beside a form, and the page that would come out.
#pragma once

#include "beside/PageKeeper.h"
#include "beside/SheetList.h"
#include "beside/WindowMemory.h"
#include "ports/IFormToolkit.h"
#include "view/DrawingView.h"
#include "window/WindowFont.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sm::win32 {

class SheetsWindow final : public OwnWindow {
public:
    static constexpr const wchar_t* kClass = L"SheetmakerSheets";
    enum Control : int { kHeadline = 201, kList, kTick, kWords, kReason, kCurrent, kAll, kTrouble, kOpen, kEditMarks };

    /// Belongs to the form's window `owner` and stays in front of it. All outlive the window; null for a page: there is
    /// no preview. Throws std::runtime_error when it can't be made.
    SheetsWindow(beside::ISheetList& sheets, const IForm& form, HWND owner, PageKeeper* page);
    ~SheetsWindow() override;

    /// At the right of its owner, which gives way to the left as far as it may. On a screen without room for both it
    /// stays away.
    void Appear();
    /// Something in the form has changed; what follows from it is shown soon.
    void FormChanged();
    [[nodiscard]] bool Take(const MSG& message) const;
    /// The user wants another drawing: that one, or nothing when one is to be asked for.
    std::function<void(const std::optional<std::string>& path)> onOpen;
    /// The user wants to change marks where they stand.
    std::function<void()> onMarks;
    /// Files were dropped on the window.
    std::function<void(const std::vector<std::string>& paths)> onDrop;
    /// No page is being drawn, and the view shows the last one whole.
    [[nodiscard]] bool IsSettled() const;

private:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM extra) override;
    void OnDots() override;
    HWND Add(const wchar_t* kind, const wchar_t* text, DWORD style, Control control, DWORD more = 0) const;
    [[nodiscard]] HWND Get(Control control) const { return GetDlgItem(Handle(), control); }
    void MakeControls();
    void MakeList() const;
    void MakePage();
    void MakeWays();
    void OnWay(int control);
    void OnNotice(const NMHDR& notice);
    void OnDropped(WPARAM drop);
    void ShowRecent();
    void OnCommand(int control, int code);
    void OnList(const NMHDR& notice);
    bool FindPlace();
    void LayOut();
    void Renew();
    void ShowRows();
    void ShowPage();
    void TakeTick(int row);
    void TakeWords();
    void MakeCurrent();
    void Tell(const std::string& reason);
    [[nodiscard]] bool IsFormFree() const;

    beside::ISheetList& m_sheets;
    const IForm& m_form;
    HWND m_owner;
    WindowFont m_font;
    beside::SheetsNow m_now;
    bool m_isFilling = false, m_isDue = false;
    std::vector<std::string> m_recent; ///< in the menu that is open, or was last
    PageKeeper* m_keeper;
    std::unique_ptr<DrawingView> m_page; ///< null: there is no preview
    double m_size = 0;                   ///< of the page shown last, square millimetres
};

} // namespace sm::win32
