// SPDX-License-Identifier: GPL-3.0-or-later
// Help where no browser is.
#include "beside/HelpWindow.h"

#include "qt/RecordingForm.h"

#include <QAction>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolBar>

#include <gmock/gmock.h>

namespace sm::qt {
namespace {

QTextBrowser* HelpText()
{
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (window->objectName() == "HelpWindow" && window->isVisible())
            return window->findChild<QTextBrowser*>("help");
    return nullptr;
}

/// The line at the window's upper edge.
std::string TopLine()
{
    return HelpText()->cursorForPosition({30, 4}).block().text().toStdString();
}

void PressTool(int which)
{
    QAction* const action = HelpText()->window()->findChild<QToolBar*>()->actions().at(which);
    EXPECT_TRUE(action->isEnabled());
    action->trigger();
}

TEST(OwnHelp, ShowsTheContextBesideTheFormAndFollowsLinks)
{
    std::vector<std::string> opened;
    const HelpSite site{SM_SOURCE_DIR "/share/sheetmaker-pdf/help/index.html",
                        [&](const std::string& address) { return opened.push_back(address), true; }, nullptr};
    RecordingForm form;
    form.Show([&] {
        ASSERT_TRUE(ShowHelpWindow(site, 420, QtUser::Window()));
        QtUser::Rest();
        ASSERT_NE(HelpText(), nullptr);
        const std::string attachments = TopLine();
        EXPECT_EQ(attachments, "File Attachments");
        HelpText()->window()->grab().save(SM_SCREENS "/own-help.png");
        QTextBrowser* const first = HelpText();
        ShowHelpWindow(site, 440, QtUser::Window());
        EXPECT_EQ(HelpText(), first) << "one window";
        EXPECT_EQ(TopLine(), "Digital Signature Fields");
        PressTool(0);
        EXPECT_EQ(TopLine(), attachments);
        Q_EMIT first->anchorClicked(QUrl("#keyboard"));
        EXPECT_EQ(TopLine(), "Working with the keyboard");
        Q_EMIT first->anchorClicked(QUrl("https://tarnwick.example/"));
        EXPECT_THAT(opened, testing::ElementsAre("https://tarnwick.example/"));
        PressTool(2);
        EXPECT_EQ(TopLine(), "Sheetmaker PDF");
        QTest::keyClick(first, Qt::Key_Escape);
        EXPECT_EQ(HelpText(), nullptr);
    });
    EXPECT_FALSE(ShowHelpWindow({"/no/such/index.html", {}, nullptr}, 0, nullptr));
}

} // namespace
} // namespace sm::qt
