// SPDX-License-Identifier: GPL-3.0-or-later
// Texts as bytes of a code page, and what to do with those that it can't hold.
#pragma once

#include <string>
#include <string_view>

namespace sm::windows {

/// The bytes that stand for a text in the code page. Of a text that it can't hold (characters would become question
/// marks, or others that look like them), the text itself behind a mark of its own; `IsBeyondCodePage` tells.
std::string BytesOf(std::wstring_view text, unsigned codePage);
/// The text of bytes that `BytesOf` made, and of any others of the code page.
std::wstring TextOfBytes(std::string_view bytes, unsigned codePage);
bool IsBeyondCodePage(std::string_view bytes);

/// The code page whose codes letters have: the active one, or that of the user's language where UTF-8 is the active
/// one, in which a letter has no single code.
unsigned LetterCodePage(unsigned active);

} // namespace sm::windows
