// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/controls/FormPictures.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace sm::windows {
namespace {

constexpr double kSheetWidth = 0.8; ///< of its height
constexpr int kFiner = 4;           ///< the sheet is drawn this much larger and then taken down, which smooths it

constexpr COLORREF kBlue = RGB(0x1F, 0x5A, 0x96), kRim = RGB(0x18, 0x45, 0x73), kRed = RGB(0xC0, 0x39, 0x2B);
constexpr COLORREF kPaper = RGB(0xFD, 0xFD, 0xFA), kFold = RGB(0xD5, 0xDD, 0xE6);

/// Shapes in a square of side 1.
class SheetPen {
public:
    SheetPen(HDC canvas, int side) : m_canvas(canvas), m_side(side) { SelectObject(canvas, GetStockObject(DC_BRUSH)); }
    void Use(COLORREF line, COLORREF fill, double width)
    {
        const HGDIOBJ former = SelectObject(m_canvas, CreatePen(PS_SOLID, std::max(1, At(width)), line));
        if (m_hasPen)
            DeleteObject(former);
        m_hasPen = true;
        SetDCBrushColor(m_canvas, fill);
    }
    ~SheetPen()
    {
        if (m_hasPen)
            DeleteObject(SelectObject(m_canvas, GetStockObject(BLACK_PEN)));
    }
    SheetPen(const SheetPen&) = delete;
    SheetPen& operator=(const SheetPen&) = delete;

    struct Spot {
        double x, y;
    };
    template <std::size_t Count> void Shape(const Spot (&spots)[Count])
    {
        POINT points[Count];
        std::transform(std::begin(spots), std::end(spots), points, [this](Spot at) {
            return POINT{At(at.x), At(at.y)};
        });
        Polygon(m_canvas, points, static_cast<int>(Count));
    }
    void Line(Spot from, Spot to)
    {
        MoveToEx(m_canvas, At(from.x), At(from.y), nullptr);
        LineTo(m_canvas, At(to.x), At(to.y));
    }
    void Door(Spot middle, double radius)
    {
        Arc(m_canvas, At(middle.x - radius), At(middle.y - radius), At(middle.x + radius), At(middle.y + radius),
            At(middle.x), At(middle.y - radius), At(middle.x - radius), At(middle.y));
    }

private:
    [[nodiscard]] int At(double share) const { return static_cast<int>(std::lround(share * m_side)); }

    HDC m_canvas;
    int m_side;
    bool m_hasPen = false;
};

/// The rooms of a small plan, with a dimension over them.
void DrawPlan(SheetPen& pen)
{
    pen.Use(kBlue, kPaper, 0.03);
    pen.Shape({{0.16, 0.30}, {0.64, 0.30}, {0.64, 0.60}, {0.16, 0.60}});
    pen.Line({0.40, 0.30}, {0.40, 0.44});
    pen.Line({0.40, 0.52}, {0.40, 0.60});
    pen.Door({0.40, 0.52}, 0.08);
    pen.Line({0.16, 0.21}, {0.46, 0.21});
    pen.Line({0.16, 0.18}, {0.16, 0.24});
    pen.Line({0.46, 0.18}, {0.46, 0.24});
}

/// A sheet with a turned corner, a plan on it, and a red band for a title block.
void DrawSheet(HDC canvas, int side)
{
    SheetPen pen(canvas, side);
    pen.Use(kRim, kPaper, 0.025);
    pen.Shape({{0.04, 0.04}, {0.60, 0.04}, {0.76, 0.20}, {0.76, 0.96}, {0.04, 0.96}});
    pen.Use(kRim, kFold, 0.025);
    pen.Shape({{0.60, 0.04}, {0.60, 0.20}, {0.76, 0.20}});
    DrawPlan(pen);
    pen.Use(kRed, kRed, 0.01);
    pen.Shape({{0.07, 0.70}, {0.73, 0.70}, {0.73, 0.88}, {0.07, 0.88}});
}

void DrawSmoothSheet(HDC canvas, const RECT& place, COLORREF ground)
{
    const int width = place.right - place.left, height = place.bottom - place.top;
    const HDC fine = CreateCompatibleDC(canvas);
    const HBITMAP bitmap = CreateCompatibleBitmap(canvas, width * kFiner, height * kFiner);
    const HGDIOBJ former = SelectObject(fine, bitmap);
    const RECT all = {0, 0, width * kFiner, height * kFiner};
    SetDCBrushColor(fine, ground);
    FillRect(fine, &all, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    DrawSheet(fine, height * kFiner);
    SetStretchBltMode(canvas, HALFTONE);
    SetBrushOrgEx(canvas, 0, 0, nullptr);
    StretchBlt(canvas, place.left, place.top, width, height, fine, 0, 0, all.right, all.bottom, SRCCOPY);
    SelectObject(fine, former);
    DeleteObject(bitmap);
    DeleteDC(fine);
}

/// One line of text in a variant of a font, as high as it may be.
class PictureText {
public:
    PictureText(HDC canvas, HFONT family, const wchar_t* text, double height, LONG weight)
        : m_canvas(canvas), m_text(text)
    {
        LOGFONTW wanted = {};
        GetObjectW(family, sizeof wanted, &wanted);
        wanted.lfHeight = -std::max(4L, std::lround(height));
        wanted.lfWidth = 0;
        wanted.lfWeight = weight;
        m_font = CreateFontIndirectW(&wanted);
        const HGDIOBJ former = SelectObject(canvas, m_font);
        GetTextExtentPoint32W(canvas, text, lstrlenW(text), &m_size);
        SelectObject(canvas, former);
    }
    ~PictureText() { DeleteObject(m_font); }
    PictureText(const PictureText&) = delete;
    PictureText& operator=(const PictureText&) = delete;

    [[nodiscard]] LONG Width() const { return m_size.cx; }
    void Draw(LONG left, LONG middle) const
    {
        const HGDIOBJ former = SelectObject(m_canvas, m_font);
        TextOutW(m_canvas, left, middle - m_size.cy / 2, m_text, lstrlenW(m_text));
        SelectObject(m_canvas, former);
    }

private:
    HDC m_canvas;
    const wchar_t* m_text;
    HFONT m_font;
    SIZE m_size = {};
};

void DrawLogo(HDC canvas, const RECT& place, const PictureStyle& style)
{
    constexpr double kWidestTo = 3.4; // times its height
    const int room = place.right - place.left;
    const int height = std::min(static_cast<int>(place.bottom - place.top), static_cast<int>(room / kWidestTo));
    const PictureText maker(canvas, style.font, L"Tarnwick", height * 0.38, FW_BOLD);
    const PictureText product(canvas, style.font, L"Sheetmaker PDF", height * 0.25, FW_NORMAL);
    const int sheet = static_cast<int>(height * kSheetWidth), gap = height / 6;
    const int whole = sheet + gap + std::max(maker.Width(), product.Width());
    const LONG left = place.left + std::max(0, (room - whole) / 2);
    const LONG top = place.top + (place.bottom - place.top - height) / 2;
    DrawSmoothSheet(canvas, {left, top, left + sheet, top + height}, style.ground);
    SetBkMode(canvas, TRANSPARENT);
    SetTextColor(canvas, GetSysColor(COLOR_WINDOWTEXT));
    maker.Draw(left + sheet + gap, top + static_cast<LONG>(height * 0.35));
    product.Draw(left + sheet + gap, top + static_cast<LONG>(height * 0.75));
}

} // namespace

void DrawPicture(HDC canvas, const std::string& picture, const RECT& place, const PictureStyle& style)
{
    SetDCBrushColor(canvas, style.ground);
    FillRect(canvas, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    if (picture == "logo")
        return DrawLogo(canvas, place, style);
    if (picture != "warning")
        return;
    const int width = place.right - place.left, height = place.bottom - place.top, side = std::min(width, height);
    DrawIconEx(canvas, place.left + (width - side) / 2, place.top + (height - side) / 2,
               LoadIconW(nullptr, MAKEINTRESOURCEW(32515)), side, side, 0, nullptr, DI_NORMAL); // IDI_WARNING
}

const wchar_t* PictureName(const std::string& picture)
{
    if (picture == "logo")
        return L"Tarnwick, on the web";
    return picture == "warning" ? L"Warning" : L"";
}

} // namespace sm::windows
