// SPDX-License-Identifier: GPL-3.0-or-later
#include "hidden/HidingFaces.h"

#include "render/RecordingCanvas.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace sm::render {
namespace {

using SpaceLoop = std::vector<Vec3>;

/// "x y z, x y z, ..."
SpaceLoop LoopFrom(const std::string& text)
{
    SpaceLoop loop;
    std::istringstream corners(text);
    for (std::string corner; std::getline(corners, corner, ',');) {
        std::istringstream numbers(corner);
        Vec3 p;
        numbers >> p.x >> p.y >> p.z;
        loop.push_back(p);
    }
    return loop;
}

/// Faces apart by '|', loops of a face by '/'.
void AddFacesFrom(const std::string& text, HidingFaces& faces)
{
    std::istringstream all(text);
    for (std::string face; std::getline(all, face, '|');) {
        std::vector<SpaceLoop> loops;
        std::istringstream parts(face);
        for (std::string loop; std::getline(parts, loop, '/');) {
            loops.push_back(LoopFrom(loop));
        }
        faces.Add(loops);
    }
    faces.Seal();
}

std::string ShownOf(HidingFaces& faces, Vec3 a, Vec3 b)
{
    std::vector<LinePart> shown;
    faces.FindVisible(a, b, shown);
    std::string text;
    for (const LinePart& part : shown) {
        text += (text.empty() ? "" : " ") + RecordingCanvas::Number(part.from) + "-" + RecordingCanvas::Number(part.to);
    }
    return text;
}

constexpr double kTestTolerance = 1e-4;
constexpr const char* kTableTop = "0 0 5, 10 0 5, 10 10 5, 0 10 5";

struct FaceRow {
    const char* name;
    const char* faces;
    const char* line; ///< both ends
    const char* shown;
};

class HidingFacesTest : public testing::TestWithParam<FaceRow> {};

TEST_P(HidingFacesTest, CutLines)
{
    std::uint64_t looks = 1'000'000;
    HidingFaces faces(kTestTolerance, looks);
    AddFacesFrom(GetParam().faces, faces);
    const SpaceLoop ends = LoopFrom(GetParam().line);
    EXPECT_EQ(ShownOf(faces, ends.at(0), ends.at(1)), GetParam().shown);
}

const FaceRow kFaceRows[] = {
    {"NoFaces", "", "0 0 0, 10 0 0", "0-1"},
    {"FaceBeforeALine", kTableTop, "-10 5 0, 30 5 0", "0-0.25 0.5-1"},
    {"LineBeforeAFace", kTableTop, "-10 5 6, 30 5 6", "0-1"},
    {"LineOnAFace", kTableTop, "-10 5 5, 30 5 5", "0-1"},
    {"AFarLine", kTableTop, "100 100 -900, 200 100 -900", "0-1"},
    {"HiddenWhole", kTableTop, "1 1 0, 9 9 4", ""},
    {"ItsOwnEdge", kTableTop, "0 0 5, 10 0 5", "0-1"},
    {"AnEdgeRightBehindAnother", kTableTop, "0 0 0, 10 0 0", ""},
    {"LineThroughAFace", kTableTop, "5 5 0, 5 9 10", "0.5-1"},
    {"LineThroughAFaceFromBeside", kTableTop, "-10 5 -5, 10 5 15", "0-1"},
    {"UprightLineUnderAFace", kTableTop, "5 5 0, 5 5 4", ""},
    {"UprightLineThroughAFace", kTableTop, "5 5 0, 5 5 10", "0.5-1"},
    {"TouchesAtACorner", kTableTop, "0 0 5, -10 -10 0", "0-1"},
    {"GoesDownFromACorner", kTableTop, "0 0 5, 10 10 0", ""},
    {"TwoFacesSideBySide", "0 0 5, 5 0 5, 5 10 5, 0 10 5 | 5 0 5, 10 0 5, 10 10 5, 5 10 5", "-10 5 0, 30 5 0",
     "0-0.25 0.5-1"},
    {"AlongTheSeamOfTwo", "0 0 5, 5 0 5, 5 10 5, 0 10 5 | 5 0 5, 10 0 5, 10 10 5, 5 10 5", "5 -10 0, 5 20 0",
     "0-0.333 0.667-1"},
    {"TouchingFacesKeepTheirEdge", "0 0 5, 5 0 5, 5 10 5, 0 10 5 | 5 0 5, 9 0 0, 9 10 0, 5 10 5", "5 0 5, 5 10 5",
     "0-1"},
    // The other face rises through it from z 0 at x 0 to z 10 at x 10: their planes meet at x 5.
    {"FacesThroughEachOther", "0 0 5, 10 0 5, 10 10 5, 0 10 5 | 0 2 0, 10 2 10, 10 8 10, 0 8 0", "0 8 0, 10 8 10",
     "0.5-1"},
    {"FacesThroughEachOtherTheFlatOne", "0 0 5, 10 0 5, 10 10 5, 0 10 5 | 0 2 0, 10 2 10, 10 8 10, 0 8 0",
     "0 5 5, 10 5 5", "0-0.5"},
    {"SeenFromItsEdge", "0 0 0, 10 0 0, 10 0 9, 0 0 9", "5 -5 -5, 5 5 -5", "0-1"},
    {"WithoutArea", "0 0 5, 10 10 5, 5 5 5", "0 10 0, 10 0 0", "0-1"},
    {"OneCornerAlone", "3 3 5", "0 10 0, 10 0 0", "0-1"},
    {"TwoCornersAlone", "3 3 5, 4 4 5", "0 10 0, 10 0 0", "0-1"},
    {"NotANumber", "0 0 5, nan 0 5, 10 10 5", "0 5 0, 10 5 0", "0-1"},
    {"ALineWithoutLength", kTableTop, "5 5 0, 5 5 0", ""},
    {"ALineWithoutLengthBeside", kTableTop, "15 5 0, 15 5 0", "0-1"},
    {"AHole", "0 0 5, 20 0 5, 20 20 5, 0 20 5 / 5 5 5, 15 5 5, 15 15 5, 5 15 5", "0 10 0, 20 10 0", "0.25-0.75"},
    {"ANotch", "0 0 5, 20 0 5, 10 10 5, 20 20 5, 0 20 5", "0 10 0, 20 10 0", "0.5-1"},
    // Its corners don't lie in a plane: a triangle at z 5 and one that sinks to z -5 at (10, 0).
    {"ATwistedFace", "0 0 5, 10 10 5, 0 10 5, 0 5 5 | 0 0 5, 10 0 -5, 10 10 5, 0 10 5", "9 0.5 -20, 9 9.5 -20", ""},
    {"DustBetweenFaces", "0 0 5, 5 0 5, 5 10 5, 0 10 5 | 5.004 0 5, 10 0 5, 10 10 5, 5.004 10 5", "0 5 0, 10 5 0", ""},
};

INSTANTIATE_TEST_SUITE_P(Faces, HidingFacesTest, testing::ValuesIn(kFaceRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// A cube's corner by three bits, seen from the corner 7: x to the right is y - x, up is 2 z - x - y.
Vec3 CubeCorner(unsigned corner)
{
    const double x = 10.0 * (corner & 1U), y = 10.0 * (corner >> 1 & 1U), z = 10.0 * (corner >> 2 & 1U);
    return {y - x, 2 * z - x - y, x + y + z};
}

TEST(HidingFacesCubeTest, ShowsNineEdgesOfTwelve)
{
    std::uint64_t looks = 1'000'000;
    HidingFaces faces(kTestTolerance, looks);
    for (const unsigned axis : {1U, 2U, 4U}) {
        const unsigned right = axis == 1 ? 2 : 1;
        const unsigned up = 7U - axis - right;
        for (const unsigned side : {0U, axis}) {
            faces.Add(
                {{CubeCorner(side), CubeCorner(side | right), CubeCorner(side | right | up), CubeCorner(side | up)}});
        }
    }
    faces.Seal();
    std::string shown;
    for (unsigned from = 0; from < 8; ++from) {
        for (const unsigned axis : {1U, 2U, 4U}) {
            if ((from & axis) == 0) {
                shown += std::to_string(from) + std::to_string(from | axis) + ":" +
                         ShownOf(faces, CubeCorner(from), CubeCorner(from | axis)) + " ";
            }
        }
    }
    EXPECT_EQ(shown, "01: 02: 04: 13:0-1 15:0-1 23:0-1 26:0-1 37:0-1 45:0-1 46:0-1 57:0-1 67:0-1 ");
}

struct CoverRow {
    const char* name;
    const char* faces;
    const char* area; ///< its corners
    const char* cover;
};

class CoverTest : public testing::TestWithParam<CoverRow> {};

TEST_P(CoverTest, LeavesOutWhatFacesHide)
{
    std::uint64_t looks = 1'000'000;
    HidingFaces faces(kTestTolerance, looks);
    AddFacesFrom(GetParam().faces, faces);
    Path outline;
    const SpaceLoop corners = LoopFrom(GetParam().area);
    for (const Vec3 p : corners) {
        outline.Empty() ? outline.MoveTo({p.x, p.y}) : outline.LineTo({p.x, p.y});
    }
    outline.Close();
    const Cover cover = faces.CoverOf(outline, {0, 0, corners[0].z});
    std::string text = cover.whole ? "whole" : "";
    for (const Path& clip : cover.clips) {
        text += "[" + RecordingCanvas::Points(clip) + " ]";
    }
    EXPECT_EQ(text, GetParam().cover);
}

const CoverRow kCoverRows[] = {
    {"Beside", kTableTop, "20 0 0, 30 0 0, 30 10 0, 20 10 0", ""},
    {"InFront", kTableTop, "0 0 6, 10 0 6, 10 10 6, 0 10 6", ""},
    {"OnTheFace", kTableTop, "2 2 5, 8 2 5, 8 8 5, 2 8 5", ""},
    {"HalfBehind", kTableTop, "5 2 0, 15 2 0, 15 8 0, 5 8 0",
     "[ m 3 0 l 17 0 l 17 10 l 3 10 h m 10 1 l 10 9 l 4 9 l 4 1 h ]"},
    {"AllBehind", kTableTop, "2 2 0, 8 2 0, 8 8 0, 2 8 0",
     "whole[ m 0 0 l 10 0 l 10 10 l 0 10 h m 9 1 l 9 9 l 1 9 l 1 1 h ]"},
    // The face rises from z -5 to z 5: half of it lies above the area.
    {"ThroughTheArea", "0 0 -5, 10 0 5, 10 10 5, 0 10 -5", "0 2 0, 10 2 0, 10 8 0, 0 8 0",
     "[ m -2 0 l 12 0 l 12 10 l -2 10 h m 10 1 l 10 9 l 5 9 l 5 1 h ]"},
};

INSTANTIATE_TEST_SUITE_P(Areas, CoverTest, testing::ValuesIn(kCoverRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// Sheets over each other: every line lies beneath all of them, and none hides it whole.
TEST(HidingFacesBudgetTest, EndsWhereTheWorkIsTooMuch)
{
    std::uint64_t looks = 1'000'000;
    HidingFaces faces(kTestTolerance, looks);
    constexpr int kSheets = 20'000;
    for (int i = 0; i < kSheets; ++i) {
        const double z = i;
        faces.Add({{{0, 0, z}, {100, 0, z}, {100, 100, z}, {50, 0.001 * i, z}, {0, 100, z}}});
    }
    faces.Seal();
    int lines = 0;
    std::vector<LinePart> shown;
    while (!faces.Exhausted() && lines < 100) {
        faces.FindVisible({-10, 0.01 * lines, -1}, {110, 90, -1}, shown);
        ++lines;
    }
    EXPECT_EQ(lines, 2); // five corners of each sheet, looked at five times for a line
    EXPECT_EQ(ShownOf(faces, {1, 1, -1}, {2, 2, -1}), "0-1");
}

} // namespace
} // namespace sm::render
