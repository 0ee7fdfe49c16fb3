// SPDX-License-Identifier: GPL-3.0-or-later
// The controls round the view in the drawing's window, by their numbers.
#pragma once

#include "window/WindowFont.h"
#include "window/WindowText.h"

#include <optional>
#include <string>
#include <vector>

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
    kKeysText,
    kMarks,
    kEditMark,
    kMarkHint
};

/// Made in a window and laid out in it: buttons above the view, tabs below, and a line for points or for marks.
class PickControls {
public:
    explicit PickControls(HWND window);

    [[nodiscard]] HWND Get(PickControl control) const { return GetDlgItem(m_window, control); }
    void SetText(PickControl control, const std::string& text) const { ShowText(Get(control), text); }
    [[nodiscard]] std::string Text(PickControl control) const { return TextOf(Get(control)); }
    [[nodiscard]] bool IsTicked(PickControl control) const;
    void Tick(PickControl control, bool isTicked) const;
    void Enable(PickControl control, bool isEnabled) const { EnableWindow(Get(control), isEnabled ? TRUE : FALSE); }

    void SetTabs(const std::vector<std::string>& names, std::size_t current) const;
    [[nodiscard]] int Tab() const;
    [[nodiscard]] int TabCount() const;
    void TurnTo(int tab) const;

    /// The line below is that of marks; else that of points.
    void ShowMarkLine(bool isWanted);
    void ListMarks(const std::vector<std::string>& titles) const;
    void ChooseMark(std::optional<std::size_t> mark) const;
    [[nodiscard]] std::optional<std::size_t> ChosenMark() const;

    /// The font of so many dots per inch, and sizes to suit.
    void UseDots(int dots);
    [[nodiscard]] HFONT Font() const { return m_font.Handle(); }
    /// In the window's size; the rest of the room is what comes back.
    [[nodiscard]] RECT LayOut();

private:
    HWND Add(const wchar_t* kind, const wchar_t* text, DWORD style, PickControl control, DWORD more = 0) const;
    int Place(PickControl control, int left, int top, int width, int height) const;
    [[nodiscard]] int WidthOf(PickControl control) const;
    [[nodiscard]] SIZE SizeOf(const std::wstring& text) const;

    void PlaceLine(int top, int line, int width) const;
    void PlaceMarkLine(int top, int line, int width) const;
    [[nodiscard]] int Between() const { return MulDiv(4, m_dots, 96); }

    HWND m_window;
    WindowFont m_font;
    int m_dots = 96;
};

} // namespace sm::win32
