// SPDX-License-Identifier: GPL-3.0-or-later
// The font of a window of our own.
#pragma once

#include <memory>

#include <windows.h>

namespace sm::win32 {

class WindowFont {
public:
    /// The message font of the desktop for so many dots per inch, in all controls of `window`. The former one goes once
    /// nobody writes in it.
    void Use(HWND window, int dots);
    [[nodiscard]] HFONT Handle() const { return static_cast<HFONT>(m_font.get()); }

private:
    std::unique_ptr<void, BOOL(WINAPI*)(HGDIOBJ)> m_font{nullptr, DeleteObject};
};

} // namespace sm::win32
