// SPDX-License-Identifier: GPL-3.0-or-later
// The font of the forms, and how large texts are in it.
#pragma once

#include <string>

#include <windows.h>

namespace sm::windows {

/// The message font of the desktop, at its scale of this process.
class FormFont {
public:
    /// `scale` makes it smaller on a screen that a form doesn't fit on.
    explicit FormFont(double scale = 1);
    ~FormFont();
    FormFont(const FormFont&) = delete;
    FormFont& operator=(const FormFont&) = delete;

    [[nodiscard]] HFONT Handle() const { return m_font; }
    [[nodiscard]] int Height() const { return m_height; }
    /// Pixels of the letters' average width.
    [[nodiscard]] double Average() const { return m_average; }
    /// On one line; "&" stands before the mnemonic.
    [[nodiscard]] SIZE Size(const std::wstring& caption) const;
    /// Height of the caption when it wraps at `width` pixels.
    [[nodiscard]] int HeightAt(const std::wstring& caption, int width) const;

private:
    [[nodiscard]] SIZE Measured(const std::wstring& caption, int width, UINT format) const;

    HDC m_canvas;
    HFONT m_font;
    int m_height = 0;
    double m_average = 0;
};

} // namespace sm::windows
