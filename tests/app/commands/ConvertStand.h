// SPDX-License-Identifier: GPL-3.0-or-later
// Conversions of several drawings on a machine of the test's own, with a stand-in for the work on one.
#pragma once

#include "commands/ConvertCommand.h"

#include "app/Fixtures.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace sm::app {

namespace fs = std::filesystem;

class ConvertCommand : public testing::Test {
protected:
    void SetUp() override
    {
        m_machine.MakeShare();
        m_machine.MakeProgram("gs", "echo 10.00.0");
        m_former = fs::current_path();
        fs::current_path(m_machine.Root());
        fs::create_directories(m_machine.Root() / "tmp");
        setenv("TMPDIR", m_machine.In("tmp").c_str(), 1);
        for (const char* name : {"a.dxf", "b.dxf", "c.dxf"})
            m_machine.MakeFile(name, name);
    }
    void TearDown() override
    {
        fs::current_path(m_former);
        unsetenv("TMPDIR");
    }
    int Run(const ConvertJob& job, const WorkerWork& work)
    {
        return RunConvert(job, m_machine.Here(), work, m_out, m_err);
    }
    static ConvertJob Job(std::vector<std::string> drawings)
    {
        ConvertJob job;
        job.drawings = std::move(drawings);
        return job;
    }
    /// Writes a log line and a PDF of one page.
    WorkerWork Converting() const
    {
        return [state = m_machine.In("home/.local/state/sheetmaker-pdf")](const DrawingTask& task,
                                                                          terminal::Console& console) {
            console.Line("seen");
            fs::create_directories(state);
            std::ofstream(fs::path(state) / (task.logFileName.empty() ? "SmPdfAcad.log" : task.logFileName))
                << "log of " << task.drawing << "\n";
            DrawingReport report;
            report.drawing = task.drawing;
            report.pdfPath = task.savePath.value_or(task.drawing + ".pdf");
            report.pages = 1;
            return report;
        };
    }

    Machine m_machine;
    fs::path m_former;
    std::ostringstream m_out, m_err;
};

} // namespace sm::app
