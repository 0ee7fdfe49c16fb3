// SPDX-License-Identifier: GPL-3.0-or-later
#include "publisher/PublisherStand.h"

#include "ports/HostError.h"

#include <csignal>
#include <filesystem>
#include <regex>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::publisher {
namespace {

class ConversionLogTest : public PublisherTest {
protected:
    std::string LogText(const std::string& name = "SmPdfAcad.log") const { return ReadFile(m_root + "/log/" + name); }
    /// The log with the date and time of its first line taken out; it must have that form.
    std::string UndatedLog(const std::string& name = "SmPdfAcad.log") const
    {
        const std::string text = LogText(name);
        const std::regex form(" [0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\n");
        EXPECT_TRUE(std::regex_search(text, form)) << text;
        return std::regex_replace(text, form, "\n", std::regex_constants::format_first_only);
    }
};

TEST_F(ConversionLogTest, HoldsATitleAndALineForEachCall)
{
    const auto log = Library()->CreateConversionLog();
    log->OpenLog("SmPdfAcad.log", "Tarnwick Sheetmaker PDF");
    EXPECT_EQ(UndatedLog(), "Tarnwick Sheetmaker PDF\n");
    log->WriteLogLine("PLUGIN STARTING PDF FILE: Ärger.pdf");
    EXPECT_EQ(UndatedLog(), "Tarnwick Sheetmaker PDF\nPLUGIN STARTING PDF FILE: Ärger.pdf\n");
    log->WriteLogLine("");
    log->WriteLogLine("two\r\nlines \xFF end");
    log->CloseLog();
    log->WriteLogLine("after the end");
    EXPECT_EQ(UndatedLog(), "Tarnwick Sheetmaker PDF\nPLUGIN STARTING PDF FILE: Ärger.pdf\n\ntwo  lines \uFFFD end\n");
}

TEST_F(ConversionLogTest, NextRunReplacesTheLast)
{
    const auto library = Library();
    for (const std::string title : {"First", "Second"}) {
        const auto log = library->CreateConversionLog();
        log->OpenLog("SmPdfAcad.log", title);
        log->WriteLogLine("  line of " + title);
    }
    EXPECT_EQ(UndatedLog(), "Second\n  line of Second\n");
}

TEST_F(ConversionLogTest, AnEarlierRunThatStillWritesDoesNotMixIn)
{
    const auto library = Library();
    const auto first = library->CreateConversionLog();
    const auto second = library->CreateConversionLog();
    first->OpenLog("SmPdfAcad.log", "First");
    second->OpenLog("SmPdfAcad.log", "Second");
    first->WriteLogLine("of the first");
    second->WriteLogLine("of the second");
    EXPECT_EQ(UndatedLog(), "Second\nof the second\n");
}

TEST_F(ConversionLogTest, WorkersWriteFilesOfTheirOwn)
{
    const auto log = Library()->CreateConversionLog();
    m_options.logFileName = "worker-2.log";
    const auto worker = Library()->CreateConversionLog();
    log->OpenLog("SmPdfAcad.log", "Parent");
    worker->OpenLog("SmPdfAcad.log", "Worker");
    EXPECT_EQ(UndatedLog(), "Parent\n");
    EXPECT_EQ(UndatedLog("worker-2.log"), "Worker\n");
    EXPECT_TRUE(worker->ShowLogFile("SmPdfAcad.log"));
    EXPECT_EQ(m_desktop.opened, std::vector<std::string>{m_root + "/log/worker-2.log"});
}

TEST_F(ConversionLogTest, IsWholeWhenTheProgramIsKilled)
{
    const pid_t child = ::fork();
    if (child == 0) {
        const auto log = Library()->CreateConversionLog();
        log->OpenLog("SmPdfAcad.log", "Killed");
        log->WriteLogLine("last words");
        ::kill(::getpid(), SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(UndatedLog(), "Killed\nlast words\n");
}

TEST_F(ConversionLogTest, IsShownByTheDesktopOrPrinted)
{
    std::vector<std::string> printed;
    m_options.printLog = [&](const std::string& text) { printed.push_back(text); };
    const auto log = Library()->CreateConversionLog();
    EXPECT_FALSE(log->ShowLogFile("SmPdfAcad.log")) << "there is no log yet";
    log->OpenLog("SmPdfAcad.log", "Title");
    log->CloseLog();
    EXPECT_TRUE(log->ShowLogFile("SmPdfAcad.log"));
    EXPECT_EQ(m_desktop.opened, std::vector<std::string>{m_root + "/log/SmPdfAcad.log"});
    EXPECT_EQ(printed, std::vector<std::string>{});
    m_desktop.canOpen = false;
    EXPECT_TRUE(log->ShowLogFile("SmPdfAcad.log"));
    EXPECT_EQ(printed, std::vector<std::string>{LogText()});
}

TEST_F(ConversionLogTest, FailuresToWriteAreHostErrors)
{
    WriteFile(m_root + "/log", "a file where the folder should be");
    const auto log = Library()->CreateConversionLog();
    try {
        log->OpenLog("SmPdfAcad.log", "Title");
        FAIL();
    } catch (const HostError& error) {
        EXPECT_EQ(error.Description(),
                  "The log file " + m_root + "/log/SmPdfAcad.log could not be opened: Not a directory.");
    }
    log->WriteLogLine("dropped");
    log->CloseLog();
}

} // namespace
} // namespace sm::publisher
