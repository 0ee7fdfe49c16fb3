// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures that forms ask for by name, drawn afresh at any size.
#pragma once

#include <string>

#include <windows.h>

namespace sm::windows {

struct PictureStyle {
    HFONT font;
    COLORREF ground;
};

/// "logo": the maker's name beside a sheet. "warning": the system's own sign. Others: the ground alone. Kept in
/// proportion, in the middle of `place`.
void DrawPicture(HDC canvas, const std::string& picture, const RECT& place, const PictureStyle& style);

/// What a screen reader says.
const wchar_t* PictureName(const std::string& picture);

} // namespace sm::windows
