// SPDX-License-Identifier: GPL-3.0-or-later
// The program itself, as a user runs it: stdout, stderr and exit code of whole runs, and what they leave behind.
#include "app/Fixtures.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

/// A drawing of one line, without layouts: release R12.
std::string LineDrawing(int lines = 1)
{
    std::string dxf = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
    for (int line = 0; line < lines; ++line)
        dxf += "0\nLINE\n8\n0\n10\n0.0\n20\n" + std::to_string(line % 97) + ".0\n11\n" + std::to_string(line % 89 + 1) +
               ".0\n21\n50.0\n";
    return dxf + "0\nENDSEC\n0\nEOF\n";
}

struct Outcome {
    int exitCode = 0;
    std::string output, error;
};

class Program : public testing::Test {
protected:
    void SetUp() override
    {
        m_machine.MakeFile("plan.dxf", LineDrawing());
        fs::create_directories(m_machine.Root() / "tmp");
    }

    pid_t Start(const std::vector<std::string>& words) const
    {
        const pid_t child = fork();
        if (child != 0)
            return child;
        fs::current_path(m_machine.Root());
        setenv("XDG_CONFIG_HOME", m_machine.In("config").c_str(), 1);
        setenv("XDG_STATE_HOME", m_machine.In("state").c_str(), 1);
        setenv("TMPDIR", m_machine.In("tmp").c_str(), 1);
        setenv("SHEETMAKER_PDF_SHARE", SM_SOURCE_DIR "/share/sheetmaker-pdf", 1);
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
        dup2(open(m_machine.In("out.txt").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
        dup2(open(m_machine.In("err.txt").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
        std::vector<char*> arguments{const_cast<char*>("sheetmaker")};
        for (const std::string& word : words)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        execv(SM_PROGRAM, arguments.data());
        _exit(126);
    }
    Outcome Wait(pid_t child) const
    {
        int status = 0;
        waitpid(child, &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), Contents(m_machine.In("out.txt")),
                Contents(m_machine.In("err.txt"))};
    }
    Outcome Run(const std::vector<std::string>& words) const { return Wait(Start(words)); }

    [[nodiscard]] bool Leftovers() const
    {
        bool parts = false;
        for (const auto& file : fs::directory_iterator(m_machine.Root()))
            parts = parts || file.path().filename().string().starts_with(".sheetmaker-");
        return parts || !fs::is_empty(m_machine.Root() / "tmp");
    }
    [[nodiscard]] std::string FirstBytes(const std::string& name) const
    {
        return Contents(m_machine.In(name)).substr(0, 5);
    }

    Machine m_machine;
};

TEST_F(Program, ConvertsADrawingIntoAPdfBesideIt)
{
    const Outcome run = Run({"convert", "plan.dxf"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "plan.dxf -> " + m_machine.In("plan.pdf") + ", 1 page\n");
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(FirstBytes("plan.pdf"), "%PDF-");
    EXPECT_FALSE(Leftovers());
    EXPECT_FALSE(fs::exists(m_machine.In("config")));
}

TEST_F(Program, SavesUnderTheGivenName)
{
    const Outcome run = Run({"convert", "plan.dxf", "-o", "set.pdf", "--layouts", "model"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "plan.dxf -> " + m_machine.In("set.pdf") + ", 1 page\n");
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(FirstBytes("set.pdf"), "%PDF-");
    EXPECT_FALSE(fs::exists(m_machine.In("plan.pdf")));
}

TEST_F(Program, KeepsThePostScriptWhenAsked)
{
    const Outcome run = Run({"convert", "plan.dxf", "--keep-ps"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.error, "plan.dxf: The PostScript of page 1 was kept as " + m_machine.In("plan-1.ps") + "\n");
    EXPECT_EQ(FirstBytes("plan-1.ps"), "%!PS-");
    EXPECT_FALSE(Leftovers());
}

TEST_F(Program, SaysThatThereIsNoViewer)
{
    const Outcome run = Run({"convert", "plan.dxf", "--open"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.error, "warning: Could not open PDF file because the PDF Reader is not installed.\n");
    EXPECT_EQ(FirstBytes("plan.pdf"), "%PDF-");
}

TEST_F(Program, ConvertsTheGoodDrawingsAmongBadOnes)
{
    m_machine.MakeFile("empty.dxf");
    m_machine.MakeFile("site.dxf", LineDrawing(5));
    const Outcome run =
        Run({"convert", "plan.dxf", "empty.dxf", "missing.dxf", "site.dxf", "-o", "pdf", "--jobs", "3"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "plan.dxf -> " + m_machine.In("pdf/plan.pdf") + ", 1 page\n" + "site.dxf -> " +
                              m_machine.In("pdf/site.pdf") + ", 1 page\n");
    EXPECT_EQ(run.error, "empty.dxf: failed: the file is empty; save the drawing again\n"
                         "missing.dxf: failed: there is no such file; check the name\n");
    EXPECT_FALSE(Leftovers());
}

TEST_F(Program, RefusesEqualOutputNamesBeforeAnythingStarts)
{
    m_machine.MakeFile("sub/plan.dxf", LineDrawing());
    const Outcome run = Run({"convert", "plan.dxf", "sub/plan.dxf", "-o", "pdf"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "sheetmaker convert: plan.dxf and sub/plan.dxf would both be written to pdf/plan.pdf\n");
    EXPECT_FALSE(fs::exists(m_machine.In("pdf")));
}

TEST_F(Program, NeverOverwritesADrawing)
{
    const std::string before = Contents(m_machine.In("plan.dxf"));
    EXPECT_EQ(Run({"convert", "plan.dxf", "-o", "plan.dxf"}).exitCode, 2);
    EXPECT_EQ(Contents(m_machine.In("plan.dxf")), before);
}

TEST_F(Program, ChecksTheLayoutsName)
{
    const Outcome run = Run({"convert", "plan.dxf", "--layout", "Modle"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "plan.dxf: failed: the drawing has no layout \"Modle\"; did you mean \"Model\"?\n");
}

TEST_F(Program, TakesStoredSettingsWhenAsked)
{
    EXPECT_EQ(Run({"set", "DeletePs", "0"}).exitCode, 0);
    EXPECT_EQ(Run({"set", "OpenInViewer", "0"}).exitCode, 0);
    const Outcome run = Run({"convert", "plan.dxf", "--as-set"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.error, "note: saving as " + m_machine.In("plan.pdf") +
                             " (-o names another file)\nplan.dxf: The PostScript of page 1 was kept as " +
                             m_machine.In("plan-1.ps") + "\n");
    EXPECT_EQ(Run({"get", "DeletePs"}).output, "0\n");
    EXPECT_EQ(Run({"convert", "plan.dxf"}).error, "");
}

TEST_F(Program, ShowsTheLogOfTheLastRun)
{
    EXPECT_EQ(Run({"log"}).error, "A Log file has not yet been created.\n");
    Run({"convert", "plan.dxf"});
    const Outcome log = Run({"log"});
    EXPECT_EQ(log.exitCode, 0);
    EXPECT_EQ(log.output, Contents(m_machine.In("state/sheetmaker-pdf/SmPdfAcad.log")));
    EXPECT_NE(log.output.find("\nPLUGIN STARTING PDF FILE: " + m_machine.In("plan.pdf") + "\n"), std::string::npos);
    EXPECT_TRUE(log.output.ends_with("\nPDF FILE SAVED\n")) << log.output;
}

class Interrupted : public Program, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(, Interrupted, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const auto& kind) { return "Signal" + std::to_string(kind.param); });

TEST_P(Interrupted, RunLeavesNothingBehind)
{
    m_machine.MakeFile("large.dxf", LineDrawing(300000));
    const pid_t child = Start({"convert", "large.dxf", "plan.dxf", "-o", "pdf", "--jobs", "1"});
    const fs::path temporary = m_machine.In("tmp");
    // The worker's folder holds something as soon as the drawing is being plotted.
    const auto plotting = [&] {
        std::error_code vanished;
        fs::recursive_directory_iterator entry(temporary, vanished), end;
        for (; !vanished && entry != end; entry.increment(vanished))
            if (entry.depth() > 0)
                return true;
        return false;
    };
    for (int waited = 0; waited < 6000 && !plotting(); ++waited)
        usleep(5000);
    ASSERT_TRUE(plotting());
    kill(child, GetParam());
    const Outcome run = Wait(child);
    EXPECT_EQ(run.exitCode, 130);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "sheetmaker: interrupted\n");
    EXPECT_FALSE(Leftovers());
    EXPECT_TRUE(fs::is_empty(m_machine.In("pdf")));
    for (const auto& file : fs::directory_iterator(m_machine.In("state/sheetmaker-pdf")))
        EXPECT_EQ(file.path().filename(), "SmPdfAcad.log");
}

} // namespace
} // namespace sm::app
