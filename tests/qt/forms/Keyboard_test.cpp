// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard alone: order, mnemonics, Enter and Escape, and fields that are left.
#include "qt/RecordingForm.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

namespace sm::qt {
namespace {

using enum ControlKind;
using Reports = RecordingForm::Reports;

class Keyboard : public testing::Test {
protected:
    Keyboard()
    {
        form.Add(Label, "lblName", "&Name:", {5, 5, 40, 8});
        form.Add(TextBox, "txtName", "", {50, 3, 60, 12});
        form.Add(TextBox, "txtOther", "", {50, 20, 60, 12});
        form.Add(CheckBox, "chkBox", "&Box", {5, 40, 60, 10});
        form.Add(CommandButton, "btnOK", "&OK", {5, 80, 50, 14}).isDefault = true;
        form.Add(CommandButton, "btnCancel", "Canc&el", {60, 80, 50, 14}).isCancel = true;
    }
    RecordingForm form;
};

TEST_F(Keyboard, TabGoesThroughTheTableAndRound)
{
    form.controls[3].tabIndex = 20; // last of all
    form.Show([&] {
        std::string order = QtUser::Focused();
        for (int i = 0; i < 5; ++i) {
            QtUser::Key(Qt::Key_Tab);
            order += " " + QtUser::Focused();
        }
        EXPECT_EQ(order, "txtName chkBox btnOK btnCancel txtOther txtName");
        QtUser::Key(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(QtUser::Focused(), "txtOther");
    });
}

TEST_F(Keyboard, SkipsWhatIsDisabledOrHidden)
{
    form.controls[3].enabled = false;
    form.controls[4].visible = false;
    form.Show([&] {
        QtUser::Key(Qt::Key_Tab);
        EXPECT_EQ(QtUser::Focused(), "btnOK");
    });
}

TEST_F(Keyboard, AMnemonicPressesItsButtonAfterTheFieldWasLeft)
{
    form.Show([&] {
        QtUser::Type("3");
        QtUser::Key(Qt::Key_E, Qt::AltModifier);
        // A button pressed by its key is seen to go down, and clicks a moment later.
        EXPECT_TRUE(QTest::qWaitFor([&] { return form.reports.size() >= 3; }));
        EXPECT_EQ(form.Take(), (Reports{"typed txtName '3' 1", "left txtName", "clicked btnCancel"}));
        QtUser::Key(Qt::Key_B, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return form.reports.size() >= 2; }));
        EXPECT_EQ(form.Take(), (Reports{"left btnCancel", "clicked chkBox"}));
    });
}

TEST_F(Keyboard, ALabelsMnemonicLeadsToTheFieldBesideIt)
{
    form.Show([&] {
        QtUser::Focus("btnOK");
        QtUser::Key(Qt::Key_N, Qt::AltModifier);
        EXPECT_EQ(QtUser::Focused(), "txtName");
    });
}

TEST_F(Keyboard, AMnemonicOfADisabledButtonDoesNothing)
{
    form.controls[6].enabled = false;
    form.Show([&] {
        form.Take();
        QtUser::Key(Qt::Key_E, Qt::AltModifier);
        QTest::qWait(200);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST_F(Keyboard, EnterIsTheFormsToUnderstand)
{
    for (const bool uses : {true, false}) {
        form.usesEnter = uses;
        form.Show([&] {
            QtUser::Focus("txtName");
            form.Take();
            QtUser::Key(Qt::Key_Return);
            QtUser::Key(Qt::Key_Enter, Qt::KeypadModifier);
            EXPECT_EQ(form.Take(), (Reports{"enter in txtName", "enter in txtName"}));
            QtUser::Focus("btnOK");
            form.Take();
            QtUser::Key(Qt::Key_Return);
            EXPECT_EQ(form.Take(), Reports{"enter in btnOK"}) << "no press of the toolkit's own";
            EXPECT_TRUE(QtUser::Window()->isVisible());
        });
    }
}

TEST_F(Keyboard, EscapeIsTheFormsToUnderstand)
{
    form.usesEnter = false;
    form.Show([&] {
        for (const char* name : {"txtName", "chkBox", "btnOK"}) {
            QtUser::Focus(name);
            form.Take();
            QtUser::Key(Qt::Key_Escape);
            EXPECT_EQ(form.Take(), Reports{"escape"}) << name;
        }
        EXPECT_TRUE(QtUser::Window()->isVisible()) << "neither key closes a window by itself";
    });
}

TEST_F(Keyboard, AKeyThatIsHeldCountsOnce)
{
    form.Show([&] {
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
        QApplication::sendEvent(QtUser::Find("txtName"), &repeated);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST_F(Keyboard, LeavingTheWindowLeavesNoField)
{
    form.Show([&] {
        QWidget other;
        QtUser::Focus("txtName");
        form.Take();
        other.show();
        other.activateWindow();
        QtUser::Rest();
        QtUser::Window()->activateWindow();
        QtUser::Rest();
        EXPECT_EQ(form.Take(), Reports{});
        QtUser::Key(Qt::Key_Tab);
        EXPECT_EQ(form.Take(), Reports{"left txtName"});
    });
}

TEST_F(Keyboard, AFieldThatTheFormTakesAwayIsntLeft)
{
    form.Show([&] {
        QtUser::Focus("txtName");
        form.Take();
        form.Change(2, [](FormControl& control) { control.enabled = false; });
        EXPECT_EQ(form.Take(), Reports{});
        EXPECT_NE(QtUser::Focused(), "txtName");
    });
}

} // namespace
} // namespace sm::qt
