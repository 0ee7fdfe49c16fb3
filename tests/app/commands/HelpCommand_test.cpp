// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/HelpCommand.h"

#include "commandline/CommandLine.h"
#include "preferences/SettingHelp.h"

#include <gtest/gtest.h>
#include <sstream>

namespace sm::app {
namespace {

struct HelpRow {
    const char* name;
    const char* topic;
    int code;
    const char* out;
    const char* err;
};

TEST(HelpCommand, ExplainsSettings)
{
    const HelpRow rows[] = {
        {"Switch", "deleteps", 0,
         "DeletePs\n  Remove the PostScript files of the sheets once the PDF is made.\n  Values:  1 or 0\n"
         "  Default: 1\n",
         ""},
        {"Choice", "PlotType", 0,
         "PlotType\n  What the global page setup plots.\n"
         "  Values:  0 display, 1 extents, 2 limits, 3 view, 4 window, 5 layout\n  Default: 1\n",
         ""},
        {"WholeNumber", "PlotRotation", 0,
         "PlotRotation\n  Quarter turns of the page against the paper, in the global page setup.\n"
         "  Values:  a whole number from 0 to 3\n  Default: 0\n",
         ""},
        {"AnyWholeNumber", "StandardScale", 0,
         "StandardScale\n  The standard scale by its number in the CAD program; 0 fits the plot to the paper.\n"
         "  Values:  a whole number from 0 up\n  Default: 0\n",
         ""},
        {"Number", "PaperWidth", 0,
         "PaperWidth\n  Width of the global page setup's paper, in millimetres.\n"
         "  Values:  a number from 0 up\n  Default: 279.4\n",
         ""},
        {"Text", "ViewToPlot", 0,
         "ViewToPlot\n  Name of the view that the plot type \"view\" plots.\n  Values:  a text\n  Default: none\n", ""},
        {"Misspelt", "paperwith", 2, "",
         "sheetmaker help: there is neither a command nor a setting \"paperwith\"; did you mean \"PaperWidth\"?\n"},
        {"MisspeltCommand", "convrt", 2, "",
         "sheetmaker help: there is neither a command nor a setting \"convrt\"; did you mean \"convert\"?\n"},
        {"Unknown", "frobnicate", 2, "",
         "sheetmaker help: there is neither a command nor a setting \"frobnicate\"; \"sheetmaker help\" lists the "
         "commands, \"sheetmaker list\" the settings\n"},
    };
    for (const HelpRow& row : rows) {
        std::ostringstream out, err;
        EXPECT_EQ(RunHelp({row.topic}, out, err), row.code) << row.name;
        EXPECT_EQ(out.str(), row.out) << row.name;
        EXPECT_EQ(err.str(), row.err) << row.name;
    }
}

TEST(HelpCommand, SaysOfCommandsWhatTheirOwnOptionSays)
{
    for (const char* command : {"convert", "publish", "stamp", "log", "help"}) {
        std::ostringstream out, err;
        EXPECT_EQ(RunHelp({command}, out, err), 0) << command;
        EXPECT_EQ(out.str(), ParseCommandLine({command, "--help"}, "").output) << command;
    }
    std::ostringstream out, err;
    EXPECT_EQ(RunHelp({""}, out, err), 0);
    EXPECT_EQ(out.str(), ParseCommandLine({"--help"}, "").output);
}

TEST(HelpCommand, KnowsEverySetting)
{
    for (const Setting& setting : kSettings)
        EXPECT_TRUE(SettingMeaning(setting).ends_with('.')) << setting.name;
}

} // namespace
} // namespace sm::app
