// SPDX-License-Identifier: GPL-3.0-or-later
// The controls round the view in the drawing's window, by their numbers.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <windows.h>

namespace sm::win32 {

enum PickControl : int {
    kZoomIn = 101,
    kZoomOut,
    kZoomAll,
    kZoomFrame,
    kSnaps,
    kDark,
    kKeys,
    kTabs = 120,
    kPrompt,
    kEntry,
    kPlace,
    kHint,
    kKeysText
};

/// Made in a window and laid out in it: buttons above the view, tabs and a line for points below.
class PickControls {
public:
    explicit PickControls(HWND window);

    [[nodiscard]] HWND Get(PickControl control) const { return GetDlgItem(m_window, control); }
    void SetText(PickControl control, const std::string& text) const;
    [[nodiscard]] std::string Text(PickControl control) const;
    [[nodiscard]] bool IsTicked(PickControl control) const;
    void Tick(PickControl control, bool isTicked) const;
    void Enable(PickControl control, bool isEnabled) const { EnableWindow(Get(control), isEnabled ? TRUE : FALSE); }

    void SetTabs(const std::vector<std::string>& names, std::size_t current) const;
    [[nodiscard]] int Tab() const;
    [[nodiscard]] int TabCount() const;
    void TurnTo(int tab) const;

    /// The font of the window's dots.
    void UseFont();
    [[nodiscard]] HFONT Font() const { return m_font; }
    /// In the window's size; the rest of the room is what comes back.
    [[nodiscard]] RECT LayOut();

private:
    HWND Add(const wchar_t* kind, const wchar_t* text, DWORD style, PickControl control, DWORD more = 0) const;
    int Place(PickControl control, int left, int top, int width, int height) const;
    [[nodiscard]] int WidthOf(PickControl control) const;
    [[nodiscard]] SIZE SizeOf(const std::wstring& text) const;

    HWND m_window;
    HFONT m_font = nullptr;
    std::unique_ptr<void, BOOL (*)(HGDIOBJ)> m_own{nullptr, DeleteObject};
};

} // namespace sm::win32
