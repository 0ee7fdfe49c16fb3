// SPDX-License-Identifier: GPL-3.0-or-later
// Marks that are dragged and edited in the drawing's window.
#include "qt/WindowFixture.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <cmath>
#include <fmt/format.h>

namespace sm::qt {
namespace {

using beside::PageMark;
using beside::PageMarkKind;

/// Two marks on one layout, and what was asked of them.
class TwoMarks final : public beside::IMarkBoard {
public:
    std::vector<std::string> told;
    std::vector<PageMark> marks{{PageMarkKind::Attachment, {120, 60}, {120, 60}, "/files/notes.txt"},
                                {PageMarkKind::Field, {20, 20}, {90, 60}, "Approved"}};

    [[nodiscard]] std::vector<PageMark> MarksOn(const std::string& layout) override
    {
        return layout == "A-101 Ground Floor" ? marks : std::vector<PageMark>();
    }
    std::string Move(const std::string& layout, std::size_t mark, Vec2 by) override
    {
        told.push_back(fmt::format("move {} {} {:.0f},{:.0f}", layout, mark, by.x, by.y));
        marks[mark].from = marks[mark].from + by;
        marks[mark].to = marks[mark].to + by;
        return {};
    }
    [[nodiscard]] std::vector<beside::MarkField> Fields(const std::string&, std::size_t mark) override
    {
        return {{"Title", marks[mark].text}};
    }
    std::string Change(const std::string&, std::size_t mark, const std::vector<std::string>& values) override
    {
        if (values.front().empty())
            return "A field has a title.";
        marks[mark].text = values.front();
        told.push_back(fmt::format("change {} {}", mark, values.front()));
        return {};
    }
};

class MarkEditing : public DrawingWindowTest {
protected:
    MarkEditing() { Open(std::string(SM_SOURCE_DIR) + "/samples/house.dxf"); }
    void Edit(std::size_t layout, const std::function<void()>& steps)
    {
        QTimer::singleShot(1, qApp, [&] {
            Settle();
            steps();
            QTest::keyClick(&View(), Qt::Key_Escape);
        });
        dynamic_cast<scene::IDrawingWindow&>(*picker).EditMarks(*drawing, layout, board);
    }
    static QComboBox& List() { return *Window().findChild<QComboBox*>("marks"); }
    static void DragTo(QPointF from, QPointF to)
    {
        Press(from);
        for (const QPointF& at : {from + QPointF(20, 5), to}) {
            QMouseEvent move(QEvent::MouseMove, at, View().mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                             Qt::NoModifier);
            QApplication::sendEvent(&View(), &move);
        }
        Shoot("mark-dragged");
        Release(to);
    }
    /// Types into the dialog's first line, then closes it.
    static void Enter(const QString& text, Qt::Key end)
    {
        QTimer::singleShot(20, qApp, [text, end] {
            auto* const dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->findChild<QLineEdit*>()->setText(text);
            QTest::keyClick(dialog, Qt::Key_Return);
            if (end != Qt::Key_Return) {
                dialog->grab().save(SM_SCREENS "/mark-refused.png");
                EXPECT_TRUE(dialog->findChild<QWidget*>("reason")->isVisible());
                QTest::keyClick(dialog, end);
            }
        });
    }
    TwoMarks board;
};

TEST_F(MarkEditing, AMarkIsDraggedAndThePlaceIsTold)
{
    Edit(1, [&] {
        EXPECT_EQ(List().count(), 2);
        EXPECT_EQ(List().itemText(0), "Attachment notes.txt");
        DragTo(PixelOf({50, 40}), PixelOf({150, 90}));
        EXPECT_EQ(board.told, std::vector<std::string>{"move A-101 Ground Floor 1 100,50"});
        EXPECT_EQ(List().currentIndex(), 1);
        Press(PixelOf({300, 200}));
        Release(PixelOf({310, 220}));
        EXPECT_EQ(List().currentIndex(), -1) << "nothing is there";
        Press(PixelOf({150, 90}));
        Release(PixelOf({150, 90}));
        EXPECT_EQ(board.told.size(), 1U) << "a press moves nothing";
    });
}

TEST_F(MarkEditing, ADoubleClickOrTheButtonEdits)
{
    Edit(1, [&] {
        Enter("Released", Qt::Key_Return);
        QTest::mouseDClick(&View(), Qt::LeftButton, {}, PixelOf({50, 40}).toPoint());
        EXPECT_EQ(board.told, std::vector<std::string>{"change 1 Released"});
        EXPECT_EQ(List().itemText(1), "Signature field Released");
        List().setCurrentIndex(0);
        Enter("", Qt::Key_Escape);
        QTest::mouseClick(Window().findChild<QPushButton*>("edit"), Qt::LeftButton);
        EXPECT_EQ(board.told.size(), 1U);
    });
}

TEST_F(MarkEditing, TabsAreTurnedAndAPickComesAfterwards)
{
    Edit(1, [&] {
        QTest::keyClick(&View(), Qt::Key_PageDown, Qt::ControlModifier);
        Settle();
        EXPECT_EQ(List().count(), 0);
        EXPECT_FALSE(Window().findChild<QPushButton*>("edit")->isEnabled());
    });
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "a question that follows has no owner that goes";
    const auto point = PickPoint(1, [&] { Press(PixelOf({50, 40})); });
    ASSERT_TRUE(point) << "the left button picks again";
    EXPECT_NEAR(point->x, 50, 12);
    EXPECT_TRUE(board.told.empty());
}

} // namespace
} // namespace sm::qt
