// SPDX-License-Identifier: GPL-3.0-or-later
// Each kind of control, both ways: what the form says is shown, what the user does is reported.
#include "qt/RecordingForm.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>

namespace sm::qt {
namespace {

using enum ControlKind;
using Reports = RecordingForm::Reports;

TEST(TextBoxes, ReportWhatIsTypedAndWhereTheCaretIs)
{
    RecordingForm form;
    form.Add(TextBox, "box", "", {10, 10, 100, 12}).text = "ab";
    form.Show([&] {
        auto* const edit = QtUser::Find<QLineEdit>("box");
        EXPECT_EQ(edit->text(), "ab");
        EXPECT_EQ(edit->cursorPosition(), 0);
        QtUser::Focus("box");
        QtUser::Key(Qt::Key_Right);
        QtUser::Type("\xC3\xA9");
        QtUser::Key(Qt::Key_End);
        QtUser::Key(Qt::Key_Backspace);
        EXPECT_EQ(form.Take(), (Reports{"caret box 1",
                                        "typed box 'a\xC3\xA9"
                                        "b' 3",
                                        "caret box 4", "typed box 'a\xC3\xA9' 3"}));
    });
}

TEST(TextBoxes, ShowTextAndCaretOfTheForm)
{
    RecordingForm form;
    form.Add(TextBox, "box", "", {10, 10, 100, 12});
    form.Show([&] {
        QtUser::Focus("box");
        form.Take();
        form.Change(1, [](FormControl& box) {
            box.text = "\xC3\xA9[User]!";
            box.caret = 8;
        });
        auto* const edit = QtUser::Find<QLineEdit>("box");
        EXPECT_EQ(edit->text().toStdString(), "\xC3\xA9[User]!");
        EXPECT_EQ(edit->cursorPosition(), 7);
        EXPECT_EQ(form.Take(), Reports{}) << "what the form does isn't told to it";
        QtUser::Type("x");
        EXPECT_EQ(form.Take(), Reports{"typed box '\xC3\xA9[User]x!' 9"});
    });
}

TEST(TextBoxes, ShowTheBackgroundTheyAreGiven)
{
    RecordingForm form;
    form.Add(TextBox, "box", "", {10, 10, 100, 12}).backColor = {ColorRole::Window, 0};
    form.Show([&] {
        const QPalette usual = QApplication::palette();
        auto* const edit = QtUser::Find<QLineEdit>("box");
        EXPECT_EQ(edit->palette().color(QPalette::Base), usual.color(QPalette::Base));
        form.Change(1, [](FormControl& box) { box.backColor = {ColorRole::ButtonFace, 0}; });
        EXPECT_EQ(edit->palette().color(QPalette::Base), usual.color(QPalette::Button));
        form.Change(1, [](FormControl& box) { box.backColor = {ColorRole::Explicit, 0x102030}; });
        EXPECT_EQ(edit->palette().color(QPalette::Base).name(), "#302010");
    });
}

TEST(CheckBoxes, ChangeOverWhenTheFormAgrees)
{
    RecordingForm form;
    form.Add(CheckBox, "box", "Tick", {10, 10, 100, 10});
    form.Show([&] {
        auto* const box = QtUser::Find<QCheckBox>("box");
        QtUser::Press("box");
        EXPECT_TRUE(box->isChecked());
        QtUser::Key(Qt::Key_Space);
        EXPECT_FALSE(box->isChecked());
        EXPECT_EQ(form.Take(), (Reports{"clicked box", "clicked box"}));
        form.refuses = true;
        QtUser::Press("box");
        EXPECT_FALSE(box->isChecked()) << "the widget shows what the form holds";
        form.Take();
        form.Change(1, [](FormControl& control) { control.value = 1; });
        EXPECT_TRUE(box->isChecked());
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST(Options, AreOneGroupForEachParent)
{
    RecordingForm form;
    const std::size_t left = form.controls.size();
    form.Add(Frame, "left", "Left", {5, 5, 90, 90});
    form.Add(OptionButton, "a", "A", {6, 12, 60, 10}, left).value = 1;
    form.Add(OptionButton, "b", "B", {6, 26, 60, 10}, left);
    const std::size_t right = form.controls.size();
    form.Add(Frame, "right", "Right", {100, 5, 90, 90});
    form.Add(OptionButton, "c", "C", {6, 12, 60, 10}, right);
    form.Add(OptionButton, "d", "D", {6, 26, 60, 10}, right).value = 1;
    const auto ticked = [] {
        std::string names;
        for (const char* name : {"a", "b", "c", "d"})
            names += QtUser::Find<QRadioButton>(name)->isChecked() ? name : "";
        return names;
    };
    form.Show([&] {
        EXPECT_EQ(ticked(), "ad");
        QtUser::Press("b");
        EXPECT_EQ(ticked(), "bd");
        QtUser::Key(Qt::Key_Up);
        EXPECT_EQ(ticked(), "ad") << "arrows move inside the group";
        EXPECT_EQ(form.Take(), (Reports{"left a", "clicked b", "clicked a", "left b"}));
        form.Change(2, [](FormControl& option) { option.value = 0; });
        EXPECT_EQ(ticked(), "d") << "a group without a choice";
        EXPECT_EQ(form.Take(), Reports{});
        form.refuses = true;
        QtUser::Press("b");
        EXPECT_EQ(ticked(), "d");
    });
}

TEST(Combos, OfferTheItemsAndReportTheUsersChoice)
{
    RecordingForm form;
    FormControl& list = form.Add(ComboBox, "list", "", {10, 10, 100, 12});
    list.items = {"one", "t&wo", "three"};
    list.selection = -1;
    form.Show([&] {
        auto* const combo = QtUser::Find<QComboBox>("list");
        EXPECT_EQ(combo->count(), 3);
        EXPECT_EQ(combo->currentIndex(), -1);
        EXPECT_FALSE(combo->isEditable());
        QtUser::Focus("list");
        QtUser::Key(Qt::Key_Down);
        QtUser::Type("th");
        EXPECT_EQ(form.Take(), (Reports{"selected list 0", "selected list 1", "selected list 2"}));
        form.Change(1, [](FormControl& control) {
            control.items = {"x", "y"};
            control.selection = 1;
        });
        EXPECT_EQ(combo->currentText(), "y");
        form.Change(1, [](FormControl& control) { control.selection = -1; });
        EXPECT_EQ(combo->currentIndex(), -1);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST(Combos, KeepEnterAndEscapeForTheirOpenList)
{
    RecordingForm form;
    form.Add(ComboBox, "list", "", {10, 10, 100, 12}).items = {"one", "two"};
    form.Show([&] {
        auto* const combo = QtUser::Find<QComboBox>("list");
        QtUser::Focus("list");
        combo->showPopup();
        QTest::keyClick(combo->view(), Qt::Key_Down);
        QTest::keyClick(combo->view(), Qt::Key_Return);
        EXPECT_EQ(form.Take().size(), 1U) << "the choice, and no Enter in the form";
        combo->showPopup();
        QTest::keyClick(combo->view(), Qt::Key_Escape);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST(Combos, LetTheWheelPassUnlessTheyHaveTheKeyboard)
{
    RecordingForm form;
    form.Add(CommandButton, "button", "Button", {10, 40, 60, 14});
    FormControl& list = form.Add(ComboBox, "list", "", {10, 10, 100, 12});
    list.items = {"one", "two"};
    list.selection = 0;
    const auto turn = [](QWidget* widget) {
        QWheelEvent event({5, 5}, widget->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
    };
    form.Show([&] {
        QtUser::Focus("button");
        turn(QtUser::Find("list"));
        EXPECT_EQ(form.Take(), Reports{});
        QtUser::Focus("list");
        form.Take();
        turn(QtUser::Find("list"));
        EXPECT_EQ(form.Take(), Reports{"selected list 1"});
    });
}

TEST(ListBoxes, ReportTheRow)
{
    RecordingForm form;
    form.Add(ListBox, "list", "", {10, 10, 100, 50}).items = {"one", "two"};
    form.Show([&] {
        QtUser::Focus("list");
        QtUser::Key(Qt::Key_End);
        EXPECT_EQ(form.Take(), Reports{"selected list 1"});
        form.Change(1, [](FormControl& control) { control.selection = 0; });
        EXPECT_EQ(QtUser::Find<QListWidget>("list")->currentRow(), 0);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

class ListViews : public testing::Test {
protected:
    ListViews()
    {
        FormControl& list = form.Add(ListView, "list", "", {10, 10, 180, 80});
        list.columns = {{"Name", 60}, {"X", 40}};
        list.rows = {{"first", {"1.00"}}, {"second", {"2.00"}}};
    }
    static QPoint RowAt(QTreeWidget& list, int row) { return list.visualItemRect(list.topLevelItem(row)).center(); }
    RecordingForm form;
};

TEST_F(ListViews, ShowHeadersAndRows)
{
    form.Show([&] {
        auto* const list = QtUser::Find<QTreeWidget>("list");
        EXPECT_EQ(list->headerItem()->text(0), "Name");
        EXPECT_EQ(list->headerItem()->text(1), "X");
        EXPECT_GT(list->columnWidth(0), list->header()->sectionSizeHint(0) - 1);
        EXPECT_EQ(list->topLevelItem(1)->text(0), "second");
        EXPECT_EQ(list->topLevelItem(1)->text(1), "2.00");
        EXPECT_TRUE(list->selectedItems().isEmpty());
        form.Change(1, [](FormControl& control) {
            control.rows = {{"only", {"3.00"}}};
            control.selection = 0;
        });
        EXPECT_EQ(list->topLevelItemCount(), 1);
        EXPECT_EQ(list->topLevelItem(0)->text(1), "3.00");
        EXPECT_EQ(list->selectedItems().size(), 1);
        form.Change(1, [](FormControl& control) {
            control.rows.clear();
            control.selection = -1;
        });
        EXPECT_EQ(list->topLevelItemCount(), 0);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST_F(ListViews, ReportChoiceDoubleClickAndNoChoice)
{
    form.Show([&] {
        auto* const list = QtUser::Find<QTreeWidget>("list");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, RowAt(*list, 1));
        EXPECT_EQ(form.Take(), Reports{"selected list 1"});
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, RowAt(*list, 0));
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, RowAt(*list, 0));
        EXPECT_EQ(form.Take(), (Reports{"selected list 0", "double-clicked list 0"}));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(5, list->viewport()->height() - 2));
        EXPECT_EQ(form.Take(), Reports{"selected list -1"});
        QtUser::Focus("list");
        QtUser::Key(Qt::Key_Down);
        EXPECT_EQ(form.Take(), Reports{"selected list 1"}) << "the keyboard goes on from where the mouse was";
    });
}

TEST(Buttons, ReportOncePerPress)
{
    RecordingForm form;
    form.Add(CommandButton, "ok", "&OK", {10, 10, 60, 14});
    form.Add(ColorButton, "color", "", {80, 10, 60, 14}).backColor = {ColorRole::Explicit, 0x0000FF};
    form.Add(Toolbar, "bar", "", {10, 30, 100, 16});
    form.Add(ToolButton, "tool", "User", {0, 1, 40, 14}, 3);
    form.Add(TextBox, "box", "", {10, 50, 60, 12});
    form.Show([&] {
        QtUser::Focus("box");
        form.Take();
        QtUser::Press("tool");
        EXPECT_EQ(form.Take(), Reports{"clicked tool"});
        EXPECT_EQ(QtUser::Focused(), "box") << "what is typed goes on after the insertion";
        QtUser::Press("ok");
        QtUser::Press("color");
        QtUser::Key(Qt::Key_Space);
        EXPECT_EQ(form.Take(), (Reports{"left box", "clicked ok", "left ok", "clicked color", "clicked color"}));
    });
}

TEST(Buttons, ShowTheirColor)
{
    RecordingForm form;
    FormControl& button = form.Add(ColorButton, "color", "", {10, 10, 60, 14});
    button.backColor = {ColorRole::Explicit, 0x0000FF};
    form.Show([&] {
        QWidget* const widget = QtUser::Find("color");
        const auto middle = [&] {
            return widget->grab().toImage().pixelColor(widget->width() / 2, widget->height() / 2);
        };
        EXPECT_EQ(middle().name(), "#ff0000") << "red lies in the low byte";
        form.Change(1, [](FormControl& control) { control.backColor.rgb = 0xFF0000; });
        EXPECT_EQ(middle().name(), "#0000ff");
        EXPECT_EQ(widget->accessibleDescription(), "#0000ff");
        form.Change(1, [](FormControl& control) { control.enabled = false; });
        EXPECT_NE(middle().name(), "#0000ff") << "paler when it can't be pressed";
    });
}

TEST(Images, ArePressedWhereSomethingHappens)
{
    RecordingForm form;
    form.Add(CommandButton, "ok", "OK", {10, 70, 60, 14});
    form.Add(Picture, "box", "", {10, 10, 100, 50});
    form.Add(Image, "logo", "", {5, 5, 90, 40}, 2).picture = "logo";
    form.Add(Image, "sign", "", {120, 10, 21, 20}).picture = "warning";
    form.clickable = 3;
    form.Show([&] {
        QtUser::Press("logo");
        QtUser::Focus("ok");
        QtUser::Key(Qt::Key_Tab);
        EXPECT_EQ(QtUser::Focused(), "logo") << "the keyboard gets there, too";
        QtUser::Key(Qt::Key_Space);
        QtUser::Press("sign");
        EXPECT_EQ(form.Take(), (Reports{"left ok", "clicked logo", "left logo", "left ok", "clicked logo"}));
        EXPECT_EQ(QtUser::Find("sign")->accessibleName(), "Warning");
    });
}

TEST(Tabs, ShowThePageInFront)
{
    RecordingForm form;
    form.Add(TabStrip, "tabs", "", {5, 5, 190, 90}).selection = 0;
    form.Add(TabPage, "one", "One", {0, 0, 182, 70}, 1);
    form.Add(TabPage, "two", "Two", {0, 0, 182, 70}, 1);
    form.Add(TextBox, "first", "", {10, 10, 60, 12}, 2);
    form.Add(TextBox, "second", "", {10, 10, 60, 12}, 3);
    form.Show([&] {
        auto* const tabs = QtUser::Find<QTabWidget>("tabs");
        EXPECT_EQ(tabs->tabText(1), "Two");
        EXPECT_TRUE(QtUser::Find("first")->isVisible());
        QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(1).center());
        EXPECT_TRUE(QtUser::Find("second")->isVisible());
        EXPECT_EQ(form.Take(), Reports{"selected tabs 1"});
        QtUser::Key(Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(form.Take(), Reports{"selected tabs 0"});
        form.Change(1, [](FormControl& control) { control.selection = 1; });
        EXPECT_TRUE(QtUser::Find("second")->isVisible());
        EXPECT_EQ(form.Take(), Reports{});
        form.refuses = true;
        QtUser::Key(Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(tabs->currentIndex(), 1) << "the page that the form has in front stays there";
    });
}

TEST(EveryKind, ShowsCaptionsAndStates)
{
    RecordingForm form;
    form.Add(Frame, "frame", "Frame", {5, 5, 90, 40});
    form.Add(Label, "label", "Inches", {6, 12, 50, 8}, 1);
    form.Add(ProgressBar, "bar", "", {100, 10, 80, 12}).value = 30;
    form.Add(Timer, "timer", "", {});
    form.Add(CheckBox, "box", "Box", {100, 30, 60, 10}).visible = false;
    form.Show([&] {
        EXPECT_EQ(QtUser::Window()->windowTitle(), "A form");
        EXPECT_EQ(QtUser::Find<QGroupBox>("frame")->title(), "Frame");
        EXPECT_EQ(QtUser::Find<QProgressBar>("bar")->value(), 30);
        EXPECT_EQ(QtUser::Window()->findChild<QWidget*>("timer"), nullptr);
        EXPECT_FALSE(QtUser::Find("box")->isVisible());
        form.Change(0, [](FormControl& control) { control.caption = "Another"; });
        form.Change(2, [](FormControl& control) { control.caption = "mm"; });
        form.Change(1, [](FormControl& control) { control.enabled = false; });
        form.Change(3, [](FormControl& control) { control.value = 31; });
        form.Change(5, [](FormControl& control) { control.visible = true; });
        EXPECT_EQ(QtUser::Window()->windowTitle(), "Another");
        EXPECT_EQ(QtUser::Find<QLabel>("label")->text(), "mm");
        EXPECT_FALSE(QtUser::Find("label")->isEnabled()) << "with the frame that it stands in";
        EXPECT_EQ(QtUser::Find<QProgressBar>("bar")->value(), 31);
        EXPECT_TRUE(QtUser::Find("box")->isVisible());
        form.view->ControlChanged(77);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

} // namespace
} // namespace sm::qt
