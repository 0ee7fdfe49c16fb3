// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/system/CodePages.h"

#include "windows/automation/WideText.h"

#include <windows.h>

namespace sm::windows {
namespace {

/// How ISO 2022 announces UTF-8. No text begins with an escape character.
constexpr std::string_view kMark = "\x1b%G";
constexpr unsigned kWesternCodePage = 1252;

std::string Narrowed(std::wstring_view text, unsigned codePage)
{
    const int length = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

std::wstring Widened(std::string_view bytes, unsigned codePage)
{
    const int length = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), length, text.data(), needed);
    return text;
}

} // namespace

std::string BytesOf(std::wstring_view text, unsigned codePage)
{
    // There and back: the system's own word on what was replaced isn't given for UTF-8.
    std::string bytes = Narrowed(text, codePage);
    if (Widened(bytes, codePage) == text && !IsBeyondCodePage(bytes))
        return bytes;
    return std::string(kMark) + Utf8(text);
}

std::wstring TextOfBytes(std::string_view bytes, unsigned codePage)
{
    return IsBeyondCodePage(bytes) ? Wide(bytes.substr(kMark.size())) : Widened(bytes, codePage);
}

bool IsBeyondCodePage(std::string_view bytes)
{
    return bytes.starts_with(kMark);
}

unsigned LetterCodePage(unsigned active)
{
    if (active != CP_UTF8)
        return active;
    DWORD ofLanguage = 0;
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                   reinterpret_cast<wchar_t*>(&ofLanguage), sizeof ofLanguage / sizeof(wchar_t));
    return ofLanguage == CP_ACP || ofLanguage == CP_UTF8 ? kWesternCodePage : ofLanguage;
}

} // namespace sm::windows
