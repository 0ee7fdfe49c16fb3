// SPDX-License-Identifier: GPL-3.0-or-later
// Marks are seen where they are picked.
#include "qt/WindowFixture.h"

#include <QCoreApplication>
#include <QEvent>
#include <QImage>

namespace sm::qt {
namespace {

using beside::PageMark;
using beside::PageMarkKind;

class FixedMarks final : public beside::ISheetList {
public:
    std::vector<PageMark> marks;
    std::optional<PageMark> stamp;
    [[nodiscard]] bool StandsBeside(const std::string&) const override { return false; }
    [[nodiscard]] beside::SheetsNow Now(const std::vector<FormControl>&) override { return {}; }
    void MakeCurrent(const std::string&) override {}
    std::string Tick(const std::string&, bool) override { return {}; }
    void TickAll() override {}
    std::string TickMeant(const std::string&) override { return {}; }
    [[nodiscard]] std::vector<PageMark> MarksOn(const std::string& layout) override
    {
        return layout == "A-101 Ground Floor" ? marks : std::vector<PageMark>();
    }
    [[nodiscard]] std::optional<PageMark> StampAtHand() override { return stamp; }
};

/// Pixels in the box that are much more red, or blue, than they are anything else.
std::pair<int, int> RedAndBlue(const QImage& image, const QRectF& box)
{
    int red = 0, blue = 0;
    for (int y = static_cast<int>(box.top()); y < box.bottom(); ++y)
        for (int x = static_cast<int>(box.left()); x < box.right(); ++x) {
            const QRgb pixel = image.valid(x, y) ? image.pixel(x, y) : 0;
            red += qRed(pixel) > qGreen(pixel) + 100 && qRed(pixel) > qBlue(pixel) + 100 ? 1 : 0;
            blue += qBlue(pixel) > qRed(pixel) + 60 ? 1 : 0;
        }
    return {red, blue};
}

class MarksInWindow : public DrawingWindowTest {
protected:
    MarksInWindow()
    {
        picker = CreateDrawingWindow({{}, SM_SOURCE_DIR "/share/sheetmaker-pdf", [this] { return &list; }});
        Open(std::string(SM_SOURCE_DIR) + "/samples/house.dxf");
        list.marks = {{PageMarkKind::Field, {10, 20}, {90, 60}, "Approved"}};
        list.stamp = PageMark{PageMarkKind::Stamp, {0, 0}, {0, 0}, "FOR REVIEW", "Helvetica-Bold", 12, 0x0000FF, 0};
    }
    FixedMarks list;
};

TEST_F(MarksInWindow, FieldsStandAndTheStampGoesAlong)
{
    PickPoint(1, [&] {
        const QRectF field = QRectF(PixelOf({10, 20}), PixelOf({90, 60})).normalized();
        const QPointF stamp = PixelOf({150, 30});
        const QRectF round(stamp - QPointF(2, 30), QSizeF(160, 32));
        Move(PixelOf({300, 200}), Qt::ShiftModifier);
        const QImage away = View().grab().toImage();
        Move(stamp, Qt::ShiftModifier);
        Shoot("marks-picked");
        const QImage there = View().grab().toImage();
        EXPECT_GT(RedAndBlue(there, round).first, RedAndBlue(away, round).first + 200);
        EXPECT_GT(RedAndBlue(there, field).second, 100);
        Key(Qt::Key_Escape);
    });
    list.stamp.reset();
    PickPoint(0, [&] {
        Move({300, 300}, Qt::ShiftModifier);
        EXPECT_EQ(RedAndBlue(View().grab().toImage(), QRectF(290, 260, 160, 40)).first, 0);
        Key(Qt::Key_Escape);
    });
}

TEST_F(MarksInWindow, TheRightButtonCancelsAndTheSizeIsKept)
{
    const Point point = PickPoint(1, [&] {
        Window().resize(800, 600);
        Settle();
        Press({300, 300}, Qt::RightButton);
    });
    EXPECT_EQ(point, std::nullopt);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    PickPoint(1, [&] {
        EXPECT_EQ(Window().size(), QSize(800, 600));
        Key(Qt::Key_Escape);
    });
}

} // namespace
} // namespace sm::qt
