// SPDX-License-Identifier: GPL-3.0-or-later
// What the window at the end of a run says.
#include "screen/RunEndText.h"

#include "app/Fixtures.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

using beside::EndKind;
using beside::RunEnd;

class RunEndText : public testing::Test {
protected:
    Machine machine;
    DrawingReport report;
    RunEndText()
    {
        report.drawing = "/jobs/plan.dxf";
        report.pdfPath = "/jobs/plan.pdf";
        report.pages = 2;
    }
};

TEST_F(RunEndText, WhatWasMade)
{
    report.substitutions = {"arial.ttf drawn with LiberationSans"};
    const RunEnd end = EndOf(report, "", machine.Here());
    EXPECT_EQ(end, (RunEnd{EndKind::Made,
                           "plan.pdf was made: 2 pages.",
                           {"fonts: arial.ttf drawn with LiberationSans"},
                           "/jobs/plan.pdf",
                           "/jobs",
                           "",
                           false}));
}

TEST_F(RunEndText, ALostMarkIsALoss)
{
    report.pages = 1;
    report.notes = {"the stamp lies off its page"};
    report.marksLost = {"the stamp"};
    const RunEnd end = EndOf(report, "", machine.Here());
    EXPECT_EQ(end.kind, EndKind::MadeWithLoss);
    EXPECT_EQ(end.headline, "plan.pdf was made: 1 page.");
    EXPECT_EQ(end.lines, std::vector<std::string>{"the stamp lies off its page"});
}

TEST_F(RunEndText, WhatFailed)
{
    report.failure = "sheet \"A\": its paper is not on the plotter's list";
    report.remarks = {"a hatch was simplified"};
    const RunEnd end = EndOf(report, "", machine.Here());
    EXPECT_EQ(end, (RunEnd{EndKind::Failed,
                           "No PDF was made of plan.dxf: sheet \"A\": its paper is not on the plotter's list.",
                           {"note: a hatch was simplified"}}));
}

TEST_F(RunEndText, WhatWasCancelledIsNoFailure)
{
    report.failure = "the conversion ended before the PDF was saved";
    const RunEnd end = EndOf(report, "the choice of a paper", machine.Here());
    EXPECT_EQ(end, (RunEnd{EndKind::Cancelled, "No PDF was made: the choice of a paper was cancelled."}));
}

TEST_F(RunEndText, TheLogIsNamedWhereThereIsOne)
{
    const Install here = machine.Here();
    std::filesystem::create_directories(here.places.stateFolder);
    std::ofstream(here.places.stateFolder / "SmPdfAcad.log") << "PDF FILE SAVED\n";
    EXPECT_EQ(EndOf(report, "", here).logPath, (here.places.stateFolder / "SmPdfAcad.log").string());
}

} // namespace
} // namespace sm::app
