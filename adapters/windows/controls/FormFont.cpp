// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/controls/FormFont.h"

#include <cmath>

namespace sm::windows {
namespace {

constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr int kLetterCount = 52;

HFONT MakeFont(double scale)
{
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
        return nullptr;
    LOGFONTW& wanted = metrics.lfMessageFont;
    wanted.lfHeight = static_cast<LONG>(std::lround(wanted.lfHeight * scale));
    return CreateFontIndirectW(&wanted);
}

} // namespace

FormFont::FormFont(double scale) : m_canvas(CreateCompatibleDC(nullptr)), m_font(MakeFont(scale))
{
    SelectObject(m_canvas, m_font);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(m_canvas, &metrics);
    m_height = metrics.tmHeight;
    SIZE letters = {};
    GetTextExtentPoint32W(m_canvas, kLetters, kLetterCount, &letters);
    m_average = static_cast<double>(letters.cx) / kLetterCount;
}

FormFont::~FormFont()
{
    DeleteDC(m_canvas);
    DeleteObject(m_font);
}

SIZE FormFont::Measured(const std::wstring& caption, int width, UINT format) const
{
    RECT room = {0, 0, width, 0};
    DrawTextW(m_canvas, caption.c_str(), static_cast<int>(caption.size()), &room, format | DT_CALCRECT);
    return {room.right, room.bottom};
}

SIZE FormFont::Size(const std::wstring& caption) const
{
    return Measured(caption, 0, DT_SINGLELINE);
}

int FormFont::HeightAt(const std::wstring& caption, int width) const
{
    return Measured(caption, width, DT_WORDBREAK).cy;
}

} // namespace sm::windows
