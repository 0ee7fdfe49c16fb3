// SPDX-License-Identifier: GPL-3.0-or-later
#include "ole/WindowsMetafile.h"

#include "ole/EnhancedMetafile.h"

#include <cmath>

namespace sm::render {

void WindowsMetafile::FindWindow(Vec2& origin, Vec2& extent) const
{
    bool hasOrigin = false, hasExtent = false;
    ForEachRecord([&](unsigned function, std::string_view record) {
        if (function == kSetWindowOrigin && !hasOrigin) {
            origin = PointAt(record, 0);
            hasOrigin = true;
        }
        if (function == kSetWindowExtent && !hasExtent) {
            extent = PointAt(record, 0);
            hasExtent = true;
        }
    });
}

void WindowsMetafile::Play(unsigned function, std::string_view record)
{
    if (!PlayState(function, record) && !PlayObject(function, record) && !PlayShape(function, record) &&
        !PlayBlock(function, record)) {
        m_pen.LeaveOut();
    }
}

bool WindowsMetafile::PlayState(unsigned function, std::string_view record)
{
    MetafilePen::State& state = m_pen.state;
    switch (function) {
    case kSaveState:
        m_pen.Save();
        return true;
    case kRestoreState:
        m_pen.Restore(S16(record, 0));
        return true;
    case kSetBackMode:
        state.backFilled = U16(record, 0) == 2;
        return true;
    case kSetFillRule:
        state.rule = U16(record, 0) == 2 ? FillRule::NonZero : FillRule::EvenOdd;
        return true;
    case kSetTextAlign:
        state.textAlign = U16(record, 0);
        return true;
    case kSetBackColor:
        state.backColor = MetaColor(U32(record, 0));
        return true;
    case kSetTextColor:
        state.textColor = MetaColor(U32(record, 0));
        return true;
    case kSetWindowOrigin:
        state.origin = PointAt(record, 0);
        return true;
    case kSetWindowExtent:
        if (S16(record, 0) != 0 && S16(record, 2) != 0) {
            state.extent = PointAt(record, 0);
        }
        return true;
    case kMoveTo:
        state.at = PointAt(record, 0);
        return true;
    case kClipTo:
        m_pen.ClipTo(PointAt(record, 4), PointAt(record, 0));
        return true;
    case kSelectClip:
        m_pen.EndClip(); // regions are not read
        return true;
    default:
        return HasNoInk(function);
    }
}

bool WindowsMetafile::HasNoInk(unsigned function)
{
    for (const unsigned known : std::initializer_list<unsigned>{
             kSetMapMode, kSetRasterOperation, kSetStretchMode, kSetCharacterExtra, kSetJustification, kSetViewOrigin,
             kSetViewExtent, kSelectPalette, kRealizePalette, kEscape}) {
        if (function == known) {
            return true;
        }
    }
    return false;
}

bool WindowsMetafile::PlayObject(unsigned function, std::string_view record)
{
    switch (function) {
    case kCreatePen:
        Keep(PenOf(record));
        return true;
    case kCreateBrush: {
        constexpr unsigned kNone = 1;
        Keep(MetaBrush{MetaColor(U32(record, 2)), U16(record, 0) == kNone});
        return true;
    }
    case kCreateFont:
        Keep(FontOf(record));
        return true;
    case kCreatePattern:
    case kCreateDibPattern:
        m_pen.LeaveOut();
        Keep(MetaBrush{0xC0C0C0, false});
        return true;
    case kCreatePalette:
    case kCreateRegion:
        Keep({});
        return true;
    case kSelect:
        Select(U16(record, 0));
        return true;
    case kDeleteObject:
        m_objects.erase(U16(record, 0));
        return true;
    default:
        return false;
    }
}

void WindowsMetafile::Keep(MetaObject object)
{
    unsigned number = 0;
    while (m_objects.contains(number)) {
        ++number;
    }
    m_objects.emplace(number, std::move(object));
}

void WindowsMetafile::Select(unsigned number)
{
    if (const auto found = m_objects.find(number); found != m_objects.end()) {
        m_pen.Select(found->second);
    }
}

MetaPen WindowsMetafile::PenOf(std::string_view record)
{
    constexpr unsigned kStyle = 15, kNone = 5;
    return {MetaColor(U32(record, 6)), std::abs(static_cast<double>(S16(record, 2))),
            (U16(record, 0) & kStyle) == kNone};
}

MetaFont WindowsMetafile::FontOf(std::string_view record)
{
    constexpr int kBold = 600;
    constexpr double kTenths = 10;
    MetaFont font;
    font.height = S16(record, 0);
    font.degrees = S16(record, 4) / kTenths;
    font.bold = S16(record, 8) >= kBold;
    font.italic = UnsignedAt(record, 10, 1) != 0;
    font.underline = UnsignedAt(record, 11, 1) != 0;
    font.struckOut = UnsignedAt(record, 12, 1) != 0;
    font.characterSet = static_cast<unsigned>(UnsignedAt(record, 13, 1));
    const std::string_view name = Part(record, 18, 32);
    font.family = name.substr(0, name.find('\0'));
    return font;
}

OlePicture ReadMetafile(std::string_view bytes)
{
    OlePicture picture;
    WindowsMetafile(bytes, picture).Read();
    if (picture.Empty()) {
        EnhancedMetafile(bytes, picture).Read();
    }
    return picture;
}

} // namespace sm::render
