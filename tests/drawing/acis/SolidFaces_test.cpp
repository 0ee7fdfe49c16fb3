// SPDX-License-Identifier: GPL-3.0-or-later
// The flat faces of solids, by the loops of their saves.
#include "acis/AcisCurves.h"

#include <gtest/gtest.h>

#include <string>

namespace sm::drawing::testing {
namespace {

struct SolidFaceRow {
    const char* name;
    const char* surface; ///< record 2
    const char* loop;    ///< record 1
    const char* coedges; ///< records 3 to 5
    const char* faces;   ///< corners, loops apart by '/'; then the faces of other forms
};

class SolidFacesTest : public ::testing::TestWithParam<SolidFaceRow> {};

std::string Rounded(double value)
{
    return std::to_string(static_cast<long>(value * 100 + (value < 0 ? -0.5 : 0.5)));
}

std::string TextOf(const SolidFaces& faces)
{
    std::string text;
    for (const auto& face : faces.flat) {
        for (const auto& loop : face) {
            for (const Vec3 p : loop)
                text += Rounded(p.x) + " " + Rounded(p.y) + " " + Rounded(p.z) + ", ";
            text += "/ ";
        }
    }
    return text + "others " + std::to_string(faces.others);
}

TEST_P(SolidFacesTest, HaveTheirCornersInOrder)
{
    const std::string save = std::string("400 16 1 0\n5 Tests 4 None 4 Date\n1 1e-06 1e-10\n") +
                             "face $-1 $-1 $1 $-1 $-1 $2 forward single #\n" + GetParam().loop + GetParam().surface +
                             GetParam().coedges +
                             "edge $-1 $9 $10 $3 $12 forward #\nedge $-1 $11 $10 $4 $12 forward #\n"
                             "edge $-1 $11 $9 $5 $12 forward #\nvertex $-1 $6 $13 #\nvertex $-1 $6 $14 #\n"
                             "vertex $-1 $7 $15 #\nstraight-curve $-1 0 0 0 1 0 0 I I #\npoint $-1 0 0 0 #\n"
                             "point $-1 4 0 0 #\npoint $-1 4 3 0 #\n";
    const AcisRecords records(save);
    EXPECT_EQ(TextOf(AcisCurves(records).Faces()), GetParam().faces);
}

constexpr const char* kPlane = "plane-surface $-1 0 0 0 0 0 1 1 0 0 forward_v I I I I #\n";
constexpr const char* kLoop = "loop $-1 $-1 $3 $0 #\n";
constexpr const char* kRound = "coedge $-1 $4 $5 $-1 $6 forward $1 $-1 #\ncoedge $-1 $5 $3 $-1 $7 reversed $1 $-1 #\n"
                               "coedge $-1 $3 $4 $-1 $8 forward $1 $-1 #\n";

const SolidFaceRow kSolidFaceRows[] = {
    {"Triangle", kPlane, kLoop, kRound, "0 0 0, 400 0 0, 400 300 0, 0 0 0, / others 0"},
    {"OnASphere", "sphere-surface $-1 0 0 0 5 1 0 0 0 0 1 forward_v I I I I #\n", kLoop, kRound, "others 1"},
    {"WithoutALoop", kPlane, "shell $-1 $-1 $0 #\n", kRound, "others 1"},
    {"WithoutASurface", "shell $-1 $-1 $0 #\n", kLoop, kRound, "others 1"},
    {"CoedgesThatNeverComeBack", kPlane, kLoop,
     "coedge $-1 $4 $5 $-1 $6 forward $1 $-1 #\ncoedge $-1 $5 $3 $-1 $7 reversed $1 $-1 #\n"
     "coedge $-1 $4 $4 $-1 $8 forward $1 $-1 #\n",
     "others 1"},
    {"ALoopAfterItself", kPlane, "loop $-1 $1 $3 $0 #\n", kRound, "others 1"},
};

INSTANTIATE_TEST_SUITE_P(Saves, SolidFacesTest, ::testing::ValuesIn(kSolidFaceRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::drawing::testing
