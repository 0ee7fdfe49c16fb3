// SPDX-License-Identifier: GPL-3.0-or-later
// How far a conversion has come, and a button to end it.
#pragma once

#include "beside/RunProgress.h"
#include "window/OwnWindow.h"
#include "window/WindowFont.h"

namespace sm::win32 {

class ProgressWindow final : public OwnWindow {
public:
    static constexpr const wchar_t* kClass = L"SheetmakerProgress";
    enum Control : int { kSheet = 401, kBar, kLeft };

    /// Throws std::runtime_error when it can't be made.
    ProgressWindow();
    ~ProgressWindow() override { Unmake(); }

    void Tell(const beside::RunProgress& progress);
    /// Lets the window see what the user did; true when that was to cancel.
    bool IsCancelled();

private:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM extra) override;
    [[nodiscard]] HWND Get(int control) const { return GetDlgItem(Handle(), control); }
    void OnDots() override;
    void Add(const wchar_t* kind, const wchar_t* text, DWORD style, int control) const;
    void Appear() const;
    void Cancel();
    void Pump() const;

    WindowFont m_font;
    bool m_isCancelled = false;
    ULONGLONG m_since = 0; ///< milliseconds, when the first sheet was begun
};

/// "about 2 minutes left", once the first of several sheets is made; else empty.
std::wstring TimeLeft(int index, int count, ULONGLONG elapsedMilliseconds);

} // namespace sm::win32
