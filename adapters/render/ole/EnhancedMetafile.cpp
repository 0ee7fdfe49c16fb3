// SPDX-License-Identifier: GPL-3.0-or-later
#include "ole/EnhancedMetafile.h"

#include "base/text/Utf8.h"
#include "render/ClipBox.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace sm::render {

namespace {

// Numbers of the types of records stand in the published description of the format (EMR_...).
constexpr std::uint64_t kRecordStart = 8;

double FloatAt(std::string_view record, std::uint64_t at)
{
    return std::bit_cast<float>(U32(record, at));
}

Matrix2 MatrixAt(std::string_view record, std::uint64_t at)
{
    Matrix2 matrix{FloatAt(record, at),      FloatAt(record, at + 4),  FloatAt(record, at + 8),
                   FloatAt(record, at + 12), FloatAt(record, at + 16), FloatAt(record, at + 20)};
    const double sum = matrix.a + matrix.b + matrix.c + matrix.d + matrix.e + matrix.f;
    return std::isfinite(sum) ? matrix : Matrix2{};
}

std::string Utf16At(std::string_view record, std::uint64_t at, std::uint64_t count)
{
    std::string text;
    for (std::uint64_t i = 0; i < count && at + 2 * i + 1 < record.size(); ++i) {
        char32_t unit = U16(record, at + 2 * i);
        const char32_t low = U16(record, at + 2 * i + 2);
        if (unit >= 0xD800 && unit < 0xDC00 && low >= 0xDC00 && low < 0xE000) {
            unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
            ++i;
        }
        if (unit == 0) {
            break;
        }
        base::AppendUtf8(text, unit);
    }
    return text;
}

} // namespace

void EnhancedMetafile::Read()
{
    constexpr std::uint64_t kMark = 40, kFrame = 24, kDevice = 72, kMillimetres = 80;
    constexpr std::uint32_t kMarkValue = 0x464D4520; // " EMF"
    if (U32(m_bytes, 0) != 1 || U32(m_bytes, kMark) != kMarkValue) {
        return;
    }
    // The frame is in hundredths of a millimetre.
    const auto pixels = [&](std::uint64_t at, std::uint64_t axis) {
        const double size = S32(m_bytes, kMillimetres + axis) * 100.0;
        return size > 0 ? static_cast<double>(S32(m_bytes, at)) * S32(m_bytes, kDevice + axis) / size : 0.0;
    };
    const Vec2 upper{pixels(kFrame, 0), pixels(kFrame + 4, 4)}, lower{pixels(kFrame + 8, 0), pixels(kFrame + 12, 4)};
    const Vec2 size = lower - upper;
    if (!(size.x > 0) || !(size.y > 0)) {
        return;
    }
    m_pen.Begin({0, 0}, size);
    m_toPlane = {1, 0, 0, -1, -upper.x, lower.y};
    UpdateMap();
    for (std::uint64_t at = 0; at + kRecordStart <= m_bytes.size();) {
        const unsigned type = U32(m_bytes, at);
        const std::uint32_t bytes = U32(m_bytes, at + 4);
        constexpr unsigned kEndOfFile = 14;
        if (bytes < kRecordStart || type == kEndOfFile) {
            return;
        }
        Play(type, Part(m_bytes, at, bytes));
        at += bytes;
    }
}

void EnhancedMetafile::UpdateMap()
{
    Matrix2 device;
    if (m_world.scaled) {
        const Vec2 scale{m_world.viewExtent.x / m_world.windowExtent.x, m_world.viewExtent.y / m_world.windowExtent.y};
        device = {scale.x,
                  0,
                  0,
                  scale.y,
                  m_world.viewOrigin.x - m_world.windowOrigin.x * scale.x,
                  m_world.viewOrigin.y - m_world.windowOrigin.y * scale.y};
    }
    m_pen.state.map = Compose(m_toPlane, Compose(device, m_world.transform));
}

void EnhancedMetafile::Play(unsigned type, std::string_view record)
{
    if (PlayWorld(type, record)) {
        UpdateMap();
        return;
    }
    const bool known = PlayState(type, record) || PlayObject(type, record) || PlayPath(type) ||
                       PlayLines(type, record) || PlayShape(type, record) || PlayImage(type, record);
    // The header, brushes' origins, modes of operations and stretching, limits, palettes, comments, colour matching.
    constexpr std::array kSilent{1U, 13U, 16U, 20U, 21U, 23U, 48U, 49U, 52U, 58U, 70U, 98U, 115U};
    if (!known && std::find(kSilent.begin(), kSilent.end(), type) == kSilent.end()) {
        m_pen.LeaveOut();
    }
}

bool EnhancedMetafile::PlayWorld(unsigned type, std::string_view record)
{
    const Vec2 point = PointAt(record, kRecordStart, false);
    const auto sound = [](Vec2 extent, Vec2 former) { return extent.x != 0 && extent.y != 0 ? extent : former; };
    constexpr unsigned kPixels = 1, kSet = 4;
    switch (type) {
    case 9:
        m_world.windowExtent = sound(point, m_world.windowExtent);
        return true;
    case 10:
        m_world.windowOrigin = point;
        return true;
    case 11:
        m_world.viewExtent = sound(point, m_world.viewExtent);
        return true;
    case 12:
        m_world.viewOrigin = point;
        return true;
    case 17:
        m_world.scaled = U32(record, kRecordStart) != kPixels;
        return true;
    case 35:
        SetTransform(MatrixAt(record, kRecordStart), kSet);
        return true;
    case 36:
        SetTransform(MatrixAt(record, kRecordStart), U32(record, 32));
        return true;
    case 33:
        m_pen.Save();
        m_saved.push_back(m_world);
        return true;
    case 34: {
        const auto count = static_cast<std::int32_t>(m_saved.size());
        const std::int32_t which = S32(record, kRecordStart);
        const std::int32_t index = which < 0 ? count + which : which - 1;
        if (index >= 0 && index < count) {
            m_pen.Restore(which);
            m_world = m_saved[static_cast<std::size_t>(index)];
            m_saved.resize(static_cast<std::size_t>(index));
        }
        return true;
    }
    default:
        return false;
    }
}

void EnhancedMetafile::SetTransform(const Matrix2& matrix, unsigned mode)
{
    constexpr unsigned kIdentity = 1, kBefore = 2, kAfter = 3;
    m_world.transform = mode == kIdentity ? Matrix2{}
                        : mode == kBefore ? Compose(m_world.transform, matrix)
                        : mode == kAfter  ? Compose(matrix, m_world.transform)
                                          : matrix;
}

bool EnhancedMetafile::PlayState(unsigned type, std::string_view record)
{
    MetafilePen::State& state = m_pen.state;
    const std::uint32_t value = U32(record, kRecordStart);
    switch (type) {
    case 18:
        state.backFilled = value == 2;
        return true;
    case 19:
        state.rule = value == 2 ? FillRule::NonZero : FillRule::EvenOdd;
        return true;
    case 22:
        state.textAlign = value;
        return true;
    case 24:
        state.textColor = MetaColor(value);
        return true;
    case 25:
        state.backColor = MetaColor(value);
        return true;
    case 27:
        state.at = PointAt(record, kRecordStart, false);
        if (m_pathOpen) {
            m_path.MoveTo(m_pen.Map(state.at));
        }
        return true;
    case 30:
        m_pen.ClipTo(PointAt(record, kRecordStart, false), PointAt(record, kRecordStart + 8, false));
        return true;
    case 75:
        SetClip(record);
        return true;
    default:
        return false;
    }
}

/// A region by its box, on the device.
void EnhancedMetafile::SetClip(std::string_view record)
{
    constexpr std::uint64_t kMode = 12, kRectangles = 24, kBox = 32;
    constexpr unsigned kAnd = 1, kCopy = 5;
    const unsigned mode = U32(record, kMode);
    if (mode == kCopy) {
        m_pen.EndClip();
    }
    if (U32(record, kRecordStart) == 0) {
        return;
    }
    if ((mode != kCopy && mode != kAnd) || U32(record, kRectangles) != 1) {
        m_pen.LeaveOut();
        return;
    }
    Box2 box;
    box.Add(m_toPlane.Apply(PointAt(record, kBox, false)));
    box.Add(m_toPlane.Apply(PointAt(record, kBox + 8, false)));
    m_pen.state.clip = Intersection(m_pen.state.clip, box);
}

bool EnhancedMetafile::PlayObject(unsigned type, std::string_view record)
{
    constexpr unsigned kStyle = 15, kNoPen = 5, kNoBrush = 1;
    constexpr std::uint32_t kStock = 0x80000000;
    const unsigned number = U32(record, kRecordStart);
    switch (type) {
    case 37:
        if ((number & kStock) != 0) {
            SelectStock(number & ~kStock);
        } else if (const auto found = m_objects.find(number); found != m_objects.end()) {
            m_pen.Select(found->second);
        }
        return true;
    case 38:
        m_objects[number] = MetaPen{MetaColor(U32(record, 24)), std::abs(static_cast<double>(S32(record, 16))),
                                    (U32(record, 12) & kStyle) == kNoPen};
        return true;
    case 95:
        m_objects[number] = MetaPen{MetaColor(U32(record, 40)), static_cast<double>(U32(record, 32)),
                                    (U32(record, 28) & kStyle) == kNoPen};
        return true;
    case 39:
        if (U32(record, 12) > kNoBrush) {
            m_pen.LeaveOut(); // a pattern, filled evenly
        }
        m_objects[number] = MetaBrush{MetaColor(U32(record, 16)), U32(record, 12) == kNoBrush};
        return true;
    case 40:
        m_objects.erase(number);
        return true;
    case 82: {
        constexpr int kBold = 600;
        MetaFont font;
        font.height = S32(record, 12);
        font.degrees = S32(record, 20) / 10.0;
        font.bold = S32(record, 28) >= kBold;
        font.italic = UnsignedAt(record, 32, 1) != 0;
        font.underline = UnsignedAt(record, 33, 1) != 0;
        font.struckOut = UnsignedAt(record, 34, 1) != 0;
        font.family = Utf16At(record, 40, 32);
        m_objects[number] = font;
        return true;
    }
    default:
        return false;
    }
}

/// White, three grays, black and no brush; a white, a black and no pen; fonts stay as they are.
void EnhancedMetafile::SelectStock(unsigned number)
{
    constexpr std::array<std::uint32_t, 5> kBrushes{0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0};
    if (number < kBrushes.size()) {
        m_pen.Select(MetaBrush{kBrushes[number], false});
    } else if (number == 5) {
        m_pen.Select(MetaBrush{0, true});
    } else if (number >= 6 && number <= 8) {
        m_pen.Select(MetaPen{number == 6 ? 0xFFFFFFU : 0U, 0, number == 8});
    }
}

} // namespace sm::render
