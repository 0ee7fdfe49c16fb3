// SPDX-License-Identifier: GPL-3.0-or-later
#include "MessageAnswers.h"
#include "terminal/Console.h"
#include "terminal/TerminalDesktop.h"

#include <gtest/gtest.h>
#include <sstream>

namespace sm::terminal {
namespace {

constexpr auto kOk = MessageButtons::Ok;
constexpr auto kOkCancel = MessageButtons::OkCancel;
constexpr auto kYesNo = MessageButtons::YesNo;

struct TerminalRow {
    const char* name;
    Message message;
    MessageAnswer answer;
    const char* line;
};

Message Box(const char* text, MessageButtons buttons, MessageIcon icon, std::int32_t helpContext)
{
    return {text, "Tarnwick Sheetmaker PDF", buttons, icon, "acadsmpdf.hlp", helpContext};
}

const TerminalRow kTerminalRows[] = {
    {"Notice",
     Box("The selected view to plot could not be found. PDF conversion was canceled.", kOk, MessageIcon::Exclamation,
         290),
     MessageAnswer::Ok, "warning: The selected view to plot could not be found. PDF conversion was canceled."},
    {"LinesJoined", Box("One  two \r\nthree\r\n\r\nfour", kOk, MessageIcon::Critical, 220), MessageAnswer::Ok,
     "error: One two three four"},
    {"ViewTheLog", Box("Would you like to view the log file now?", kOkCancel, MessageIcon::Critical, 170),
     MessageAnswer::Cancel,
     "error: Would you like to view the log file now? [answered: Cancel; \"sheetmaker log\" shows it]"},
    {"WithoutAnnotations",
     Box("Would you like to continue to make a PDF file without Annotations?", kYesNo, MessageIcon::Exclamation, 279),
     MessageAnswer::Yes,
     "warning: Would you like to continue to make a PDF file without Annotations? [answered: Yes; the PDF is made "
     "without annotations]"},
    {"NotifyNextTime",
     Box("Would you like to be notified next time this occurrs?", kYesNo, MessageIcon::Exclamation, 180),
     MessageAnswer::Yes,
     "warning: Would you like to be notified next time this occurrs? [answered: Yes; the setting stays as it is]"},
    {"UnknownYesNo", Box("Overwrite?", kYesNo, MessageIcon::Question, 999), MessageAnswer::No,
     "question: Overwrite? [answered: No]"},
    {"UnknownOkCancel", Box("Go on?", kOkCancel, MessageIcon::None, 0), MessageAnswer::Cancel,
     "note: Go on? [answered: Cancel]"},
    {"KnownContextWithOtherButtons", Box("Logged.", kOk, MessageIcon::Information, 170), MessageAnswer::Ok,
     "note: Logged."},
};

TEST(MessageAnswers, LoseNothing)
{
    for (const TerminalRow& row : kTerminalRows) {
        EXPECT_EQ(AnswerWithoutScreen(row.message), row.answer) << row.name;
        EXPECT_EQ(MessageLine(row.message), row.line) << row.name;
    }
}

TEST(Console, WritesWholeLines)
{
    std::ostringstream out;
    Console console(out, false);
    console.Progress("never seen");
    console.Line("first");
    console.Line("bad\x1b[2Jname\n");
    EXPECT_EQ(out.str(), "first\nbad?[2Jname?\n");
}

TEST(Console, LetsTheProgressLineGiveWay)
{
    std::ostringstream out;
    {
        Console console(out, true);
        console.Progress("sheet 1 of 2");
        console.Progress("sheet 2 of 2");
        console.Line("warning: thin paper");
        console.Progress("saving");
    }
    EXPECT_EQ(out.str(), "\r\x1b[Ksheet 1 of 2\r\x1b[Ksheet 2 of 2\r\x1b[Kwarning: thin paper\n"
                         "\r\x1b[Ksaving\r\x1b[K");
}

class Desktop : public testing::Test {
protected:
    std::unique_ptr<IDesktop> Make(DesktopOptions options = {})
    {
        return CreateTerminalDesktop(m_console, std::move(options));
    }
    std::ostringstream m_out;
    Console m_console{m_out, false};
};

TEST_F(Desktop, ShowsAMessageAndAnswersIt)
{
    std::vector<std::string> shown;
    const auto desktop = Make({{}, {}, [&](const Message& message) { shown.push_back(message.text); }});
    EXPECT_EQ(desktop->ShowMessage(Box("Continue?", kYesNo, MessageIcon::Exclamation, 279)), MessageAnswer::Yes);
    EXPECT_EQ(m_out.str(), "warning: Continue? [answered: Yes; the PDF is made without annotations]\n");
    EXPECT_EQ(shown, std::vector<std::string>{"Continue?"});
}

TEST_F(Desktop, AnswersTheSaveDialogWithTheGivenPath)
{
    EXPECT_EQ(Make({"out/set.pdf", {}, {}})->AskSaveFile({"Save", "/a/plan", "PDF files", "pdf", true, 0}),
              "out/set.pdf");
    EXPECT_EQ(m_out.str(), "");
}

TEST_F(Desktop, ConfirmsTheSaveDialogsOwnNameOtherwise)
{
    EXPECT_EQ(Make()->AskSaveFile({"Save", "/a/plan", "PDF files", "pdf", true, 0}), "/a/plan.pdf");
    EXPECT_EQ(Make()->AskSaveFile({"Save", "/a/plan.pdf", "PDF files", "pdf", true, 0}), "/a/plan.pdf");
    EXPECT_EQ(Make()->AskSaveFile({"Save", "", "PDF files", "pdf", true, 0}), std::nullopt);
    EXPECT_EQ(m_out.str(), "note: saving as /a/plan.pdf (-o names another file)\n"
                           "note: saving as /a/plan.pdf (-o names another file)\n");
}

TEST_F(Desktop, CancelsWhatItCannotAsk)
{
    const auto desktop = Make();
    EXPECT_EQ(desktop->AskOpenFile({}), std::nullopt);
    EXPECT_EQ(desktop->AskColor(255), std::nullopt);
    EXPECT_FALSE(desktop->ShowHelp("acadsmpdf.hlp", 110));
    EXPECT_EQ(m_out.str(), "note: there is no screen for the help; \"sheetmaker --help\" explains every command\n");
}

TEST_F(Desktop, OpensDocumentsByTheOpenerItWasGiven)
{
    std::string opened;
    const auto desktop = Make({{}, [&](const std::string& path) { return opened = path, true; }, {}});
    EXPECT_TRUE(desktop->OpenDocument("/a/plan.pdf"));
    EXPECT_EQ(opened, "/a/plan.pdf");
    EXPECT_FALSE(Make()->OpenDocument("/a/plan.pdf"));
}

} // namespace
} // namespace sm::terminal
