// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/OleFrames.h"
#include "entities/EntityTags.h"
#include "tags/ObjectLinks.h"

#include <bit>

namespace sm::drawing {

namespace {

// Seen in drawings of R13 to R2018: two bytes, the second of them 55 in hexadecimal, the corners as twelve reals, the
// size of the object in hundredths of a millimetre, its number of bytes at 124, and at 128 its compound file. The
// groups 10 and 11 repeat two of the corners.
constexpr std::size_t kMark = 1, kCorners = 2, kReal = 8, kCornersEnd = kCorners + 12 * kReal, kObjectAt = 128;
constexpr char kMarkValue = 0x55;
constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

double RealAt(std::string_view bytes, std::size_t at)
{
    std::uint64_t bits = 0;
    for (std::size_t i = kReal; i > 0; --i)
        bits = bits << 8 | static_cast<unsigned char>(bytes[at + i - 1]);
    return std::bit_cast<double>(bits);
}

bool TakeCorners(std::string_view bytes, std::array<Vec3, 4>& corners)
{
    if (bytes.size() < kCornersEnd || bytes[kMark] != kMarkValue)
        return false;
    std::array<Vec3, 4> found;
    for (std::size_t i = 0; i < found.size(); ++i) {
        const std::size_t at = kCorners + i * 3 * kReal;
        found[i] = {RealAt(bytes, at), RealAt(bytes, at + kReal), RealAt(bytes, at + 2 * kReal)};
        if (!std::isfinite(found[i].x) || !std::isfinite(found[i].y) || !std::isfinite(found[i].z))
            return false;
    }
    corners = found;
    return true;
}

} // namespace

void Read(const Drawing& drawing, const EntityRecord& record, OleFrameData& data)
{
    constexpr std::size_t kLargest = 256'000'000;
    data = {};
    EntityTags tags(drawing.Tags(), record);
    Vec3 upperLeft, lowerRight;
    bool announced = false; // the chunks follow their size at once
    std::string bytes;
    while (tags.Next()) {
        if (tags.Code() == 310 && announced && bytes.size() < kLargest) {
            AppendChunk(tags.Cursor(), bytes);
            continue;
        }
        announced = tags.Code() == 90;
        if (announced)
            bytes.clear();
        if (!tags.Take(10, upperLeft) && !tags.Take(11, lowerRight))
            tags.TakeCommon(data);
    }
    data.corners = {
        upperLeft, {lowerRight.x, upperLeft.y, upperLeft.z}, lowerRight, {upperLeft.x, lowerRight.y, lowerRight.z}};
    TakeCorners(bytes, data.corners);
    const std::size_t at = bytes.find(kCompoundFile);
    if (at != std::string::npos && at <= kObjectAt)
        data.object = bytes.substr(at);
}

} // namespace sm::drawing
