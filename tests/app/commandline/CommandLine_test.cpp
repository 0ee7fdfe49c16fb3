// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/CommandLine.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

using Words = std::vector<std::string>;

struct JobRow {
    const char* name;
    Words words;
    Job job;
};

ConvertJob Convert(ConvertOptions options)
{
    return {{"a.dxf"}, {}, options, 0, false, ReportForm::None};
}

const JobRow kJobs[] = {
    {"Plain", {"convert", "a.dxf"}, Convert({})},
    {"Several",
     {"convert", "a.dxf", "b.dxf", "-o", "out"},
     ConvertJob{{"a.dxf", "b.dxf"}, "out", {}, 0, false, ReportForm::None}},
    {"OutputFirst",
     {"convert", "-o", "x.pdf", "a.dxf"},
     ConvertJob{{"a.dxf"}, "x.pdf", {}, 0, false, ReportForm::None}},
    {"All",
     {"convert", "a.dxf", "--layouts", "all"},
     Convert({LayoutChoice::All, {}, {}, {}, {}, false, false, false})},
    {"Model",
     {"convert", "a.dxf", "--layouts=model"},
     Convert({LayoutChoice::Model, {}, {}, {}, {}, false, false, false})},
    {"Active",
     {"convert", "a.dxf", "--layouts", "active"},
     Convert({LayoutChoice::Active, {}, {}, {}, {}, false, false, false})},
    {"Auto",
     {"convert", "a.dxf", "--layouts", "auto"},
     Convert({LayoutChoice::Auto, {}, {}, {}, {}, false, false, false})},
    {"OneLayout",
     {"convert", "a.dxf", "--layout", "Ground floor"},
     Convert({{}, {"Ground floor"}, {}, {}, {}, false, false, false})},
    {"SeveralLayouts",
     {"convert", "--layout", "A*", "a.dxf", "--layout=2..4"},
     Convert({{}, {"A*", "2..4"}, {}, {}, {}, false, false, false})},
    {"Native", {"convert", "a.dxf", "--page-setup", "native"}, Convert({{}, {}, 0, {}, {}, false, false, false})},
    {"Custom", {"convert", "a.dxf", "--page-setup", "custom"}, Convert({{}, {}, 1, {}, {}, false, false, false})},
    {"Global", {"convert", "a.dxf", "--page-setup", "global"}, Convert({{}, {}, 2, {}, {}, false, false, false})},
    {"Print", {"convert", "a.dxf", "--line-quality", "print"}, Convert({{}, {}, {}, 0, {}, false, false, false})},
    {"Draft", {"convert", "a.dxf", "--line-quality", "draft"}, Convert({{}, {}, {}, 1, {}, false, false, false})},
    {"JobOptions",
     {"convert", "a.dxf", "--job-options", "Print [1200 dpi]"},
     Convert({{}, {}, {}, {}, "Print [1200 dpi]", false, false, false})},
    {"Flags", {"convert", "a.dxf", "--keep-ps", "--open", "--as-set"}, Convert({{}, {}, {}, {}, {}, true, true, true})},
    {"Attachments",
     {"convert", "a.dxf", "--attachments", "all"},
     Convert({{}, {}, {}, {}, {}, false, false, false, false, AttachmentChoice::All})},
    {"AttachmentsOutside",
     {"convert", "a.dxf", "--attachments", "refuse-outside"},
     Convert({{}, {}, {}, {}, {}, false, false, false, false, AttachmentChoice::RefuseOutside})},
    {"PdfLayers", {"convert", "a.dxf", "--pdf-layers"}, Convert({{}, {}, {}, {}, {}, false, false, false, true})},
    {"Run",
     {"convert", "a.dxf", "--jobs", "4", "--strict", "--report", "json"},
     ConvertJob{{"a.dxf"}, {}, {}, 4, true, ReportForm::Json}},
    {"NoClobber",
     {"convert", "a.dxf", "--no-clobber"},
     ConvertJob{{"a.dxf"}, {}, {}, 0, false, ReportForm::None, true}},
    {"Limits",
     {"convert", "a.dxf", "--timeout", "60", "--memory", "500"},
     ConvertJob{{"a.dxf"}, {}, {}, 0, false, ReportForm::None, false, 60, 500}},
    {"Night",
     {"convert", "--list", "night.txt", "--update", "--report", "jsonl", "--log-dir", "logs", "--quiet"},
     ConvertJob{{}, {}, {}, 0, false, ReportForm::JsonLines, false, 0, 0, "night.txt", true, {}, "logs", Talk::Quiet}},
    {"Streams",
     {"convert", "-", "-o", "-", "--log", "run.log", "--verbose", "--title", "Plan"},
     ConvertJob{{"-"},
                "-",
                {{}, {}, {}, {}, {}, false, false, false, false, {}, false, {}, {}, "Plan"},
                0,
                false,
                ReportForm::None,
                false,
                0,
                0,
                {},
                false,
                "run.log",
                {},
                Talk::Verbose}},
    {"Secret",
     {"convert", "a.dxf", "--optimize", "--user-password", "open", "--owner-password", "change"},
     Convert({{}, {}, {}, {}, {}, false, false, false, false, {}, true, Passwords{"open", "change"}})},
    {"Standard",
     {"convert", "a.dxf", "--pdfa", "3b"},
     Convert({{}, {}, {}, {}, {}, false, false, false, false, {}, false, {}, {}, {}, PdfStandard::A3b})},
    {"DashedName", {"convert", "--", "-a.dxf"}, ConvertJob{{"-a.dxf"}, {}, {}, 0, false, ReportForm::None}},
    {"Layouts", {"layouts", "a.dxf"}, LayoutsJob{"a.dxf", false}},
    {"LayoutsJson", {"layouts", "a.dxf", "--json"}, LayoutsJob{"a.dxf", true}},
    {"LayoutNames", {"layouts", "a.dxf", "--names"}, LayoutsJob{"a.dxf", false, true}},
    {"Get", {"get", "DeletePs"}, GetJob{"DeletePs"}},
    {"Set", {"set", "DeletePs", "0"}, SetJob{"DeletePs", "0"}},
    {"SetEmpty", {"set", "DeletePs", ""}, SetJob{"DeletePs", ""}},
    {"List", {"list"}, ListJob{}},
    {"ListPart", {"list", "Stamp"}, ListJob{"Stamp"}},
    {"Log", {"log"}, LogJob{}},
    {"LogOfADrawing", {"log", "plan"}, LogJob{"plan", false}},
    {"LogList", {"log", "--list"}, LogJob{"", true}},
    {"ReportMerge", {"report", "merge", "a.jsonl", "b.json"}, ReportJob{{"a.jsonl", "b.json"}}},
    {"ReportMergeWhole",
     {"report", "merge", "a", "-o", "all", "--report", "jsonl", "--list", "night.txt", "--strict", "--missing", "m"},
     ReportJob{{"a"}, "all", ReportForm::JsonLines, "night.txt", true, "m"}},
    {"Doctor", {"doctor"}, DoctorJob{}},
    {"Help", {"help"}, HelpJob{}},
    {"HelpOn", {"help", "convert"}, HelpJob{"convert"}},
    {"Settings", {"settings"}, SettingsJob{}},
    {"SettingsOfADrawing", {"settings", "a.dxf"}, SettingsJob{"a.dxf", {}}},
    {"SettingsOfALayout", {"settings", "a.dxf", "--layout", "Ground floor"}, SettingsJob{"a.dxf", "Ground floor"}},
    {"PageSetup", {"page-setup"}, PageSetupJob{}},
    {"PageSetupOfADrawing", {"page-setup", "a.dxf"}, PageSetupJob{"a.dxf"}},
};

TEST(CommandLine, BecomesAJob)
{
    for (const JobRow& row : kJobs) {
        const ParsedCommand parsed = ParseCommandLine(row.words, "1.2.3");
        ASSERT_TRUE(parsed.job) << row.name << ": " << parsed.error;
        EXPECT_EQ(*parsed.job, row.job) << row.name;
        EXPECT_EQ(parsed.output + parsed.error, "") << row.name;
    }
}

struct ErrorRow {
    const char* name;
    Words words;
    const char* error;
};

const ErrorRow kErrors[] = {
    {"Misspelt", {"convrt", "a.dxf"}, "sheetmaker: there is no command \"convrt\"; did you mean \"convert\"?\n"},
    {"Unknown", {"frobnicate"}, "sheetmaker: there is no command \"frobnicate\"; \"sheetmaker --help\" lists them\n"},
    {"TwoSettings",
     {"settings", "a.dxf", "b.dxf"},
     "sheetmaker settings: The following argument was not expected: b.dxf\n"
     "\"sheetmaker settings --help\" explains it\n"},
    {"BadLayouts",
     {"convert", "a.dxf", "--layouts", "some"},
     "sheetmaker convert: --layouts: \"some\" is none of auto, all, active, model\n"
     "\"sheetmaker convert --help\" explains it\n"},
    {"LayoutAndLayouts",
     {"convert", "a.dxf", "--layouts", "all", "--layout", "A"},
     "sheetmaker convert: --layouts excludes --layout\n\"sheetmaker convert --help\" explains it\n"},
    {"NoJobs",
     {"convert", "a.dxf", "--jobs", "0"},
     "sheetmaker convert: --jobs: \"0\" is no number from 1 to 256\n\"sheetmaker convert --help\" explains it\n"},
    {"BadReport",
     {"convert", "a.dxf", "--report", "xml"},
     "sheetmaker convert: --report: \"xml\" is none of json, jsonl\n\"sheetmaker convert --help\" explains it\n"},
    {"EmptyPassword",
     {"convert", "a.dxf", "--owner-password", ""},
     "sheetmaker convert: --owner-password: a password is empty\n\"sheetmaker convert --help\" explains it\n"},
    {"PasswordNowhere",
     {"convert", "a.dxf", "--owner-password", "@/no/such/file"},
     "sheetmaker convert: --owner-password: /no/such/file can't be read\n\"sheetmaker convert --help\" explains it\n"},
    {"TwoTones",
     {"convert", "a.dxf", "--grey", "--mono"},
     "sheetmaker convert: --mono excludes --grey\n\"sheetmaker convert --help\" explains it\n"},
    {"StyleAndTone",
     {"publish", "-o", "s.pdf", "a.dxf", "--mono", "--plot-style", "none"},
     "sheetmaker publish: --plot-style excludes --mono\n\"sheetmaker publish --help\" explains it\n"},
    {"BadScale",
     {"convert", "a.dxf", "--scale", "50"},
     "sheetmaker convert: --scale: \"50\" is no scale; write it as 1:50\n\"sheetmaker convert --help\" explains it\n"},
    {"NoOwner",
     {"convert", "a.dxf", "--user-password", "x"},
     "sheetmaker convert: --user-password requires --owner-password\n\"sheetmaker convert --help\" explains it\n"},
    {"UnknownOption",
     {"convert", "a.dxf", "--frobnicate"},
     "sheetmaker convert: there is no option \"--frobnicate\"\n"
     "\"sheetmaker convert --help\" explains it\n"},
    {"MisspeltOption",
     {"stamp", "a.dxf", "--colour=blue"},
     "sheetmaker stamp: there is no option \"--colour\"; did you mean \"--color\"?\n"
     "\"sheetmaker stamp --help\" explains it\n"},
    {"TwoDrawings",
     {"layouts", "a.dxf", "b.dxf"},
     "sheetmaker layouts: The following argument was not expected: b.dxf\n"
     "\"sheetmaker layouts --help\" explains it\n"},
    {"ReportOtherwise",
     {"report", "split", "a.jsonl"},
     "sheetmaker report: ACTION: \"split\" is no action; there is merge\n\"sheetmaker report --help\" explains it\n"},
    {"ReportOfNothing",
     {"report", "merge"},
     "sheetmaker report: FILE is required\n\"sheetmaker report --help\" explains it\n"},
    {"LogAndList",
     {"log", "plan", "--list"},
     "sheetmaker log: LOG excludes --list\n\"sheetmaker log --help\" explains it\n"},
    {"NoValue", {"set", "DeletePs"}, "sheetmaker set: VALUE is required\n\"sheetmaker set --help\" explains it\n"},
};

TEST(CommandLine, SaysWhatIsWrong)
{
    for (const ErrorRow& row : kErrors) {
        const ParsedCommand parsed = ParseCommandLine(row.words, "1.2.3");
        EXPECT_FALSE(parsed.job) << row.name;
        EXPECT_EQ(parsed.exitCode, 2) << row.name;
        EXPECT_EQ(parsed.error, row.error) << row.name;
        EXPECT_EQ(parsed.output, "") << row.name;
    }
}

TEST(CommandLine, TellsItsVersion)
{
    const ParsedCommand parsed = ParseCommandLine({"--version"}, "sheetmaker 1.2.3");
    EXPECT_EQ(parsed.exitCode, 0);
    EXPECT_EQ(parsed.output, "sheetmaker 1.2.3\n");
}

TEST(CommandLine, ShowsItsHelpWhenItIsEmpty)
{
    const ParsedCommand asked = ParseCommandLine({"--help"}, "1.2.3"), empty = ParseCommandLine({}, "1.2.3");
    EXPECT_EQ(asked.exitCode, 0);
    EXPECT_EQ(empty.exitCode, 2);
    EXPECT_EQ(empty.error, asked.output + "\n");
}

TEST(CommandLine, ExplainsEveryCommandWithExamples)
{
    for (const char* command :
         {"convert", "layouts", "settings", "page-setup", "get", "set", "list", "log", "report", "help", "doctor"}) {
        const ParsedCommand parsed = ParseCommandLine({command, "--help"}, "1.2.3");
        EXPECT_EQ(parsed.exitCode, 0) << command;
        EXPECT_NE(parsed.output.find("Examples:\n  sheetmaker " + std::string(command)), std::string::npos) << command;
        EXPECT_NE(ParseCommandLine({"--help"}, "1.2.3").output.find("\n  " + std::string(command) + " "),
                  std::string::npos)
            << command;
    }
}

TEST(CommandLine, TakesADwgConverterForEveryCommandThatOpensDrawings)
{
    for (Words words : {Words{"convert", "a.dwg"},
                        {"publish", "-o", "s.pdf", "a.dwg"},
                        {"layouts", "a.dwg"},
                        {"settings", "a.dwg"},
                        {"page-setup", "a.dwg"},
                        {"stamp", "a.dwg", "--at", "1,2"},
                        {"attach", "a.dwg", "list"},
                        {"sign", "a.dwg", "list"},
                        {"doctor"}}) {
        const std::string command = words[0];
        EXPECT_EQ(ParseCommandLine(words, "1.2.3").dwgConverter, "") << command;
        words.insert(words.end(), {"--dwg-converter", "conv {in} {out}"});
        const ParsedCommand parsed = ParseCommandLine(words, "1.2.3");
        EXPECT_TRUE(parsed.job) << command << parsed.error;
        EXPECT_EQ(parsed.dwgConverter, "conv {in} {out}") << command;
        words.back() = "conv";
        EXPECT_EQ(ParseCommandLine(words, "1.2.3").error,
                  "sheetmaker " + command +
                      ": --dwg-converter: \"conv\" is none of node, dwg2dxf, oda and no command "
                      "with {in} and {out}\n\"sheetmaker " +
                      command + " --help\" explains it\n");
    }
}

} // namespace
} // namespace sm::app
