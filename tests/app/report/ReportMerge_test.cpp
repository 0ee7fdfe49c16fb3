// SPDX-License-Identifier: GPL-3.0-or-later
// Reports of several runs become one: what replaces what, what breaks off, what is refused.
#include "report/ReportMerge.h"

#include "commandline/Refusal.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

DrawingReport Of(const std::string& drawing, std::uint64_t pages, int exitCode = 0)
{
    DrawingReport report;
    report.drawing = drawing;
    report.pages = pages;
    report.exitCode = exitCode;
    report.failure = exitCode == 1 ? "it failed" : "";
    report.times.total = 12.5;
    return report;
}

std::string Line(const std::string& drawing, std::uint64_t pages, int exitCode = 0)
{
    return ToJsonLine(Of(drawing, pages, exitCode)) + "\n";
}

struct MergeRow {
    const char* name;
    std::vector<std::string> files; ///< texts of "r1", "r2" and so on
    std::string merged;
    std::vector<std::string> remarks;
    int exitCode;
};

const std::string kA = Line("/a.dxf", 1), kB = Line("/b.dxf", 2), kTorn = kB.substr(0, 40);

const MergeRow kMerges[] = {
    {"Nothing", {""}, "", {}, 0},
    {"Two", {kA, kB}, kA + kB, {}, 0},
    {"ALaterOneInTheSameFile", {kA + kB + Line("/a.dxf", 7)}, Line("/a.dxf", 7) + kB, {}, 0},
    {"ALaterFile", {kA + Line("/c.dxf", 1, 1), Line("/c.dxf", 3)}, kA + Line("/c.dxf", 3), {}, 0},
    {"Failed", {Line("/c.dxf", 3), Line("/c.dxf", 0, 1)}, Line("/c.dxf", 0, 1), {}, 1},
    {"Lost", {kA + Line("/c.dxf", 3, 4)}, kA + Line("/c.dxf", 3, 4), {}, 4},
    {"FailedAndLost", {Line("/c.dxf", 3, 4), Line("/d.dxf", 0, 1)}, Line("/c.dxf", 3, 4) + Line("/d.dxf", 0, 1), {}, 1},
    {"ToolMissing", {Line("/c.dxf", 0, 3), Line("/d.dxf", 0, 1)}, Line("/c.dxf", 0, 3) + Line("/d.dxf", 0, 1), {}, 3},
    {"StandardInputTwice", {Line("-", 1) + Line("-", 2)}, Line("-", 1) + Line("-", 2), {}, 0},
    {"Objects", {ToJson({Of("/a.dxf", 1), Of("/b.dxf", 2)}, "sheetmaker 1.2.3")}, kA + kB, {}, 0},
    {"AnObjectAndLines", {ToJson({Of("/a.dxf", 9)}, "sheetmaker 1"), kA}, kA, {}, 0},
    {"AnObjectInOneLine", {R"({"schema":1,"program":"","drawings":[]})"}, "", {}, 0},
    {"NoLineEnd", {kA + kB.substr(0, kB.size() - 1)}, kA + kB, {}, 0},
    {"LineEndsOfWindows", {kA.substr(0, kA.size() - 1) + "\r\n\r\n" + kB}, kA + kB, {}, 0},
    {"Torn", {kA + kTorn}, kA, {"r1:2: a report that breaks off is left out"}, 0},
    {"TornAtOnce", {R"({"sch)", kA}, kA, {"r1:1: a report that breaks off is left out"}, 0},
    {"GoesOnInATornLine", {kTorn + kA + kB}, kA + kB, {"r1:1: a report that breaks off is left out"}, 0},
    {"GoesOnAndBreaksOff",
     {kTorn + kA + kTorn},
     kA,
     {"r1:1: a report that breaks off is left out", "r1:2: a report that breaks off is left out"},
     0},
};

TEST(ReportMerge, MakesOneOfSeveral)
{
    for (const MergeRow& row : kMerges) {
        ReportMerge merge;
        for (std::size_t i = 0; i < row.files.size(); ++i)
            merge.Add("r" + std::to_string(i + 1), row.files[i]);
        EXPECT_EQ(merge.Text(ReportForm::JsonLines, ""), row.merged) << row.name;
        EXPECT_EQ(merge.Remarks(), row.remarks) << row.name;
        EXPECT_EQ(merge.ExitCode(false), row.exitCode) << row.name;
    }
}

TEST(ReportMerge, WritesAnObjectAsConvertDoes)
{
    ReportMerge merge;
    merge.Add("r", kA + kB);
    EXPECT_EQ(merge.Text(ReportForm::Json, "sheetmaker 1.2.3"),
              ToJson({Of("/a.dxf", 1), Of("/b.dxf", 2)}, "sheetmaker 1.2.3") + "\n");
}

TEST(ReportMerge, KeepsPathsOfOtherMachines)
{
    std::string line = kA;
    line.replace(line.find("/a.dxf"), 6, "a.dxf");
    ReportMerge merge;
    merge.Add("r", line);
    EXPECT_EQ(merge.Text(ReportForm::JsonLines, ""), line);
    EXPECT_EQ(merge.Untold({"/a.dxf", "/b.dxf"}), std::vector<std::string>{"/b.dxf"});
}

TEST(ReportMerge, IsAsStrictAsARun)
{
    DrawingReport lost = Of("/a.dxf", 1);
    lost.logLost = true;
    ReportMerge merge;
    merge.Add("r", ToJsonLine(lost));
    EXPECT_EQ(merge.ExitCode(false), 0);
    EXPECT_EQ(merge.ExitCode(true), 1);
}

std::string LineWith(std::string line, const std::string& what, const std::string& instead)
{
    return line.replace(line.find(what), what.size(), instead);
}

struct RefusedRow {
    const char* name;
    std::string text, error;
};

const RefusedRow kRefused[] = {
    {"Text", kA + "plan.dxf -> plan.pdf, 3 pages\n" + kB, "r:2: no report"},
    {"TextWithoutEnd", "plan.dxf -> plan.pdf", "r:1: no report"},
    {"TornInTheMiddle", kTorn + "\n" + kA, "r:1: no report"},
    {"AnObjectThatBreaksOff", "{\n  \"schema\": 1,\n  \"draw", "r:3: no report, or one that breaks off"},
    {"OtherJson", "{\"layout\": \"A\"}\n", "r:1: no report"},
    {"AList", "[]\n", "r:1: no report"},
    {"NoNumber", LineWith(kA, "\"schema\":1", "\"schema\":\"1\""), "r:1: no report"},
    {"Newer", kA + LineWith(kB, "\"schema\":1", "\"schema\":2"), "r:2: a report of schema 2; this program knows 1"},
    {"NoList", R"({"schema":1,"program":"","drawings":3})", "r:1: no report"},
    {"NoDrawing", R"({"schema":1,"program":"","drawings":[3]})", "r:1: drawing 1: no report of a drawing"},
    {"FieldMissing", LineWith(kA, "\"pages\":1,", ""), "r:1: no report of a drawing: key 'pages' not found"},
    {"FieldOfAnotherKind", LineWith(kA, "\"logLost\":false", "\"logLost\":\"no\""),
     "r:1: no report of a drawing: type must be boolean, but is string"},
    {"FieldTooMany", LineWith(kA, "\"pages\":1,", "\"pages\":1,\"leaves\":1,"),
     "r:1: no report of a drawing: the field \"leaves\" is not as schema 1 has it"},
    {"Negative", LineWith(kA, "\"read\":0", "\"read\":-1"),
     "r:1: no report of a drawing: the field \"entities\" is not as schema 1 has it"},
};

TEST(ReportMerge, RefusesWithThePlace)
{
    for (const RefusedRow& row : kRefused) {
        ReportMerge merge;
        try {
            merge.Add("r", row.text);
            ADD_FAILURE() << row.name << ": nothing was thrown";
        } catch (const Refusal& refusal) {
            EXPECT_EQ(refusal.text, row.error) << row.name;
            EXPECT_EQ(refusal.exitCode, 2) << row.name;
        }
    }
}

} // namespace
} // namespace sm::app
