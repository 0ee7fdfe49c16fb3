// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/Utf8.h"
#include "drawing/CodePage.h"
#include "ole/WindowsMetafile.h"
#include "render/Arcs.h"
#include "render/ClipBox.h"

#include <array>
#include <cmath>
#include <utility>

namespace sm::render {

namespace {

constexpr std::uint32_t kCopySource = 0xCC0020, kAndSource = 0x8800C6;

/// The code page of a font's character set.
std::string PageOf(unsigned characterSet)
{
    constexpr std::array<std::pair<unsigned, const char*>, 14> kPages{{{128, "ansi_932"},
                                                                       {129, "ansi_949"},
                                                                       {134, "ansi_936"},
                                                                       {136, "ansi_950"},
                                                                       {161, "ansi_1253"},
                                                                       {162, "ansi_1254"},
                                                                       {163, "ansi_1258"},
                                                                       {177, "ansi_1255"},
                                                                       {178, "ansi_1256"},
                                                                       {186, "ansi_1257"},
                                                                       {204, "ansi_1251"},
                                                                       {222, "ansi_874"},
                                                                       {238, "ansi_1250"},
                                                                       {77, "mac-roman"}}};
    for (const auto& [set, page] : kPages) {
        if (set == characterSet) {
            return drawing::ConverterName(page);
        }
    }
    return drawing::ConverterName("ansi_1252");
}

std::string Decoded(std::string_view raw, unsigned characterSet)
{
    const auto page = drawing::SharedPage(PageOf(characterSet));
    std::string text;
    for (std::size_t at = 0; at < raw.size();) {
        base::AppendUtf8(text, page->Read(raw, at));
    }
    return text;
}

} // namespace

bool WindowsMetafile::PlayShape(unsigned function, std::string_view record)
{
    Path path;
    switch (function) {
    case kLineTo: {
        const Vec2 to = PointAt(record, 0);
        path.MoveTo(m_pen.Map(m_pen.state.at));
        path.LineTo(m_pen.Map(to));
        m_pen.state.at = to;
        m_pen.Stroke(path);
        return true;
    }
    case kPolyline:
        AppendPoints(path, record, kWord, U16(record, 0));
        m_pen.Stroke(path);
        return true;
    case kPolygon:
        AppendPoints(path, record, kWord, U16(record, 0));
        path.Close();
        m_pen.Shape(path);
        return true;
    case kPolygons:
        AppendPolygons(path, record);
        m_pen.Shape(path);
        return true;
    case kRectangle:
    case kRoundRectangle: // its corners stay sharp
        AppendBox(path, BoxAt(record, function == kRectangle ? 0 : 4));
        m_pen.Shape(path);
        return true;
    case kEllipse: {
        const Box2 box = BoxAt(record, 0);
        AppendEllipse(path, (box.min + box.max) * 0.5, {box.Width() / 2, 0}, {0, box.Height() / 2});
        m_pen.Shape(path);
        return true;
    }
    case kArc:
    case kPie:
    case kChord:
        PlayArc(function, record);
        return true;
    case kTextOut:
        PlayText(record);
        return true;
    case kTextOutWide:
        PlayWideText(record);
        return true;
    default:
        return false;
    }
}

void WindowsMetafile::AppendPoints(Path& path, std::string_view record, std::uint64_t at, unsigned count) const
{
    for (unsigned i = 0; i < count && at + 2 * kWord <= record.size(); ++i, at += 2 * kWord) {
        const Vec2 point = m_pen.Map(ListedAt(record, at));
        i == 0 ? path.MoveTo(point) : path.LineTo(point);
    }
}

void WindowsMetafile::AppendPolygons(Path& path, std::string_view record) const
{
    const unsigned count = U16(record, 0);
    std::uint64_t at = kWord + std::uint64_t{count} * kWord;
    for (unsigned i = 0; i < count && at < record.size(); ++i) {
        const unsigned points = U16(record, kWord + std::uint64_t{i} * kWord);
        AppendPoints(path, record, at, points);
        if (points > 0) {
            path.Close();
        }
        at += std::uint64_t{points} * 2 * kWord;
    }
}

Box2 WindowsMetafile::BoxAt(std::string_view record, std::uint64_t at) const
{
    Box2 box;
    box.Add(m_pen.Map(PointAt(record, at)));
    box.Add(m_pen.Map(PointAt(record, at + 2 * kWord)));
    return box;
}

void WindowsMetafile::PlayArc(unsigned function, std::string_view record)
{
    const Box2 box = BoxAt(record, 8);
    const Vec2 center = (box.min + box.max) * 0.5, half{box.Width() / 2, box.Height() / 2};
    if (!(half.x > 0) || !(half.y > 0)) {
        return;
    }
    const auto turn = [&](std::uint64_t at) {
        const Vec2 from = m_pen.Map(PointAt(record, at)) - center;
        return std::atan2(from.y / half.y, from.x / half.x);
    };
    EllipseArc arc{center, {half.x, 0}, {0, half.y}, turn(4), 0};
    arc.sweep = turn(0) - arc.start;
    arc.sweep += arc.sweep <= 0 ? kTurn : 0;
    Path path;
    AppendArc(path, arc, Join::Move);
    if (function == kArc) {
        m_pen.Stroke(path);
        return;
    }
    if (function == kPie) {
        path.LineTo(center);
    }
    path.Close();
    m_pen.Shape(path);
}

void WindowsMetafile::PlayText(std::string_view record)
{
    const std::uint64_t count = U16(record, 0), padded = count + count % 2;
    m_pen.Text(Decoded(Part(record, kWord, count), m_pen.state.font.characterSet), PointAt(record, kWord + padded), 0);
}

void WindowsMetafile::PlayWideText(std::string_view record)
{
    constexpr unsigned kFilled = 2, kClipped = 4;
    const std::uint64_t count = U16(record, 4);
    const unsigned options = U16(record, 6);
    const bool boxed = (options & (kFilled | kClipped)) != 0;
    const std::uint64_t at = boxed ? 16 : 8, padded = count + count % 2;
    if ((options & kFilled) != 0) {
        Path path;
        Box2 box;
        box.Add(m_pen.Map(ListedAt(record, 8)));
        box.Add(m_pen.Map(ListedAt(record, 12)));
        AppendBox(path, box);
        m_pen.Fill(path, m_pen.state.backColor);
    }
    double advance = 0;
    if (record.size() >= at + padded + count * kWord) {
        for (std::uint64_t i = 0; i < count; ++i) {
            advance += S16(record, at + padded + i * kWord);
        }
    }
    m_pen.Text(Decoded(Part(record, at, count), m_pen.state.font.characterSet), PointAt(record, 0), advance);
}

bool WindowsMetafile::PlayBlock(unsigned function, std::string_view record)
{
    const std::uint32_t operation = U32(record, 0);
    // A block without a source has a word in the place of its size.
    constexpr std::size_t kWithoutSource = 18;
    switch (function) {
    case kPatternBlock:
        return m_pen.Paint(operation, PointAt(record, 8), PointAt(record, 4));
    case kDibBlock:
        if (record.size() <= kWithoutSource) {
            return m_pen.Paint(operation, PointAt(record, 14), PointAt(record, 10));
        }
        return PlayImage(operation, Part(record, 16, record.size()), PointAt(record, 12), PointAt(record, 8));
    case kDibStretchBlock:
        return PlayImage(operation, Part(record, 20, record.size()), PointAt(record, 16), PointAt(record, 12));
    case kStretchDib:
        return PlayImage(operation, Part(record, 22, record.size()), PointAt(record, 18), PointAt(record, 14));
    default:
        return false;
    }
}

bool WindowsMetafile::PlayImage(std::uint32_t operation, std::string_view dib, Vec2 corner, Vec2 size)
{
    if (operation != kCopySource && operation != kAndSource) {
        return false;
    }
    m_pen.Image(dib, corner, size);
    return true;
}

} // namespace sm::render
