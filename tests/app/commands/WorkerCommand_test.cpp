// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/WorkerCommand.h"

#include "Dispatch.h"
#include "app/Fixtures.h"
#include "commandline/ExitCodes.h"
#include "report/RunReport.h"
#include "workers/TaskText.h"

#include <gtest/gtest.h>
#include <sstream>

namespace sm::app {
namespace {

/// What a worker that is no copy of its parent reads, does and answers.
class WorkerCommand : public testing::Test {
protected:
    int Run(const Job& job, const std::string& task)
    {
        std::istringstream in(task);
        return RunWorker(job, m_install, in, m_out, m_err);
    }
    std::string TaskOf(const std::string& drawing)
    {
        DrawingTask task;
        task.drawing = drawing;
        task.savePath = m_machine.In("made.pdf");
        task.workFolder = m_machine.In("work");
        std::filesystem::create_directories(m_machine.In("work"));
        return TaskText(task);
    }

    WorkerCommand() { m_install.places.shareFolder = SM_SOURCE_DIR "/share/sheetmaker-pdf"; }

    Machine m_machine;
    Install m_install = m_machine.Here();
    std::ostringstream m_out, m_err;
};

TEST_F(WorkerCommand, ConvertsTheDrawingOfItsTask)
{
    ConvertJob job;
    job.drawings = {"first.dxf", "second.dxf"}; // of the whole run
    EXPECT_EQ(Run(job, TaskOf(SM_SOURCE_DIR "/samples/flange.dxf")), kExitDone);
    const DrawingReport report = ReportFromJson(m_out.str());
    EXPECT_EQ(report.failure, "");
    EXPECT_EQ(report.pdfPath, m_machine.In("made.pdf"));
    EXPECT_TRUE(std::filesystem::exists(m_machine.In("made.pdf")));
}

TEST_F(WorkerCommand, ReportsADrawingThatIsNotThere)
{
    EXPECT_EQ(Run(ConvertJob{}, TaskOf(m_machine.In("none.dxf"))), kExitDone);
    EXPECT_EQ(ReportFromJson(m_out.str()).failure, "there is no such file; check the name");
}

TEST_F(WorkerCommand, FailsWithoutATask)
{
    EXPECT_EQ(Run(ConvertJob{}, "nothing"), kExitFailed);
    EXPECT_EQ(m_out.str(), "");
}

TEST_F(WorkerCommand, IsNothingForOtherCommands)
{
    EXPECT_EQ(RunProgram({kWorkerWord, "doctor"}, m_install, m_out, m_err), kExitUsage);
    EXPECT_EQ(m_out.str() + m_err.str(), "");
}

} // namespace
} // namespace sm::app
