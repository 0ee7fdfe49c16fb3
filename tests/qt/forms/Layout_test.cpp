// SPDX-License-Identifier: GPL-3.0-or-later
// Windows fit their texts and the screen, whatever the font.
#include "qt/RecordingForm.h"

#include "forms/FormUnits.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace sm::qt {
namespace {

using enum ControlKind;

class Layout : public testing::Test {
protected:
    ~Layout() override { QApplication::setFont(m_font); }
    static void Enlarge(double factor)
    {
        QFont font = QApplication::font();
        font.setPointSizeF(font.pointSizeF() * factor);
        QApplication::setFont(font);
    }
    RecordingForm form;

private:
    QFont m_font = (TheScreen(), QApplication::font());
};

TEST_F(Layout, WhatFitsInUnitsFitsInPixels)
{
    const FormUnits units{1.85, 2.13};
    const ControlPlace outer{7, 7, 178, 42};
    for (std::int32_t left = 0; left < outer.width; ++left) {
        const ControlPlace inner{left, 0, outer.width - left, outer.height};
        EXPECT_LE(units.Rect(inner).right(), units.Rect(outer).width() - 1);
    }
}

TEST_F(Layout, GrowsUntilTheTightestCaptionFits)
{
    form.Add(CommandButton, "short", "OK", {5, 5, 50, 14});
    form.Show([] {});
    RecordingForm longer;
    longer.Add(CommandButton, "short", "OK", {5, 5, 50, 14});
    longer.Add(CommandButton, "long", "Einstellungen zurücksetzen", {60, 5, 50, 14});
    longer.Show([&] {
        auto* const button = QtUser::Find<QPushButton>("long");
        EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()) + 8);
        EXPECT_EQ(QtUser::Find("short")->width(), button->width()) << "what was alike stays alike";
        EXPECT_GE(QtUser::Window()->width(), 3 * button->width());
    });
}

TEST_F(Layout, GrowsWhenACaptionGetsLonger)
{
    form.Add(Label, "label", "mm", {5, 5, 20, 8});
    form.Show([&] {
        const int before = QtUser::Window()->width();
        form.Change(1, [](FormControl& control) { control.caption = "Drawing Units and more"; });
        auto* const label = QtUser::Find<QLabel>("label");
        EXPECT_GE(label->width(), label->sizeHint().width());
        EXPECT_GT(QtUser::Window()->width(), before);
    });
}

TEST_F(Layout, GivesAWrappingTextItsLines)
{
    form.Add(Label, "label",
             "The correct paper size was not available.  Please choose one from the list below, or two.",
             {5, 5, 80, 16});
    form.Show([&] {
        auto* const label = QtUser::Find<QLabel>("label");
        EXPECT_LE(label->heightForWidth(label->width()), label->height());
    });
}

TEST_F(Layout, MovesAControlThatTheFormMoves)
{
    form.Add(Picture, "box", "", {5, 5, 100, 80});
    form.Add(Image, "logo", "", {5, 0, 90, 40}, 1).picture = "logo";
    form.Show([&] {
        EXPECT_EQ(QtUser::Find("logo")->y(), 0);
        form.Change(2, [](FormControl& control) { control.place.top = 20; });
        EXPECT_NEAR(QtUser::Find("logo")->geometry().center().y(), QtUser::Find("box")->height() / 2, 2);
    });
}

TEST_F(Layout, FollowsTheDesktopsFontWhileItIsUp)
{
    form.Add(CommandButton, "button", "Get Point >", {5, 5, 60, 14});
    form.Show([&] {
        const QSize before = QtUser::Window()->size();
        Enlarge(2);
        QTest::qWait(20);
        EXPECT_GT(QtUser::Window()->width(), before.width() * 3 / 2);
        EXPECT_GT(QtUser::Window()->height(), before.height() * 3 / 2);
        EXPECT_LE(QtUser::Find("button")->fontMetrics().height() + 4, QtUser::Find("button")->height());
    });
}

TEST_F(Layout, ScrollsOnAScreenThatIsTooSmall)
{
    Enlarge(5);
    form.controls[0].place = {0, 0, 600, 300};
    form.Add(CommandButton, "first", "First", {5, 5, 60, 14});
    form.Add(CommandButton, "last", "Last", {535, 281, 60, 14});
    form.Show([&] {
        const QRect available = QtUser::Window()->screen()->availableGeometry();
        EXPECT_TRUE(available.contains(QtUser::Window()->frameGeometry()));
        EXPECT_GT(QtUser::Window()->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
        QtUser::Key(Qt::Key_Tab);
        EXPECT_EQ(QtUser::Focused(), "last");
        const QWidget& last = *QtUser::Find("last");
        const QRect seen(last.mapTo(QtUser::Window(), QPoint(0, 0)), last.size());
        EXPECT_TRUE(QtUser::Window()->rect().contains(seen)) << "the keyboard is never out of sight";
    });
}

} // namespace
} // namespace sm::qt
