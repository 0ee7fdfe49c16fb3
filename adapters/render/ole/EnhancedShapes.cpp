// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/Utf8.h"
#include "ole/EnhancedMetafile.h"
#include "render/Arcs.h"
#include "render/ClipBox.h"

#include <algorithm>

namespace sm::render {

namespace {

constexpr std::uint32_t kCopyPixels = 0xCC0020, kAndPixels = 0x8800C6;

/// The header and the pixels of a bitmap, which stand apart.
std::string DibOf(std::string_view record, std::uint64_t at)
{
    return std::string(Part(record, U32(record, at), U32(record, at + 4))) +
           std::string(Part(record, U32(record, at + 8), U32(record, at + 12)));
}

} // namespace

bool EnhancedMetafile::PlayPath(unsigned type)
{
    switch (type) {
    case 59:
        m_path.Clear();
        m_pathOpen = true;
        return true;
    case 60:
        m_pathOpen = false;
        return true;
    case 61:
        m_path.Close();
        return true;
    case 62:
        m_pen.Fill(m_path);
        break;
    case 63:
        m_pen.Shape(m_path);
        break;
    case 64:
        m_pen.Stroke(m_path);
        break;
    case 67:
        m_pen.state.clip = Intersection(m_pen.state.clip, HullOf(m_path)); // its box
        break;
    default:
        return false;
    }
    m_path.Clear();
    return true;
}

void EnhancedMetafile::Put(const Path& path, bool filled)
{
    if (m_pathOpen) {
        m_path.verbs.insert(m_path.verbs.end(), path.verbs.begin(), path.verbs.end());
        m_path.points.insert(m_path.points.end(), path.points.begin(), path.points.end());
    } else if (filled) {
        m_pen.Shape(path);
    } else {
        m_pen.Stroke(path);
    }
}

void EnhancedMetafile::AppendPoints(Path& path, std::string_view record, std::uint64_t at, unsigned count, bool small,
                                    bool curve)
{
    const std::uint64_t size = small ? 4 : 8;
    const auto point = [&](unsigned i) { return m_pen.Map(PointAt(record, at + i * size, small)); };
    const auto whole = static_cast<unsigned>(
        std::min<std::uint64_t>(count, (record.size() - std::min<std::uint64_t>(at, record.size())) / size));
    unsigned i = 0;
    if (path.Empty() && whole > 0) {
        path.MoveTo(point(i++));
    }
    if (!curve) {
        for (; i < whole; ++i) {
            path.LineTo(point(i));
        }
    }
    for (; curve && i + 2 < whole; i += 3) {
        path.CubicTo(point(i), point(i + 1), point(i + 2));
    }
}

/// A path from the current point on; its last point becomes the current one, which the caller has set.
void EnhancedMetafile::ContinueLine(Path path)
{
    if (m_pathOpen && !m_path.Empty() && m_path.verbs.back() != Verb::Close) {
        path.verbs.erase(path.verbs.begin()); // the open figure goes on
        path.points.erase(path.points.begin());
    }
    Put(path, false);
}

bool EnhancedMetafile::PlayLines(unsigned type, std::string_view record)
{
    constexpr std::uint64_t kCount = 24, kPoints = 28;
    constexpr unsigned kSmall = 83; // types of 16-bit points stand so much higher
    Path path;
    if (type == 54) {
        path.MoveTo(m_pen.Map(m_pen.state.at));
        m_pen.state.at = PointAt(record, 8, false);
        path.LineTo(m_pen.Map(m_pen.state.at));
        ContinueLine(std::move(path));
        return true;
    }
    const bool small = type >= kSmall;
    const unsigned kind = small ? type - kSmall : type, count = U32(record, kCount);
    if ((type > 8 && type < 85) || type > 91 || kind < 2) {
        return false;
    }
    if (kind == 7 || kind == 8) { // many at once
        std::uint64_t at = 32 + std::uint64_t{count} * 4;
        for (unsigned i = 0; i < count && at < record.size(); ++i) {
            const unsigned points = U32(record, 32 + std::uint64_t{i} * 4);
            Path one;
            AppendPoints(one, record, at, points, small, false);
            if (kind == 8 && !one.Empty()) {
                one.Close();
            }
            path.verbs.insert(path.verbs.end(), one.verbs.begin(), one.verbs.end());
            path.points.insert(path.points.end(), one.points.begin(), one.points.end());
            at += std::uint64_t{points} * (small ? 4 : 8);
        }
        Put(path, kind == 8);
        return true;
    }
    const bool onwards = kind == 5 || kind == 6, curve = kind == 2 || kind == 5;
    if (onwards) {
        path.MoveTo(m_pen.Map(m_pen.state.at));
    }
    AppendPoints(path, record, kPoints, count, small, curve);
    if (onwards) {
        if (count > 0) {
            m_pen.state.at = PointAt(record, kPoints + std::uint64_t{count - 1} * (small ? 4 : 8), small);
        }
        ContinueLine(std::move(path));
        return true;
    }
    if (kind == 3 && !path.Empty()) {
        path.Close();
    }
    Put(path, kind == 3);
    return true;
}

bool EnhancedMetafile::PlayShape(unsigned type, std::string_view record)
{
    constexpr unsigned kEllipse = 42, kRectangle = 43, kRounded = 44, kTextA = 83, kTextW = 84;
    if (type == kTextA || type == kTextW) {
        PlayText(record, type == kTextW);
        return true;
    }
    if (type != kEllipse && type != kRectangle && type != kRounded) {
        return false;
    }
    const Vec2 a = PointAt(record, 8, false), b = PointAt(record, 16, false);
    Path path;
    if (type == kEllipse) {
        const Vec2 center = m_pen.Map((a + b) * 0.5);
        AppendEllipse(path, center, m_pen.Map({b.x, (a.y + b.y) / 2}) - center,
                      m_pen.Map({(a.x + b.x) / 2, a.y}) - center);
    } else { // corners stay sharp
        path.MoveTo(m_pen.Map(a));
        path.LineTo(m_pen.Map({b.x, a.y}));
        path.LineTo(m_pen.Map(b));
        path.LineTo(m_pen.Map({a.x, b.y}));
        path.Close();
    }
    Put(path, true);
    return true;
}

void EnhancedMetafile::PlayText(std::string_view record, bool wide)
{
    constexpr std::uint64_t kAt = 36, kLength = 44, kOffset = 48, kOptions = 52, kBox = 56, kSteps = 72;
    constexpr unsigned kFilled = 2, kGlyphs = 16;
    const std::uint32_t count = U32(record, kLength), options = U32(record, kOptions);
    if ((options & kGlyphs) != 0) {
        m_pen.LeaveOut(); // numbers of glyphs in a font that nobody has
        return;
    }
    if ((options & kFilled) != 0) {
        Box2 box;
        box.Add(m_pen.Map(PointAt(record, kBox, false)));
        box.Add(m_pen.Map(PointAt(record, kBox + 8, false)));
        Path path;
        AppendBox(path, box);
        m_pen.Fill(path, m_pen.state.backColor);
    }
    std::string text;
    const std::uint32_t offset = U32(record, kOffset);
    for (std::uint64_t i = 0; i < count && offset + i * (wide ? 2 : 1) < record.size(); ++i) {
        base::AppendUtf8(text,
                         wide ? U16(record, offset + 2 * i) : static_cast<char32_t>(UnsignedAt(record, offset + i, 1)));
    }
    double advance = 0;
    const std::uint32_t steps = U32(record, kSteps);
    if (steps != 0 && steps + std::uint64_t{count} * 4 <= record.size()) {
        for (std::uint64_t i = 0; i < count; ++i) {
            advance += S32(record, steps + 4 * i);
        }
    }
    m_pen.Text(text, PointAt(record, kAt, false), advance);
}

bool EnhancedMetafile::PlayImage(unsigned type, std::string_view record)
{
    constexpr unsigned kBlock = 76, kStretchBlock = 77, kStretchBitmap = 81;
    const bool block = type == kBlock || type == kStretchBlock;
    if (!block && type != kStretchBitmap) {
        return false;
    }
    const std::uint64_t info = block ? 84 : 48;
    const std::uint32_t operation = U32(record, block ? 40 : 68);
    const Vec2 corner = PointAt(record, 24, false), size = PointAt(record, block ? 32 : 72, false);
    if (U32(record, info + 4) != 0) {
        if (operation != kCopyPixels && operation != kAndPixels) {
            return false;
        }
        m_pen.Image(DibOf(record, info), corner, size);
        return true;
    }
    return m_pen.Paint(operation, corner, size);
}

} // namespace sm::render
