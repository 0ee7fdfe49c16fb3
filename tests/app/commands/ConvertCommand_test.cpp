// SPDX-License-Identifier: GPL-3.0-or-later
// The conversion of several drawings, with a stand-in for the work on one.
#include "OwnPath.h"
#include "app/commands/ConvertStand.h"
#include "base/files/AtomicFile.h"
#include "base/process/Memory.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>
#include <sys/resource.h>
#include <unistd.h>

namespace sm::app {
namespace {

TEST_F(ConvertCommand, TellsResultsInTheOrderOfTheDrawings)
{
    ConvertJob job = Job({"a.dxf", "b.dxf", "c.dxf"});
    job.workers = 3;
    const auto converting = Converting();
    const int code = Run(job, [&](const DrawingTask& task, terminal::Console& console) {
        if (task.drawing == "a.dxf")
            usleep(200000);
        return converting(task, console);
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(m_out.str(), "a.dxf -> a.dxf.pdf, 1 page\nb.dxf -> b.dxf.pdf, 1 page\nc.dxf -> c.dxf.pdf, 1 page\n");
    EXPECT_EQ(m_err.str(), "a.dxf: seen\nb.dxf: seen\nc.dxf: seen\n");
}

TEST_F(ConvertCommand, LeavesOutWhatHasItsPdf)
{
    m_machine.MakeFile("b.pdf", "kept");
    ConvertJob job = Job({"a.dxf", "b.dxf", "c.dxf"});
    job.noClobber = true;
    EXPECT_EQ(Run(job, Converting()), 0);
    EXPECT_EQ(m_out.str(), "a.dxf -> a.dxf.pdf, 1 page\nc.dxf -> c.dxf.pdf, 1 page\n");
    EXPECT_EQ(m_err.str(), "b.dxf: left out, " + m_machine.In("b.pdf") + " exists\na.dxf: seen\nc.dxf: seen\n");
}

TEST_F(ConvertCommand, JoinsTheLogsInOrderAndLeavesNothingElse)
{
    EXPECT_EQ(Run(Job({"a.dxf", "b.dxf"}), Converting()), 0);
    const fs::path state = m_machine.In("home/.local/state/sheetmaker-pdf");
    EXPECT_EQ(Contents(state / "SmPdfAcad.log"), "log of a.dxf\nlog of b.dxf\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(state), fs::directory_iterator()), 1);
    EXPECT_TRUE(fs::is_empty(m_machine.In("tmp")));
}

TEST_F(ConvertCommand, GivesASingleDrawingTheUsersOwnLog)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(Run(Job({"a.dxf"}), Converting()), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "seen\n");
    EXPECT_EQ(Contents(m_machine.In("home/.local/state/sheetmaker-pdf/SmPdfAcad.log")), "log of a.dxf\n");
}

TEST_F(ConvertCommand, KeepsABadDrawingFromTakingAnotherDown)
{
    const auto converting = Converting();
    const int code = Run(Job({"a.dxf", "b.dxf", "c.dxf"}), [&](const DrawingTask& task, terminal::Console& console) {
        if (task.drawing == "a.dxf") {
            std::ofstream(task.workFolder + "/page.ps") << "left behind";
            std::ofstream(base::TemporaryBeside("a.pdf")) << "half a PDF";
            kill(getpid(), SIGKILL);
        }
        if (task.drawing == "b.dxf")
            _exit(7);
        return converting(task, console);
    });
    EXPECT_EQ(code, 1);
    EXPECT_EQ(m_out.str(), "c.dxf -> c.dxf.pdf, 1 page\n");
    EXPECT_EQ(m_err.str(), "a.dxf: failed: the conversion was ended by signal 9\n"
                           "b.dxf: failed: the conversion ended without a report\nc.dxf: seen\n");
    EXPECT_TRUE(fs::is_empty(m_machine.In("tmp")));
    for (const auto& file : fs::directory_iterator(m_machine.Root()))
        EXPECT_FALSE(file.path().filename().string().starts_with(".sheetmaker-")) << file.path();
}

TEST_F(ConvertCommand, EndsDrawingsThatTakeTooLongAlone)
{
    const auto converting = Converting();
    ConvertJob job = Job({"a.dxf", "b.dxf", "c.dxf"});
    job.seconds = 3;
    const int code = Run(job, [&](const DrawingTask& task, terminal::Console& console) {
        while (task.drawing == "a.dxf")
            pause();
        for (volatile bool busy = task.drawing == "b.dxf"; busy;) {
        }
        return converting(task, console);
    });
    EXPECT_EQ(code, 1);
    EXPECT_EQ(m_out.str(), "c.dxf -> c.dxf.pdf, 1 page\n");
    const std::string late = "failed: the conversion took longer than 3 s and was ended; --timeout allows it more\n";
    EXPECT_EQ(m_err.str(), "a.dxf: " + late + "b.dxf: " + late + "c.dxf: seen\n");
    EXPECT_TRUE(fs::is_empty(m_machine.In("tmp")));
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST_F(ConvertCommand, GivesADrawingNoMoreMemoryThanAllowed)
{
    ConvertJob job = Job({"a.dxf"});
    job.mebibytes = 100;
    const int code = Run(job, [](const DrawingTask& task, terminal::Console&) {
        DrawingReport report;
        report.drawing = task.drawing;
        try {
            const std::vector<char> much(std::size_t{200} << 20, 'x');
            report.pages = much[77];
        } catch (const std::bad_alloc&) {
            report.failure = "there is not enough memory";
            report.exitCode = 1;
        }
        return report;
    });
    EXPECT_EQ(code, 1);
    EXPECT_EQ(m_err.str(), "a.dxf: failed: there is not enough memory\n");
}
#endif

TEST(WorkerLimits, GrowWithTheFiles)
{
    const std::string path = OwnPath("limits.dxf");
    std::ofstream(path) << std::string(2'500'000, 'x');
    EXPECT_EQ(LimitsFor({}, 0, 0).time, std::chrono::seconds(300));
    EXPECT_EQ(LimitsFor({path}, 0, 0).time, std::chrono::seconds(340));
    EXPECT_EQ(LimitsFor({path, path}, 0, 0).time, std::chrono::seconds(700));
    EXPECT_EQ(LimitsFor({"gone.dxf"}, 7, 100), (WorkerLimits{std::chrono::seconds(7), std::uint64_t{100} << 20}));
    EXPECT_GT(LimitsFor({}, 0, 0).memory, std::uint64_t{100} << 20);
    EXPECT_EQ(LimitsFor({"gone.dxf", path, path}, 0, 0).drawing, 2'500'000U);
    std::filesystem::remove(path);
}

#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST(ExpectHeap, TakesMostOfADrawingsSizeAtOnce)
{
    const auto grown = [](std::uint64_t drawing) {
        const char* const before = static_cast<char*>(sbrk(0));
        ExpectHeap(drawing);
        return static_cast<char*>(sbrk(0)) - before;
    };
    constexpr std::ptrdiff_t kMebibyte = 1 << 20;
    EXPECT_EXIT(std::exit(grown(16 << 20) / kMebibyte), testing::ExitedWithCode(12), "");
    EXPECT_EXIT(std::exit(grown(std::uint64_t{1} << 40) / kMebibyte), testing::ExitedWithCode(240), "");
    EXPECT_EXIT(std::exit(grown(0) >= 768 << 10 ? 0 : 1), testing::ExitedWithCode(0), "");
    const auto limited = [&] {
        const rlimit limit{64 << 20, 64 << 20};
        setrlimit(RLIMIT_DATA, &limit);
        return grown(std::uint64_t{1} << 40) == 0 && !base::MemoryRanOut() ? 0 : 1;
    };
    EXPECT_EXIT(std::exit(limited()), testing::ExitedWithCode(0), "");
}
#endif

TEST_F(ConvertCommand, ReportsAsJson)
{
    ConvertJob job = Job({"a.dxf"});
    job.report = ReportForm::Json;
    EXPECT_EQ(Run(job, Converting()), 0);
    EXPECT_TRUE(m_out.str().starts_with(
        "{\n  \"schema\": 1,\n  \"program\": \"sheetmaker 1.2.3\",\n  \"drawings\": [\n    {\n      "
        "\"drawing\": \"a.dxf\""))
        << m_out.str();
    EXPECT_EQ(m_err.str(), "");
}

TEST_F(ConvertCommand, MakesTheFolderForThePdfs)
{
    ConvertJob job = Job({"a.dxf", "b.dxf"});
    job.output = "new/pdf";
    EXPECT_EQ(Run(job, Converting()), 0);
    EXPECT_TRUE(fs::is_directory(m_machine.In("new/pdf")));
}

struct RefusalRow {
    const char* name;
    std::function<void(ConvertJob&)> change;
    int exitCode;
    const char* error;
};

TEST_F(ConvertCommand, RefusesBeforeAnythingStarts)
{
    const RefusalRow rows[] = {
        {"JobOptions", [](ConvertJob& job) { job.options.jobOptions = "Grafics [600 dpi]"; }, 2,
         "sheetmaker convert: there are no job options \"Grafics [600 dpi]\"; did you mean \"Graphics [600 dpi]\"?\n"},
        {"JobOptionsUnknown", [](ConvertJob& job) { job.options.jobOptions = "Web"; }, 2,
         "sheetmaker convert: there are no job options \"Web\"; there are \"Graphics [600 dpi]\", \"Print [1200 "
         "dpi]\"\n"},
        {"Clash", [](ConvertJob& job) { job.output = "a.dxf"; }, 2,
         "sheetmaker convert: the PDF of a.dxf would overwrite the drawing a.dxf\n"},
    };
    for (const RefusalRow& row : rows) {
        m_err.str("");
        ConvertJob job = Job({"a.dxf"});
        row.change(job);
        EXPECT_EQ(Run(job, [](const DrawingTask&, terminal::Console&) { return DrawingReport(); }), row.exitCode)
            << row.name;
        EXPECT_EQ(m_err.str(), row.error) << row.name;
        EXPECT_EQ(m_out.str(), "") << row.name;
    }
}

TEST_F(ConvertCommand, NamesTheFolderThatIsMissing)
{
    fs::remove_all(m_machine.In("share"));
    EXPECT_EQ(Run(Job({"a.dxf"}), Converting()), 3);
    EXPECT_EQ(m_err.str(),
              "sheetmaker convert: the install's share folder can't be found; \"sheetmaker doctor\" says more\n");
}

} // namespace
} // namespace sm::app
