// SPDX-License-Identifier: GPL-3.0-or-later
// The whole settings dialog on real widgets, over the house of doubles: what is clicked and typed is what is stored.
#include "qt/QtUser.h"

#include "doubles/TestHouse.h"
#include "ui/FormWindows.h"
#include "ui/mdlGUITap.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeWidget>

namespace sm::qt {
namespace {

using Texts = std::vector<std::string>;

class SettingsWalk : public TestHouse {
protected:
    SettingsWalk() { BeginCall(); }
    std::int32_t Show(const std::function<void()>& user)
    {
        WhenShown(user);
        return ShowConversionSettings(context, TheScreen().Toolkit());
    }
    static void Turn(int page)
    {
        auto* const bar = QtUser::Find<QTabWidget>("tabPDFMaker")->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(page).center());
    }
    static void Choose(const std::string& combo, const std::string& item)
    {
        auto* const list = QtUser::Find<QComboBox>(combo);
        QtUser::Focus(combo);
        QTest::keyClick(list, Qt::Key_Home);
        for (int i = 0; i < list->count() && list->currentText().toStdString() != item; ++i)
            QTest::keyClick(list, Qt::Key_Down);
        EXPECT_EQ(list->currentText().toStdString(), item);
    }
    static void Retype(const std::string& box, const char* text)
    {
        QtUser::Focus(box);
        QTest::keyClick(QtUser::Find(box), Qt::Key_A, Qt::ControlModifier);
        QtUser::Type(text);
    }
    static std::string TextOf(const std::string& box) { return QtUser::Find<QLineEdit>(box)->text().toStdString(); }
    [[nodiscard]] Texts Record(const std::string& name) const
    {
        Texts texts;
        const auto found = drawing->XData.find("TWSI_" + name);
        if (found == drawing->XData.end())
            return {"(absent)"};
        for (const AcadVariant& value : found->second.values)
            texts.push_back(std::get<std::string>(value));
        return texts;
    }
};

TEST_F(SettingsWalk, CreatePdfStoresWhatWasClickedOnEachTab)
{
    EXPECT_EQ(Show([] {
                  QtUser::Press("optCurrentTab");
                  QtUser::Press("chkFileName");
                  Turn(2);
                  Choose("cmbStampText", QtUser::Find<QComboBox>("cmbStampText")->itemText(2).toStdString());
                  Retype("txtStampX", "12.5");
                  QtUser::Key(Qt::Key_Tab);
                  EXPECT_EQ(TextOf("txtStampX"), "12.50") << "formatted when it is left";
                  Turn(3);
                  WhenShown([] {
                      Retype("txtAttachFile", "C:\\Docs\\a.txt");
                      Retype("txtAttachX", "3");
                      QtUser::Key(Qt::Key_Return);
                      EXPECT_EQ(TextOf("txtAttachX"), "3.00") << "Enter formats, and doesn't press OK";
                      QtUser::Press("btnOK");
                  });
                  QtUser::Press("btnAttachAdd");
                  auto* const rows = QtUser::Find<QTreeWidget>("lstAttach");
                  EXPECT_EQ(rows->topLevelItem(0)->text(0), "a.txt");
                  EXPECT_EQ(rows->topLevelItem(0)->text(2), "3.00");
                  EXPECT_TRUE(QtUser::Find("btnAttachDelete")->isEnabled());
                  QtUser::Press("btnPDF");
              }),
              1);
    EXPECT_EQ(Setting("WhatToPlot"), "0");
    EXPECT_EQ(Setting("Stamp1"), "DRAFT PRINT");
    EXPECT_EQ(Record("Attachs"), (Texts{"TWSI_Attachs", "a.txt", "C:\\Docs\\a.txt", "3", "0", "Ground"}));
    (void)Log();
}

TEST_F(SettingsWalk, EscapeAndCloseBoxStoreNothing)
{
    for (const auto& leave :
         {std::function<void()>([] { QtUser::Key(Qt::Key_Escape); }), std::function<void()>([] { QtUser::Close(); })}) {
        EXPECT_EQ(Show([&] {
                      QtUser::Press("chkFileName");
                      leave();
                  }),
                  0);
    }
    EXPECT_EQ(Setting("PromptForFileName"), "(absent)");
    EXPECT_TRUE(drawing->XData.empty());
    (void)Log();
}

TEST_F(SettingsWalk, MacrosAreInsertedWhereTheCaretStands)
{
    Show([] {
        Turn(2);
        Choose("cmbStampText", QtUser::Find<QComboBox>("cmbStampText")->itemText(2).toStdString());
        WhenShown([] {
            Retype("txtCustomStamp", "by , today");
            QTest::keyClick(QtUser::Find("txtCustomStamp"), Qt::Key_Home);
            for (int i = 0; i < 3; ++i)
                QTest::keyClick(QtUser::Find("txtCustomStamp"), Qt::Key_Right);
            QtUser::Press("btnUser");
            EXPECT_EQ(TextOf("txtCustomStamp"), "by &[User], today");
            QtUser::Type("!");
            EXPECT_EQ(TextOf("txtCustomStamp"), "by &[User]!, today") << "typing goes on behind the macro";
            QtUser::Press("btnOk");
        });
        QtUser::Press("btnStampEdit");
        EXPECT_EQ(QtUser::Find<QComboBox>("cmbStampText")->currentText().toStdString(), "by R. Draughtsman!, today");
        QtUser::Press("btnCancel");
    });
    (void)Log();
}

TEST_F(SettingsWalk, PickersTakeKeyboardAndMouse)
{
    const auto forms = CreateFormWindows(context, TheScreen().Toolkit());
    const Texts names = {"first", "second", "third"};
    WhenShown([] {
        Choose("cmbPlotStyle", "third");
        QtUser::Key(Qt::Key_Return);
    });
    EXPECT_EQ(forms->PickPlotStyle(names), 2);
    WhenShown([] { QtUser::Press("btnCancel"); });
    EXPECT_EQ(forms->PickJobOptions(names), std::nullopt);
    WhenShown([] { QtUser::Close(); });
    EXPECT_EQ(forms->PickPageSize(names), std::nullopt);
}

TEST_F(SettingsWalk, TheProgressWindowStandsUntilTheScanIsDone)
{
    const auto forms = CreateFormWindows(context, TheScreen().Toolkit());
    int steps = 0;
    EXPECT_TRUE(forms->RunProgress([&](const auto& advance) {
        for (int i = 10; i <= 100; i += 10) {
            advance(i);
            QtUser::Close();
            EXPECT_TRUE(QtUser::Window()->isVisible());
            ++steps;
        }
        return true;
    }));
    EXPECT_EQ(steps, 10);
    EXPECT_EQ(QtUser::Window(), nullptr);
}

} // namespace
} // namespace sm::qt
