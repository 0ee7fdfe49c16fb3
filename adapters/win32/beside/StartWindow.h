// SPDX-License-Identifier: GPL-3.0-or-later
// The window that a run without a drawing begins with.
#pragma once

#include "ports/IDesktop.h"
#include "window/OwnWindow.h"
#include "window/WindowFont.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::win32 {

class StartWindow final : public OwnWindow {
public:
    static constexpr const wchar_t* kClass = L"SheetmakerStart";
    enum Control : int { kLabel = 601, kRecent, kOther };

    /// Lists `recent`, absolute paths. Throws std::runtime_error when it can't be made.
    StartWindow(const std::vector<std::string>& recent, IDesktop& desktop);
    ~StartWindow() override { Unmake(); }

    /// Waits for the user, who chooses a row, drops a drawing, or asks for another one. Nothing when it was closed.
    std::optional<std::string> Ask();

private:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM extra) override;
    void OnDots() override;
    void LayOut() const;
    [[nodiscard]] HWND Get(int control) const { return GetDlgItem(Handle(), control); }
    void Add(const wchar_t* kind, const wchar_t* text, DWORD style, int control, DWORD more = 0) const;
    void OnCommand(int control, int code);
    void Take(const std::string& path);
    void TakeRow();
    void AskOther();

    const std::vector<std::string>& m_recent;
    IDesktop& m_desktop;
    WindowFont m_font;
    std::optional<std::string> m_chosen;
    bool m_isWaiting = false;
};

} // namespace sm::win32
