// SPDX-License-Identifier: GPL-3.0-or-later
// What users expect of any window: F1, Delete and Return on rows, options, numbers, buttons in view.
#include "qt/RecordingForm.h"

#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QScrollArea>

namespace sm::qt {
namespace {

using enum ControlKind;
using Reports = RecordingForm::Reports;

class Habits : public testing::Test {
protected:
    ~Habits() override { QLocale::setDefault(QLocale::c()); }
    RecordingForm form;
};

TEST_F(Habits, F1PressesHelp)
{
    form.Add(TextBox, "txt", "", {5, 5, 60, 12});
    form.Add(CommandButton, "btnHelp", "&Help", {5, 80, 50, 14});
    form.Show([&] {
        QtUser::Focus("txt");
        form.Take();
        QtUser::Key(Qt::Key_F1);
        EXPECT_EQ(form.Take(), Reports{"clicked btnHelp"});
        form.Change(2, [](FormControl& control) { control.enabled = false; });
        QtUser::Key(Qt::Key_F1);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST_F(Habits, DeleteAndReturnWorkOnRows)
{
    form.Add(Frame, "fme", "Rows", {5, 5, 190, 70});
    FormControl& list = form.Add(ListView, "lst", "", {5, 10, 100, 50}, 1);
    list.columns = {{"Name", 80}};
    list.rows = {{"first", {}}, {"second", {}}};
    list.selection = 1;
    form.Add(CommandButton, "btnOther", "Delete", {5, 80, 50, 14});
    form.Add(CommandButton, "btnDelete", "&Delete", {120, 10, 50, 14}, 1);
    form.handled = {{2, FormEvent::DoubleClick}};
    form.Show([&] {
        QtUser::Focus("lst");
        form.Take();
        QtUser::Key(Qt::Key_Delete);
        EXPECT_EQ(form.Take(), Reports{"clicked btnDelete"}) << "the one beside the list";
        QtUser::Key(Qt::Key_Return);
        EXPECT_EQ(form.Take(), Reports{"double-clicked lst 1"});
        QtUser::Focus("btnOther");
        form.Take();
        QtUser::Key(Qt::Key_Delete);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST_F(Habits, TabComesToTheTickedOption)
{
    form.Add(TextBox, "txt", "", {5, 5, 60, 12});
    form.Add(Frame, "fme", "Options", {5, 20, 190, 50});
    for (const char* name : {"optA", "optB", "optC"})
        form.Add(OptionButton, name, name, {5, static_cast<std::int32_t>(10 * form.controls.size()) - 25, 60, 10}, 2);
    form.controls[4].value = 1;
    form.Add(CommandButton, "btn", "Press", {5, 80, 50, 14});
    form.Show([&] {
        QtUser::Focus("txt");
        QtUser::Key(Qt::Key_Tab);
        EXPECT_EQ(QtUser::Focused(), "optB");
        form.Take();
        QtUser::Key(Qt::Key_Tab);
        EXPECT_EQ(QtUser::Focused(), "btn");
        EXPECT_TRUE(form.Take().empty() || form.controls[4].value == 1) << "nothing was chosen on the way";
        form.Change(4, [](FormControl& control) { control.value = 0; });
        form.Change(5, [](FormControl& control) { control.value = 1; });
        QtUser::Focus("txt");
        QtUser::Key(Qt::Key_Tab);
        EXPECT_EQ(QtUser::Focused(), "optC");
    });
}

TEST_F(Habits, TheLocalesDecimalSignBecomesAPointInNumbers)
{
    QLocale::setDefault(QLocale(QLocale::German));
    form.Add(TextBox, "txtNumber", "", {5, 5, 60, 12});
    form.Add(TextBox, "txtWords", "", {5, 25, 60, 12});
    form.handled = {{1, FormEvent::LostFocus}};
    form.Show([&] {
        for (const char* name : {"txtNumber", "txtWords"}) {
            QtUser::Focus(name);
            QtUser::Type("1,5");
        }
        EXPECT_EQ(QtUser::Find<QLineEdit>("txtNumber")->text(), "1.5");
        EXPECT_EQ(form.controls[1].text, "1.5");
        EXPECT_EQ(QtUser::Find<QLineEdit>("txtWords")->text(), "1,5");
    });
}

TEST_F(Habits, ANoticeStandsWhereAnEntryWould)
{
    FormControl& combo = form.Add(ComboBox, "cmb", "", {5, 5, 100, 12});
    combo.items = {"None", "grayscale.ctb"};
    combo.notice = "Gone.ctb (missing)";
    form.Show([&] {
        const auto* const widget = QtUser::Find<QComboBox>("cmb");
        EXPECT_EQ(widget->currentIndex(), -1);
        EXPECT_EQ(widget->placeholderText(), "Gone.ctb (missing)");
        EXPECT_EQ(widget->toolTip(), "Gone.ctb (missing)");
        EXPECT_EQ(widget->accessibleDescription(), "Gone.ctb (missing)");
        QtUser::Window()->grab().save(SM_SCREENS "/combo-notice.png");
        form.Change(1, [](FormControl& control) { control.selection = 1; });
        EXPECT_EQ(widget->placeholderText(), "");
        EXPECT_EQ(widget->currentText(), "grayscale.ctb");
        EXPECT_EQ(widget->count(), 2);
    });
}

TEST_F(Habits, ButtonsStayInViewWhereTheScreenIsTooLow)
{
    form.controls[0].place = {0, 0, 200, 1400};
    form.Add(Frame, "fme", "Much", {5, 5, 190, 1350});
    form.Add(CommandButton, "btnOK", "&OK", {5, 1370, 50, 14});
    form.Add(CommandButton, "btnHidden", "Not there", {60, 1370, 50, 14}).visible = false;
    form.Show([&] {
        QWidget* const window = QtUser::Window();
        const QWidget* const button = QtUser::Find("btnOK");
        const QPoint low = button->mapTo(window, QPoint(0, button->height()));
        EXPECT_LE(low.y(), window->height());
        EXPECT_GE(low.y(), window->height() - 60);
        EXPECT_LE(window->height(), window->screen()->availableGeometry().height());
        EXPECT_FALSE(QtUser::Find("btnHidden")->isVisible());
        form.Take();
        QtUser::Press("btnOK");
        EXPECT_EQ(form.Take(), Reports{"clicked btnOK"});
        EXPECT_FALSE(button->visibleRegion().isEmpty());
    });
}

} // namespace
} // namespace sm::qt
