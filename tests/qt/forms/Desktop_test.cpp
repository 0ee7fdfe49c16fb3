// SPDX-License-Identifier: GPL-3.0-or-later
// Message boxes, file and colour dialogs, help.
#include "forms/FileDialogs.h"
#include "qt/QtUser.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>

#include <csignal>
#include <fstream>

namespace sm::qt {
namespace {

using Texts = std::vector<std::string>;

Message Of(MessageButtons buttons, std::int32_t help = 0)
{
    Message message;
    message.text = "First line of <b>text</b>.  Two blanks.\r\n\r\nAnd a third & last one?";
    message.title = "Tarnwick Sheetmaker PDF";
    message.buttons = buttons;
    message.icon = MessageIcon::Exclamation;
    message.helpContext = help;
    return message;
}

QMessageBox& Box()
{
    return *dynamic_cast<QMessageBox*>(QtUser::Window());
}

void PressButton(QMessageBox::StandardButton button)
{
    QTest::mouseClick(Box().button(button), Qt::LeftButton);
}

/// What the box answers when the user does that.
MessageAnswer Answer(MessageButtons buttons, const std::function<void()>& user)
{
    WhenShown(user);
    return TheScreen().Desktop().ShowMessage(Of(buttons));
}

TEST(MessageBoxes, ShowTextTitleAndIconAsTheyAre)
{
    EXPECT_EQ(Answer(MessageButtons::Ok,
                     [] {
                         EXPECT_EQ(Box().text().toStdString(),
                                   "First line of <b>text</b>.  Two blanks.\n\nAnd a third & last one?");
                         EXPECT_EQ(Box().textFormat(), Qt::PlainText);
                         EXPECT_EQ(Box().windowTitle().toStdString(), "Tarnwick Sheetmaker PDF");
                         EXPECT_EQ(Box().icon(), QMessageBox::Warning);
                         EXPECT_EQ(Box().buttons().size(), 1);
                         EXPECT_TRUE(Box().grab().save(SM_SCREENS "/message-1x.png"));
                         QtUser::Key(Qt::Key_Return);
                     }),
              MessageAnswer::Ok);
}

TEST(MessageBoxes, EachIconIsTheDesktopsOwn)
{
    const std::pair<MessageIcon, QMessageBox::Icon> rows[] = {{MessageIcon::None, QMessageBox::NoIcon},
                                                              {MessageIcon::Critical, QMessageBox::Critical},
                                                              {MessageIcon::Question, QMessageBox::Question},
                                                              {MessageIcon::Exclamation, QMessageBox::Warning},
                                                              {MessageIcon::Information, QMessageBox::Information}};
    for (const auto& [ours, theirs] : rows) {
        Message message = Of(MessageButtons::Ok);
        message.icon = ours;
        WhenShown([&, icon = theirs] {
            EXPECT_EQ(Box().icon(), icon);
            PressButton(QMessageBox::Ok);
        });
        TheScreen().Desktop().ShowMessage(message);
    }
}

TEST(MessageBoxes, AnswerTheButtonThatWasPressed)
{
    struct Row {
        MessageButtons buttons;
        QMessageBox::StandardButton pressed;
        MessageAnswer answer;
    };
    for (const Row& row : {Row{MessageButtons::Ok, QMessageBox::Ok, MessageAnswer::Ok},
                           Row{MessageButtons::OkCancel, QMessageBox::Ok, MessageAnswer::Ok},
                           Row{MessageButtons::OkCancel, QMessageBox::Cancel, MessageAnswer::Cancel},
                           Row{MessageButtons::YesNo, QMessageBox::Yes, MessageAnswer::Yes},
                           Row{MessageButtons::YesNo, QMessageBox::No, MessageAnswer::No}})
        EXPECT_EQ(Answer(row.buttons, [&] { PressButton(row.pressed); }), row.answer);
}

TEST(MessageBoxes, EnterPressesTheFirstButton)
{
    EXPECT_EQ(Answer(MessageButtons::OkCancel, [] { QtUser::Key(Qt::Key_Return); }), MessageAnswer::Ok);
    EXPECT_EQ(Answer(MessageButtons::YesNo, [] { QtUser::Key(Qt::Key_Return); }), MessageAnswer::Yes);
}

TEST(MessageBoxes, EscapeCloseBoxAndSignalsCancelWhatCanBeCancelled)
{
    const std::function<void()> ways[] = {[] { QtUser::Key(Qt::Key_Escape); }, [] { QtUser::Close(); },
                                          [] { std::raise(SIGTERM); }};
    for (const auto& way : ways) {
        EXPECT_EQ(Answer(MessageButtons::Ok, way), MessageAnswer::Ok);
        EXPECT_EQ(Answer(MessageButtons::OkCancel, way), MessageAnswer::Cancel);
        EXPECT_EQ(Answer(MessageButtons::YesNo,
                         [&] {
                             way();
                             QTest::qWait(20);
                             EXPECT_TRUE(Box().isVisible()) << "a question needs its answer";
                             PressButton(QMessageBox::No);
                         }),
                  MessageAnswer::No);
    }
}

TEST(MessageBoxes, HelpOpensThePageAndLeavesTheBoxUp)
{
    Opened().clear();
    WhenShown([] {
        EXPECT_EQ(Box().buttons().size(), 3);
        PressButton(QMessageBox::Help);
        QTest::qWait(20);
        EXPECT_TRUE(Box().isVisible());
        PressButton(QMessageBox::Help);
        PressButton(QMessageBox::Cancel);
    });
    EXPECT_EQ(TheScreen().Desktop().ShowMessage(Of(MessageButtons::OkCancel, 170)), MessageAnswer::Cancel);
    const std::string page = "file:///usr/share/some%20help/index.html#c170";
    EXPECT_EQ(Opened(), (Texts{page, page}));
}

TEST(Help, OpensOurPageWhateverFileIsNamed)
{
    Opened().clear();
    EXPECT_TRUE(TheScreen().Desktop().ShowHelp("C:\\Program Files\\acadsmpdf.hlp", 400));
    EXPECT_TRUE(TheScreen().Desktop().ShowHelp("", 0));
    EXPECT_EQ(Opened(),
              (Texts{"file:///usr/share/some%20help/index.html#c400", "file:///usr/share/some%20help/index.html"}));
}

TEST(Documents, AreOpenedByTheDesktop)
{
    Opened().clear();
    EXPECT_TRUE(TheScreen().Desktop().OpenDocument("https://example.org/"));
    EXPECT_FALSE(TheScreen().Desktop().OpenDocument("/a/missing.pdf"));
    EXPECT_EQ(Opened(), (Texts{"https://example.org/", "/a/missing.pdf"}));
}

TEST(FileDialogs, StartWhereTheNameSays)
{
    const std::pair<const char*, DialogStart> rows[] = {
        {"", {"", ""}},
        {"Plan.pdf", {"", "Plan.pdf"}},
        {"/home/me/Plan.pdf", {"/home/me", "Plan.pdf"}},
        {"/Plan.pdf", {"/", "Plan.pdf"}},
        {"/home/me/*.*", {"/home/me", ""}},
        {"/home/me\\*.*", {"/home/me", ""}},
        {"/*.*", {"/", ""}},
        {"*.*", {"", "*.*"}},
    };
    for (const auto& [name, start] : rows) {
        EXPECT_EQ(StartOf(name).folder, start.folder) << name;
        EXPECT_EQ(StartOf(name).name, start.name) << name;
    }
}

TEST(FileDialogs, ShowTheFilesOfTheFilter)
{
    FileDialog dialog;
    dialog.filterName = "PDF files";
    dialog.filterExtension = "pdf";
    EXPECT_EQ(FilterOf(dialog), "PDF files (*.pdf *.PDF)");
    dialog.filterExtension = "dxf;dwg";
    EXPECT_EQ(FilterOf(dialog), "PDF files (*.dxf *.DXF *.dwg *.DWG)");
    dialog.filterName = "All Files (*.*)";
    dialog.filterExtension = "*";
    EXPECT_EQ(FilterOf(dialog), "All Files (*)");
}

class FileChoice : public testing::Test {
protected:
    FileChoice()
    {
        TheScreen();
        std::ofstream(folder + "/there.pdf") << "x";
        dialog.title = "Save PDF File";
        dialog.filterName = "PDF files";
        dialog.filterExtension = "pdf";
    }
    static QFileDialog& Dialog() { return *dynamic_cast<QFileDialog*>(QtUser::Window()); }
    static QLineEdit& Name() { return *Dialog().findChild<QLineEdit*>("fileNameEdit"); }
    static void Accept()
    {
        auto* const box = Dialog().findChild<QDialogButtonBox*>("buttonBox");
        QTest::mouseClick(box->buttons().front(), Qt::LeftButton);
    }
    static void Enter(const std::string& name)
    {
        Name().setText(QString::fromStdString(name));
        Accept();
    }
    QTemporaryDir temporary;
    std::string folder = temporary.path().toStdString();
    FileDialog dialog;
};

TEST_F(FileChoice, SavesUnderTheNameWithItsExtension)
{
    dialog.defaultName = folder + "/Plan.pdf";
    WhenShown([&] {
        EXPECT_EQ(Dialog().windowTitle(), "Save PDF File");
        EXPECT_EQ(Dialog().directory().absolutePath().toStdString(), folder);
        EXPECT_EQ(Name().text(), "Plan.pdf");
        EXPECT_TRUE(Dialog().grab().save(SM_SCREENS "/save-1x.png"));
        Enter("Other");
    });
    EXPECT_EQ(TheScreen().Desktop().AskSaveFile(dialog), folder + "/Other.pdf");
}

TEST_F(FileChoice, AsksBeforeAFileIsReplacedUnlessTold)
{
    dialog.defaultName = folder + "/there.pdf";
    WhenShown([&] {
        WhenShown([] {
            EXPECT_NE(dynamic_cast<QMessageBox*>(QtUser::Window()), nullptr);
            PressButton(QMessageBox::No);
        });
        Accept();
        QtUser::Key(Qt::Key_Escape);
    });
    EXPECT_EQ(TheScreen().Desktop().AskSaveFile(dialog), std::nullopt);
    dialog.warnOnOverwrite = false;
    WhenShown([&] { Accept(); });
    EXPECT_EQ(TheScreen().Desktop().AskSaveFile(dialog), folder + "/there.pdf");
}

TEST_F(FileChoice, OpensFilesThatAreThere)
{
    dialog.defaultName = folder + "\\*.*";
    dialog.filterName = "All Files (*.*)";
    dialog.filterExtension = "*";
    WhenShown([&] {
        EXPECT_EQ(Dialog().directory().absolutePath().toStdString(), folder);
        EXPECT_EQ(Name().text(), "");
        Enter("there.pdf");
    });
    EXPECT_EQ(TheScreen().Desktop().AskOpenFile(dialog), folder + "/there.pdf");
}

TEST_F(FileChoice, EscapeCloseBoxAndSignalsCancel)
{
    const std::function<void()> ways[] = {[] { QtUser::Key(Qt::Key_Escape); }, [] { QtUser::Close(); },
                                          [] { std::raise(SIGINT); }};
    for (const auto& way : ways) {
        WhenShown(way);
        EXPECT_EQ(TheScreen().Desktop().AskOpenFile(dialog), std::nullopt);
        WhenShown(way);
        EXPECT_EQ(TheScreen().Desktop().AskColor(0), std::nullopt);
    }
}

TEST(Colors, HaveRedInTheLowByte)
{
    TheScreen();
    WhenShown([] {
        auto* const dialog = dynamic_cast<QColorDialog*>(QtUser::Window());
        EXPECT_EQ(dialog->currentColor().name(), "#302010");
        dialog->setCurrentColor(QColor(1, 2, 3));
        QtUser::Key(Qt::Key_Return);
    });
    EXPECT_EQ(TheScreen().Desktop().AskColor(0x102030), 0x030201);
}

TEST(Desktop, Beeps)
{
    TheScreen().Desktop().Beep();
}

} // namespace
} // namespace sm::qt
