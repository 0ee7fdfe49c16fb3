// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that a mark is edited in.
#pragma once

#include "beside/MarkBoard.h"
#include "window/OwnWindow.h"
#include "window/WindowFont.h"

#include <string>

namespace sm::win32 {

class MarkDialog final : public OwnWindow {
public:
    static constexpr const wchar_t* kClass = L"SheetmakerMark";
    /// Captions and lines are numbered as the mark's fields are.
    enum Control : int { kReason = 501, kFirstCaption = 510, kFirstLine = 550 };

    /// Belongs to `owner`; all outlive the dialog. Throws std::runtime_error when it can't be made.
    MarkDialog(beside::IMarkBoard& board, const std::string& layout, std::size_t mark, HWND owner);
    ~MarkDialog() override { Unmake(); }

    /// Waits for the user, who stays until the board takes what was entered. True when it did.
    bool Ask();

private:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM extra) override;
    void OnDots() override;
    [[nodiscard]] HWND Get(int control) const { return GetDlgItem(Handle(), control); }
    HWND Add(const wchar_t* kind, const std::string& text, DWORD style, int control, DWORD more = 0) const;
    void MakeControls();
    /// What it takes for all of them.
    [[nodiscard]] SIZE LayOut() const;
    void PutOverOwner() const;
    void Confirm();

    beside::IMarkBoard& m_board;
    std::string m_layout;
    std::size_t m_mark;
    HWND m_owner;
    int m_fields = 0;
    WindowFont m_font;
    bool m_isWaiting = false, m_isTaken = false;
};

} // namespace sm::win32
