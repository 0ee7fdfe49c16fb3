// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/ViewTexts.h"

#include "windows/automation/WideText.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

namespace sm::win32 {
namespace {

using beside::PageMark;
using beside::PageMarkKind;
using render::Path;
using scene::PixelPen;
using scene::SnapKind;

constexpr double kSnapHalf = 7; // pixels of a snap mark
constexpr std::uint32_t kSnap = 0xD03000, kBand = 0x1060C0, kLabel = 0xFFFFE1, kLabelInk = 0x202020;

std::uint32_t Clear(std::uint32_t color, std::uint32_t opacity)
{
    return color | (0xFF - opacity) << 24;
}

Box2 BoxOf(Vec2 a, Vec2 b)
{
    return {{std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)}};
}

/// Lines one pixel wide stand on whole pixels.
Box2 Crisp(const Box2& box)
{
    const auto middle = [](double value) { return std::floor(value) + 0.5; };
    return {{middle(box.min.x), middle(box.min.y)}, {middle(box.max.x), middle(box.max.y)}};
}

PixelPen PenOf(std::uint32_t color, double width, bool isDashed = false)
{
    PixelPen pen{color, width};
    pen.isDashed = isDashed;
    return pen;
}

POINT PointOf(Vec2 at)
{
    return {static_cast<LONG>(std::lround(at.x)), static_cast<LONG>(std::lround(at.y))};
}

Path LineOf(Vec2 a, Vec2 b)
{
    Path path;
    path.MoveTo(a);
    path.LineTo(b);
    return path;
}

Path SnapShape(SnapKind kind, Vec2 at, double half)
{
    Path path;
    const auto go = [&](double x, double y) {
        const Vec2 to = at + Vec2{x, y} * half;
        path.Empty() ? path.MoveTo(to) : path.LineTo(to);
    };
    constexpr int kCorners = 24; // of what is seen as a circle
    switch (kind) {
    case SnapKind::End:
        go(-1, -1), go(1, -1), go(1, 1), go(-1, 1);
        break;
    case SnapKind::Middle:
        go(0, -1), go(1, 1), go(-1, 1);
        break;
    case SnapKind::Center:
        for (int i = 0; i < kCorners; ++i)
            go(std::cos(2 * std::numbers::pi * i / kCorners), std::sin(2 * std::numbers::pi * i / kCorners));
        break;
    case SnapKind::Intersection:
        go(-1, -1), go(1, 1);
        path.MoveTo(at + Vec2{-half, half});
        path.LineTo(at + Vec2{half, -half});
        return path;
    }
    path.Close();
    return path;
}

void PaintSnapMark(const OverlayCanvas& canvas, const scene::Snap& snap)
{
    const double half = kSnapHalf * canvas.scale;
    canvas.shapes.Stroke(SnapShape(snap.kind, snap.point, half), {kSnap, 2 * canvas.scale, render::LineCap::Square});
    const std::wstring name = windows::Wide(SnapName(snap.kind));
    SIZE size = {};
    GetTextExtentPoint32W(canvas.measure, name.c_str(), static_cast<int>(name.size()), &size);
    constexpr double kRoom = 3;
    const double reach = 2 * half + 6;
    const bool isWide = snap.point.x + reach + size.cx > canvas.width;
    const Vec2 at = snap.point + Vec2{isWide ? -reach - static_cast<double>(size.cx) : reach, reach};
    const Box2 label = Crisp({at - Vec2{kRoom, kRoom}, at + Vec2{size.cx + kRoom, size.cy + kRoom}});
    canvas.shapes.FillBox(label, kLabel);
    canvas.shapes.FrameBox(label, PenOf(kLabelInk, 1));
    ViewText text{name, PointOf(at)};
    text.color = RGB(0x20, 0x20, 0x20);
    canvas.texts.push_back(std::move(text));
}

/// Families that stand for the fonts that every PDF reader brings along.
ViewText StampText(const PageMark& mark, Vec2 at, double scale)
{
    const auto has = [&](const char* word) { return mark.font.find(word) != std::string::npos; };
    ViewText text{windows::Wide(mark.text), PointOf(at)};
    text.face = mark.font.starts_with("Courier") ? L"Courier New"
                : mark.font.starts_with("Times") ? L"Times New Roman"
                                                 : L"Arial";
    text.height = std::max(1, static_cast<int>(std::lround(mark.size * scale)));
    text.turn = static_cast<int>(std::lround(mark.turn * 10));
    text.isBold = has("Bold");
    text.isSlanted = has("Oblique") || has("Italic");
    text.color = static_cast<COLORREF>(mark.color) & 0xFFFFFF; // red in the low byte for both
    text.align = TA_BASELINE | (mark.justification == 1 ? TA_CENTER : mark.justification == 2 ? TA_RIGHT : TA_LEFT);
    return text;
}

HFONT FontFor(const ViewText& text)
{
    return CreateFontW(-text.height, 0, text.turn, text.turn, text.isBold ? FW_BOLD : FW_NORMAL,
                       text.isSlanted ? TRUE : FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS,
                       ANTIALIASED_QUALITY, DEFAULT_PITCH, text.face.c_str());
}

/// Of one that isn't turned.
Box2 StampBox(const PageMark& mark, Vec2 at, double scale)
{
    const ViewText text = StampText(mark, at, scale);
    const HDC canvas = CreateCompatibleDC(nullptr);
    const HFONT font = FontFor(text);
    const HGDIOBJ before = SelectObject(canvas, font);
    TEXTMETRICW metrics = {};
    SIZE size = {};
    GetTextMetricsW(canvas, &metrics);
    GetTextExtentPoint32W(canvas, text.text.c_str(), static_cast<int>(text.text.size()), &size);
    SelectObject(canvas, before);
    DeleteObject(font);
    DeleteDC(canvas);
    const Vec2 corner = at - Vec2{size.cx * mark.justification / 2.0, static_cast<double>(metrics.tmAscent)};
    return {corner, corner + Vec2{static_cast<double>(size.cx), static_cast<double>(metrics.tmHeight)}};
}

void PaintFrame(const OverlayCanvas& canvas, const PageMark& mark, const Box2& box)
{
    const bool isField = mark.kind == PageMarkKind::Field;
    const std::uint32_t color = isField ? 0x2060C0 : 0x008060;
    canvas.shapes.FillBox(box, Clear(color, 0x20));
    canvas.shapes.FrameBox(Crisp(box), PenOf(color, 1, !isField));
    if (!isField)
        return;
    const std::wstring name = windows::Wide(mark.text);
    SIZE size = {};
    GetTextExtentPoint32W(canvas.measure, name.c_str(), static_cast<int>(name.size()), &size);
    const Vec2 middle = (box.min + box.max) * 0.5;
    ViewText text{name, PointOf(middle - Vec2{size.cx / 2.0, size.cy / 2.0})};
    text.color = RGB(0x20, 0x60, 0xC0);
    canvas.texts.push_back(std::move(text));
}

Box2 ClipBox(Vec2 at, double scale)
{
    constexpr double kWidth = 9, kHeight = 12;
    return {at + Vec2{0, -kHeight * scale}, at + Vec2{kWidth * scale, 0}};
}

void PaintClip(const OverlayCanvas& canvas, Vec2 at)
{
    const Box2 sheet = Crisp(ClipBox(at, canvas.scale));
    constexpr std::uint32_t kInk = 0x605000;
    canvas.shapes.FillBox(sheet, 0xFFF0A0);
    canvas.shapes.FrameBox(sheet, PenOf(kInk, 1));
    for (const double line : {3, 6, 9}) {
        const Vec2 from = sheet.min + Vec2{2, line} * canvas.scale;
        canvas.shapes.Stroke(LineOf(from, from + Vec2{5 * canvas.scale, 0}), PenOf(kInk, canvas.scale));
    }
}

} // namespace

void PaintOverlay(const OverlayCanvas& canvas, const scene::ViewOverlay& over, scene::Backdrop backdrop)
{
    if (over.band) {
        const Box2 band = BoxOf(over.band->first, over.band->second);
        canvas.shapes.FillBox(band, Clear(kBand, 0x28));
        canvas.shapes.FrameBox(Crisp(band), PenOf(kBand, 1, true));
    }
    if (over.cross) {
        const PixelPen pen = PenOf(Clear(ColorsOf(backdrop).cross, 0xB0), 1);
        const double x = std::floor(over.cross->x) + 0.5, y = std::floor(over.cross->y) + 0.5;
        canvas.shapes.Stroke(LineOf({0, y}, {static_cast<double>(canvas.width), y}), pen);
        canvas.shapes.Stroke(LineOf({x, 0}, {x, static_cast<double>(canvas.height)}), pen);
    }
    if (over.mark)
        PaintSnapMark(canvas, *over.mark);
}

void PaintPageMarks(const OverlayCanvas& canvas, const std::vector<PageMark>& marks, const scene::ViewMap& map)
{
    for (const PageMark& mark : marks) {
        const Vec2 from = map.ToPixel(mark.from);
        switch (mark.kind) {
        case PageMarkKind::Stamp:
            canvas.texts.push_back(StampText(mark, from, map.scale));
            break;
        case PageMarkKind::Attachment:
            PaintClip(canvas, from);
            break;
        case PageMarkKind::Field:
        case PageMarkKind::Link:
            PaintFrame(canvas, mark, BoxOf(from, map.ToPixel(mark.to)));
            break;
        }
    }
}

void PaintFrameRound(const OverlayCanvas& canvas, const Box2& box)
{
    canvas.shapes.FrameBox(Crisp(box), PenOf(kSnap, 1, true));
}

Box2 MarkBox(const PageMark& mark, const scene::ViewMap& map, double scale)
{
    const Vec2 from = map.ToPixel(mark.from);
    switch (mark.kind) {
    case PageMarkKind::Stamp:
        return StampBox(mark, from, map.scale);
    case PageMarkKind::Attachment:
        return ClipBox(from, scale);
    case PageMarkKind::Field:
    case PageMarkKind::Link:
        break;
    }
    return BoxOf(from, map.ToPixel(mark.to));
}

void DrawTexts(HDC canvas, const std::vector<ViewText>& texts)
{
    SetBkMode(canvas, TRANSPARENT);
    for (const ViewText& text : texts) {
        const HFONT font = text.face.empty() ? nullptr : FontFor(text);
        const HGDIOBJ before = font != nullptr ? SelectObject(canvas, font) : nullptr;
        SetTextColor(canvas, text.color);
        SetTextAlign(canvas, text.align);
        TextOutW(canvas, text.at.x, text.at.y, text.text.c_str(), static_cast<int>(text.text.size()));
        if (font == nullptr)
            continue;
        SelectObject(canvas, before);
        DeleteObject(font);
    }
}

} // namespace sm::win32
