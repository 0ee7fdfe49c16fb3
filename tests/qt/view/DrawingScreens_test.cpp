// SPDX-License-Identifier: GPL-3.0-or-later
// What drawings look like in the window: each is kept as a picture, and must show something.
#include "qt/WindowFixture.h"

#include <QApplication>
#include <QLabel>
#include <QToolButton>
#include <cstdlib>
#include <filesystem>
#include <ostream>

namespace sm::qt {
namespace {

struct ScreenCase {
    const char* name;
    const char* drawing; ///< of the samples, or of the shared drawings
    bool shared;
    std::size_t layout;
};

void PrintTo(const ScreenCase& row, std::ostream* out)
{
    *out << row.drawing << ", layout " << row.layout;
}

class DrawingScreens : public DrawingWindowTest, public ::testing::WithParamInterface<ScreenCase> {};

TEST_P(DrawingScreens, AreTaken)
{
    const ScreenCase& row = GetParam();
    const char* const shared = std::getenv("SM_SHARED_DRAWINGS");
    if (row.shared && shared == nullptr)
        GTEST_SKIP() << "the shared drawings aren't there";
    const std::string folder = row.shared ? shared : std::string(SM_SOURCE_DIR) + "/samples";
    Open(folder + "/" + row.drawing);
    PickPoint(row.layout, [&] {
        const QImage plain = View().grab().toImage();
        int inked = 0;
        for (int y = 0; y < plain.height(); ++y) {
            for (int x = 0; x < plain.width(); ++x)
                inked += qGray(plain.pixel(x, y)) < 128 ? 1 : 0;
        }
        EXPECT_GT(inked, 500);
        Shoot(std::string("drawing-") + row.name);
        for (const int notches : {20, 40, -30, -60}) { // as near and as far as one may get
            Wheel({500, 350}, notches);
            Settle();
            EXPECT_FALSE(View().grab().isNull());
        }
        Key(Qt::Key_Escape);
    });
}

/// Every part is as tall as its text and wide enough for it.
TEST_F(DrawingWindowTest, ALargerFontFits)
{
    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPointSizeF(2 * before.pointSizeF());
    QApplication::setFont(larger);
    Open(std::string(SM_SOURCE_DIR) + "/samples/house.dxf");
    PickPoint(1, [&] {
        Move({400, 300}, Qt::ShiftModifier);
        for (const QLabel* const label : Window().findChildren<QLabel*>())
            EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
        for (const QToolButton* const button : Window().findChildren<QToolButton*>())
            EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()))
                << button->text().toStdString();
        Shoot("drawing-house_ground-large_font");
        Key(Qt::Key_Escape);
    });
    QApplication::setFont(before);
}

INSTANTIATE_TEST_SUITE_P(OfDrawings, DrawingScreens,
                         ::testing::Values(ScreenCase{"house_model", "house.dxf", false, 0},
                                           ScreenCase{"house_ground", "house.dxf", false, 1},
                                           ScreenCase{"site", "site.dxf", false, 1},
                                           ScreenCase{"flange", "flange.dxf", false, 1},
                                           ScreenCase{"hatches", "entities/hatches_1.dxf", true, 0},
                                           ScreenCase{"images", "entities/images.dxf", true, 0},
                                           ScreenCase{"linetypes", "entities/linetypes.dxf", true, 0},
                                           ScreenCase{"inches", "layouts/floorplan.dxf", true, 1},
                                           ScreenCase{"scaled", "layouts/tray-easy1.dxf", true, 1},
                                           ScreenCase{"frozen", "layouts/viewport_frozen_layers.dxf", true, 1},
                                           ScreenCase{"board", "large/draft1.dxf", true, 0},
                                           ScreenCase{"text", "text/text_alignments.dxf", true, 0}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::qt
