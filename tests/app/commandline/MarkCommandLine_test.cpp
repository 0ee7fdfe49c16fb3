// SPDX-License-Identifier: GPL-3.0-or-later
// The words of "stamp", "attach", "sign" and "publish" as jobs, and what is said of wrong ones.
#include "commandline/CommandLine.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

using Words = std::vector<std::string>;

struct MarkJobRow {
    const char* name;
    Words words;
    Job job;
};

PublishJob WithContents()
{
    PublishJob job{"set.pdf", {"a.dxf"}};
    job.options.contents = true;
    return job;
}

const MarkJobRow kMarkJobs[] = {
    {"Stamp",
     {"stamp", "a.dxf", "--at", "10,20"},
     StampJob{"a.dxf", RecordAction::Add, {}, {}, {}, {}, {}, {}, DrawingPoint{10, 20}}},
    {"StampLooks",
     {"stamp", "a.dxf", "--text", "AS BUILT", "--font", "times-bold", "--size", "36", "--color", "#FF8000", "--justify",
      "right", "--layout", "Ground floor", "--at", "-1.5,+2e1"},
     StampJob{"a.dxf", RecordAction::Add, "AS BUILT", "Times-Bold", 36, 0x0080ff, 2, "Ground floor",
              DrawingPoint{-1.5, 20}}},
    {"StampList", {"stamp", "a.dxf", "list"}, StampJob{"a.dxf", RecordAction::List, {}, {}, {}, {}, {}, {}, {}}},
    {"StampChange",
     {"stamp", "a.dxf", "change", "--color", "Blue", "--justify", "center"},
     StampJob{"a.dxf", RecordAction::Change, {}, {}, {}, 0xff0000, 1, {}, {}}},
    {"StampRemove", {"stamp", "a.dxf", "remove"}, StampJob{"a.dxf", RecordAction::Remove, {}, {}, {}, {}, {}, {}, {}}},
    {"Attach",
     {"attach", "a.dxf", "add", "b.pdf", "--at", "1,2", "--layout", "Roof"},
     AttachJob{"a.dxf", RecordAction::Add, "b.pdf", {}, "Roof", DrawingPoint{1, 2}}},
    {"AttachChange",
     {"attach", "a.dxf", "change", "1", "--file", "c.pdf"},
     AttachJob{"a.dxf", RecordAction::Change, "1", "c.pdf", {}, {}}},
    {"AttachList", {"attach", "a.dxf", "list"}, AttachJob{"a.dxf", RecordAction::List, "", {}, {}, {}}},
    {"Sign",
     {"sign", "a.dxf", "add", "Approval", "--label", "Engineer", "--rect", "60,30,10,-5.5"},
     SignJob{"a.dxf", RecordAction::Add, "Approval", {}, "Engineer", {}, DrawingBox{60, 30, 10, -5.5}}},
    {"SignChange",
     {"sign", "a.dxf", "change", "Approval", "--name", "Release", "--layout", "Roof"},
     SignJob{"a.dxf", RecordAction::Change, "Approval", "Release", {}, "Roof", {}}},
    {"SignRemove", {"sign", "a.dxf", "remove", "2"}, SignJob{"a.dxf", RecordAction::Remove, "2", {}, {}, {}, {}}},
    {"Publish",
     {"publish", "-o", "set.pdf", "a.dxf:Roof", "b.dxf", "--keep-going"},
     PublishJob{"set.pdf", {"a.dxf:Roof", "b.dxf"}, true}},
    {"PublishListed",
     {"publish", "-o", "set.pdf", "--list", "-", "--jobs", "3", "--log", "x.log", "--update", "--no-clobber"},
     PublishJob{"set.pdf", {}, false, {}, false, ReportForm::None, Talk::Normal, 0, 0, "x.log", true, true, "-", 3}},
    {"PublishContents", {"publish", "-o", "set.pdf", "a.dxf", "--contents"}, WithContents()},
};

TEST(MarkCommandLine, BecomesAJob)
{
    for (const MarkJobRow& row : kMarkJobs) {
        const ParsedCommand parsed = ParseCommandLine(row.words, "1.2.3");
        ASSERT_TRUE(parsed.job) << row.name << ": " << parsed.error;
        EXPECT_EQ(*parsed.job, row.job) << row.name;
        EXPECT_EQ(parsed.output + parsed.error, "") << row.name;
    }
}

struct MarkErrorRow {
    const char* name;
    Words words;
    const char* error;
};

const MarkErrorRow kMarkErrors[] = {
    {"NoDrawing", {"stamp"}, "sheetmaker stamp: DRAWING is required\n\"sheetmaker stamp --help\" explains it\n"},
    {"OneNumber",
     {"stamp", "a.dxf", "--at", "10"},
     "sheetmaker stamp: --at: \"10\" is no point; write it as X,Y with \".\" for decimals\n"
     "\"sheetmaker stamp --help\" explains it\n"},
    {"DecimalComma",
     {"stamp", "a.dxf", "--at", "1,5,2"},
     "sheetmaker stamp: --at: \"1,5,2\" is no point; write it as X,Y with \".\" for decimals\n"
     "\"sheetmaker stamp --help\" explains it\n"},
    {"Infinite",
     {"stamp", "a.dxf", "--at", "inf,2"},
     "sheetmaker stamp: --at: \"inf,2\" is no point; write it as X,Y with \".\" for decimals\n"
     "\"sheetmaker stamp --help\" explains it\n"},
    {"Font",
     {"stamp", "a.dxf", "--at", "1,2", "--font", "Helvetika"},
     "sheetmaker stamp: --font: \"Helvetika\" is no font of stamps; did you mean \"Helvetica\"?\n"
     "\"sheetmaker stamp --help\" explains it\n"},
    {"Size",
     {"stamp", "a.dxf", "--at", "1,2", "--size", "0"},
     "sheetmaker stamp: --size: \"0\" is no size from 1 to 1000 points\n\"sheetmaker stamp --help\" explains it\n"},
    {"Color",
     {"stamp", "a.dxf", "--at", "1,2", "--color", "#12345"},
     "sheetmaker stamp: --color: \"#12345\" is no colour; write #RRGGBB or one of black, white, grey, red, green, "
     "blue, cyan, magenta, orange, yellow\n\"sheetmaker stamp --help\" explains it\n"},
    {"Justify",
     {"stamp", "a.dxf", "--at", "1,2", "--justify", "top"},
     "sheetmaker stamp: --justify: \"top\" is no justification; there are left, center, right\n"
     "\"sheetmaker stamp --help\" explains it\n"},
    {"Action",
     {"sign", "a.dxf", "delete", "Approval"},
     "sheetmaker sign: ACTION: \"delete\" is none of list, add, change, remove\n"
     "\"sheetmaker sign --help\" explains it\n"},
    {"NoAction",
     {"attach", "a.dxf"},
     "sheetmaker attach: ACTION is required\n\"sheetmaker attach --help\" explains it\n"},
    {"FlatBox",
     {"sign", "a.dxf", "add", "A", "--rect", "1,2,3,2"},
     "sheetmaker sign: --rect: \"1,2,3,2\" is no rectangle; write it as X1,Y1,X2,Y2 with \".\" for decimals and two "
     "different corners\n\"sheetmaker sign --help\" explains it\n"},
    {"NoOutput",
     {"publish", "a.dxf"},
     "sheetmaker publish: --output is required\n\"sheetmaker publish --help\" explains it\n"},
};

TEST(MarkCommandLine, SaysWhatIsWrong)
{
    for (const MarkErrorRow& row : kMarkErrors) {
        const ParsedCommand parsed = ParseCommandLine(row.words, "1.2.3");
        EXPECT_FALSE(parsed.job) << row.name;
        EXPECT_EQ(parsed.exitCode, 2) << row.name;
        EXPECT_EQ(parsed.error, row.error) << row.name;
    }
}

TEST(MarkCommandLine, HelpShowsExamples)
{
    for (const char* command : {"stamp", "attach", "sign", "publish"})
        EXPECT_NE(ParseCommandLine({command, "--help"}, "1.2.3").output.find(std::string("\n  sheetmaker ") + command),
                  std::string::npos)
            << command;
}

} // namespace
} // namespace sm::app
