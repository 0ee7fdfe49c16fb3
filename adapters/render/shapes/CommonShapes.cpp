// SPDX-License-Identifier: GPL-3.0-or-later
#include "shapes/CommonShapes.h"

#include "render/Arcs.h"

#include <array>

namespace sm::render {

namespace {

// The symbols that the common line types name by number: a track's sleeper, a zigzag's tooth, a fence's box and ring,
// the half of an insulation's loop. All begin at the origin and go on from (2, 0), but for the sleeper.
enum Common : std::uint16_t { kTrack = 130, kZigzag = 131, kBox = 132, kRing = 133, kBatting = 134 };

constexpr std::array<std::pair<std::string_view, std::uint16_t>, 5> kNames{
    {{"TRACK1", kTrack}, {"ZIG", kZigzag}, {"BOX", kBox}, {"CIRC1", kRing}, {"BAT", kBatting}}};

void AppendLines(Path& path, std::initializer_list<Vec2> points)
{
    bool first = true;
    for (const Vec2 point : points) {
        first ? path.MoveTo(point) : path.LineTo(point);
        first = false;
    }
}

} // namespace

std::uint16_t CommonShapeNumber(std::string_view name)
{
    for (const auto& [known, number] : kNames) {
        if (known == name) {
            return number;
        }
    }
    return 0;
}

bool AppendCommonShape(std::uint16_t number, Path& path)
{
    switch (number) {
    case kTrack:
        AppendLines(path, {{0, -1}, {0, 1}});
        return true;
    case kZigzag:
        AppendLines(path, {{0, 0}, {1, 1}, {2, 0}});
        return true;
    case kBox:
        AppendLines(path, {{0, -1}, {2, -1}, {2, 1}, {0, 1}});
        path.Close();
        return true;
    case kRing:
        AppendEllipse(path, {1, 0}, {1, 0}, {0, 1});
        return true;
    case kBatting:
        AppendLines(path, {{0, 0}, {-1, 2}});
        AppendArc(path, {{1, 2}, {2, 0}, {0, 2}, kTurn / 2, -kTurn / 2}, Join::Continue);
        path.LineTo({2, 0});
        return true;
    default:
        return false;
    }
}

} // namespace sm::render
