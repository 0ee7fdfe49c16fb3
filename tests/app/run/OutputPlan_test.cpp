// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/OutputPlan.h"

#include "app/Fixtures.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

class OutputPlans : public testing::Test {
protected:
    void SetUp() override
    {
        m_former = std::filesystem::current_path();
        std::filesystem::current_path(m_machine.Root());
        m_here = std::filesystem::current_path().string();
        m_machine.MakeFile("plan.dxf");
        m_machine.MakeFile("site.dxf");
        m_machine.MakeFile("sub/plan.dxf");
        std::filesystem::create_directories(m_machine.Root() / "out");
    }
    void TearDown() override { std::filesystem::current_path(m_former); }

    Machine m_machine;
    std::filesystem::path m_former;
    std::string m_here;
};

TEST_F(OutputPlans, PutThePdfBesideTheDrawing)
{
    const OutputPlan plan = PlanOutput({"plan.dxf"}, {});
    ASSERT_EQ(plan.error, "");
    EXPECT_EQ(plan.drawings[0].pdfPath, m_here + "/plan.pdf");
    EXPECT_EQ(plan.drawings[0].savePath, std::nullopt);
}

TEST_F(OutputPlans, PutOneDrawingIntoTheNamedFile)
{
    const OutputPlan plan = PlanOutput({"plan.dxf"}, "set.pdf");
    ASSERT_EQ(plan.error, "");
    EXPECT_EQ(plan.drawings[0].pdfPath, "set.pdf");
    EXPECT_EQ(plan.drawings[0].savePath, m_here + "/set.pdf");
}

TEST_F(OutputPlans, AddTheExtensionThatTheNameLacks)
{
    for (const char* name : {"set", "set.pdf"})
        EXPECT_EQ(PlanOutput({"plan.dxf"}, name).drawings[0].savePath, m_here + "/set.pdf") << name;
    EXPECT_EQ(PlanOutput({"plan.dxf"}, "set.v2").drawings[0].savePath, m_here + "/set.v2.pdf");
    EXPECT_EQ(PlanOutput({"plan.pdf"}, "plan").error, "the PDF of plan.pdf would overwrite the drawing plan.pdf");
}

TEST_F(OutputPlans, PutOneDrawingIntoTheNamedFolder)
{
    for (const char* folder : {"out", "out/", "new/"}) {
        const OutputPlan plan = PlanOutput({"plan.dxf"}, folder);
        ASSERT_EQ(plan.error, "") << folder;
        EXPECT_EQ(std::filesystem::path(*plan.drawings[0].savePath).filename(), "plan.pdf") << folder;
    }
}

TEST_F(OutputPlans, PutSeveralIntoAFolder)
{
    const OutputPlan plan = PlanOutput({"plan.dxf", "site.dxf"}, "pdf");
    ASSERT_EQ(plan.error, "");
    EXPECT_EQ(plan.drawings[0].savePath, m_here + "/pdf/plan.pdf");
    EXPECT_EQ(plan.drawings[1].savePath, m_here + "/pdf/site.pdf");
}

struct PlanRefusalRow {
    const char* name;
    std::vector<std::string> drawings;
    std::optional<std::string> output;
    std::string error;
};

TEST_F(OutputPlans, RefuseWhatWouldLoseAFile)
{
    std::filesystem::create_symlink("plan.dxf", "link.dxf");
    const PlanRefusalRow rows[] = {
        {"SameName",
         {"plan.dxf", "sub/plan.dxf"},
         "out",
         "plan.dxf and sub/plan.dxf would both be written to out/plan.pdf"},
        {"SameNameBeside",
         {"plan.dxf", "plan.dwg"},
         {},
         "plan.dxf and plan.dwg would both be written to " + m_here + "/plan.pdf"},
        {"Twice", {"plan.dxf", "./plan.dxf"}, {}, "./plan.dxf is named twice"},
        {"TwiceByLink", {"plan.dxf", "link.dxf"}, {}, "link.dxf is named twice"},
        {"OverItself", {"plan.dxf"}, "plan.dxf", "the PDF of plan.dxf would overwrite the drawing plan.dxf"},
        {"OverItselfByLink", {"plan.dxf"}, "link.dxf", "the PDF of plan.dxf would overwrite the drawing plan.dxf"},
        {"OverAnother", {"plan.dxf", "plan.pdf"}, {}, "the PDF of plan.dxf would overwrite the drawing plan.pdf"},
        {"FileForSeveral",
         {"plan.dxf", "site.dxf"},
         "sub/plan.dxf",
         "sub/plan.dxf is a file; several drawings need a folder"},
        {"Nothing", {"plan.dxf"}, "", "-o takes a name"},
    };
    for (const PlanRefusalRow& row : rows)
        EXPECT_EQ(PlanOutput(row.drawings, row.output).error, row.error) << row.name;
}

} // namespace
} // namespace sm::app
