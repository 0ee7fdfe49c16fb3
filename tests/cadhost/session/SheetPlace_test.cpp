// SPDX-License-Identifier: GPL-3.0-or-later
// Where the sheet lies round a layout's drawing.
#include "cadhost/DxfText.h"
#include "cadhost/SheetPlace.h"
#include "drawing/Drawing.h"

#include <functional>
#include <gmock/gmock.h>

namespace sm::cadhost {
namespace {

struct PlaceCase {
    const char* name;
    std::function<void(DxfLayout&)> change;
    Box2 paper, printable;
    double millimetres;
};

TEST(SheetPlace, PaperLiesRoundThePrintableCorner)
{
    // The sheet is 420 x 297 mm with margins of 5, 17, 6 and 18 mm: left, bottom, right, top.
    const PlaceCase cases[] = {
        {"as it is", [](DxfLayout&) {}, {{-5, -17}, {415, 280}}, {{0, 0}, {409, 262}}, 1},
        {"turned", [](DxfLayout& it) { it.rotation = 1; }, {{-18, -5}, {279, 415}}, {{0, 0}, {262, 409}}, 1},
        {"upside down", [](DxfLayout& it) { it.rotation = 2; }, {{-6, -18}, {414, 279}}, {{0, 0}, {409, 262}}, 1},
        {"in inches",
         [](DxfLayout& it) { it.paperUnits = 0; },
         {{-5 / 25.4, -17 / 25.4}, {415 / 25.4, 280 / 25.4}},
         {{0, 0}, {409 / 25.4, 262 / 25.4}},
         25.4},
        {"with an origin",
         [](DxfLayout& it) {
             it.origin = {10, 20};
         },
         {{-15, -37}, {405, 260}},
         {{-10, -20}, {399, 242}},
         1},
        {"plotting something else",
         [](DxfLayout& it) {
             it.plotType = 1;
             it.origin = {10, 20};
         },
         {{-5, -17}, {415, 280}},
         {{0, 0}, {409, 262}},
         1},
    };
    for (const PlaceCase& row : cases) {
        DxfDrawing drawing;
        row.change(drawing.AddSheet("Ground"));
        const auto file = drawing::Drawing::FromBytes(drawing.Text(), "plan.dxf");
        const SheetPlace place = PlaceOfSheet(*file, file->Layouts().at(1));
        const auto expectNear = [&](const Box2& box, const Box2& expected, const char* what) {
            EXPECT_NEAR(box.min.x, expected.min.x, 1e-9) << row.name << ", " << what;
            EXPECT_NEAR(box.min.y, expected.min.y, 1e-9) << row.name << ", " << what;
            EXPECT_NEAR(box.max.x, expected.max.x, 1e-9) << row.name << ", " << what;
            EXPECT_NEAR(box.max.y, expected.max.y, 1e-9) << row.name << ", " << what;
        };
        expectNear(place.paper, row.paper, "paper");
        expectNear(place.printable, row.printable, "printable");
        EXPECT_NEAR(place.millimetres, row.millimetres, 1e-12) << row.name;
    }
}

TEST(SheetPlace, ALayoutWithoutPaperGetsSome)
{
    DxfDrawing drawing;
    DxfLayout& sheet = drawing.AddSheet("Ground");
    sheet.paperWidth = sheet.paperHeight = 0;
    drawing.header += Tag(9, "$MEASUREMENT") + Tag(70, "1");
    const auto file = drawing::Drawing::FromBytes(drawing.Text(), "plan.dxf");
    const SheetPlace place = PlaceOfSheet(*file, file->Layouts().at(1));
    EXPECT_EQ(place.paper.Width(), 297);
    EXPECT_EQ(place.paper.Height(), 210);
}

} // namespace
} // namespace sm::cadhost
