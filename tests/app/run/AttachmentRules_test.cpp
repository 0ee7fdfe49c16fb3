// SPDX-License-Identifier: GPL-3.0-or-later
// What may be attached: by size, and by where it lies.
#include "app/Fixtures.h"
#include "run/AttachmentRules.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

class Attaching : public testing::Test {
protected:
    void SetUp() override
    {
        m_machine.MakeFile("plans/plan.dxf");
        m_machine.MakeFile("plans/below/a.txt");
        m_machine.MakeFile("plans-2/b.txt");
        fs::create_symlink(m_machine.In("plans-2/b.txt"), m_machine.In("plans/link.txt"));
        fs::create_directory_symlink(m_machine.In("plans"), m_machine.In("alias"));
    }

    Machine m_machine;
};

struct PlaceRow {
    const char* drawing;
    const char* file;
    bool outside;
};

TEST_F(Attaching, KnowsWhatLiesOutsideTheDrawingsFolder)
{
    const PlaceRow rows[] = {
        {"plans/plan.dxf", "plans/c.txt", false},      {"plans/plan.dxf", "plans/below/a.txt", false},
        {"plans/plan.dxf", "plans/../plans/c", false}, {"plans/plan.dxf", "alias/c.txt", false},
        {"alias/plan.dxf", "plans/c.txt", false},      {"plans/plan.dxf", "plans/link.txt", true},
        {"plans/plan.dxf", "plans-2/b.txt", true},     {"plans/plan.dxf", "plans/../b.txt", true},
        {"plans/plan.dxf", "gone.txt", true},
    };
    for (const PlaceRow& row : rows) {
        AttachmentRules rules(false);
        rules.DrawingIs(m_machine.In(row.drawing));
        EXPECT_EQ(rules.LiesOutside(m_machine.In(row.file)), row.outside) << row.drawing << " " << row.file;
    }
}

struct ReasonRow {
    const char* file;
    std::uint64_t bytes;
    bool refuseOutside;
    std::int32_t most;
    const char* reason;
};

TEST_F(Attaching, SaysWhyAFileIsNotAttached)
{
    constexpr std::uint64_t kMebibyte = 1 << 20;
    const ReasonRow rows[] = {
        {"plans/c.txt", 2 * kMebibyte, true, 2, ""},
        {"plans/c.txt", 2 * kMebibyte + 1, false, 2,
         "it has 2097153 bytes, more than the 2 MiB that may be attached; \"sheetmaker set AttachmentLimit 3\" raises "
         "that"},
        {"plans/c.txt", 0, false, 0, ""},
        {"plans/c.txt", 1, false, -5,
         "it has 1 bytes, more than the 0 MiB that may be attached; \"sheetmaker set AttachmentLimit 1\" raises that"},
        {"plans-2/b.txt", 1, false, 250, ""},
        {"plans-2/b.txt", 1, true, 250, "it lies outside the folder of plan.dxf"},
    };
    for (const ReasonRow& row : rows) {
        AttachmentRules rules(row.refuseOutside);
        rules.DrawingIs(m_machine.In("plans/plan.dxf"));
        EXPECT_EQ(rules.ReasonAgainst(m_machine.In(row.file), row.bytes, row.most), row.reason) << row.file;
    }
}

TEST_F(Attaching, TellsWhatIsEmbeddedAndWhatIsLost)
{
    AttachmentRules rules(false);
    const std::string inside = m_machine.In("plans/c.txt"), outside = m_machine.In("plans-2/b.txt");
    rules.DrawingIs(m_machine.In("plans/plan.dxf"));
    rules.ReasonAgainst(inside, 7, 250);
    rules.ReasonAgainst(outside, 8, 250);
    rules.DrawingIs(m_machine.In("plans-2/site.dxf")); // of the same set; for this one it lies inside
    rules.ReasonAgainst(outside, 8, 250);
    publisher::SaveReport saved;
    saved.embedded = {{"c.txt", inside, 7}, {"b.txt", outside, 8}};
    saved.attachmentsLost = {"/gone.txt"};
    DrawingReport report;
    rules.Tell(saved, report);
    EXPECT_EQ(report.attachments, (std::vector<AttachedFile>{{"c.txt", inside, 7}, {"b.txt", outside, 8}}));
    EXPECT_EQ(report.attachmentsLost, std::vector<std::string>{"/gone.txt"});
    EXPECT_EQ(report.notes,
              std::vector<std::string>{"attached from outside the folder of plan.dxf: " + outside + " (8 bytes)"});
}

} // namespace
} // namespace sm::app
