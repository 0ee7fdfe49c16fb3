// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/Completions.h"
#include "pages/ManPages.h"
#include "pages/Roff.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

CommandFacts Named(const std::string& name)
{
    for (const CommandFacts& command : AllCommands())
        if (command.name == name)
            return command;
    return {};
}

TEST(Roff, MakesTextHarmless)
{
    EXPECT_EQ(RoffText("a-b\\c"), "a\\-b\\ec");
    EXPECT_EQ(RoffText(".sheetmaker"), "\\&.sheetmaker");
    EXPECT_EQ(RoffText("'quoted'"), "\\&'quoted'");
    EXPECT_EQ(Bold("x") + Italic("y"), "\\fBx\\fR\\fIy\\fR");
}

TEST(CommandFacts, PartFooters)
{
    const FooterParts parts =
        PartsOf("Examples:\n  sheetmaker log\n  sheetmaker log | grep ERROR\n\nA note\nof two lines.");
    EXPECT_EQ(parts.examples, (std::vector<std::string>{"sheetmaker log", "sheetmaker log | grep ERROR"}));
    EXPECT_EQ(parts.notes, "A note\nof two lines.\n");
}

TEST(CommandFacts, HaveWhatTheHelpHas)
{
    const CommandFacts get = Named("get");
    EXPECT_EQ(get.summary, "Print a setting");
    ASSERT_EQ(get.options.size(), 2U);
    EXPECT_EQ(get.options[0].shortName + " " + get.options[0].longName, "-h --help");
    EXPECT_TRUE(get.options[0].IsFlag());
    EXPECT_EQ(get.options[1].value, "NAME");
    EXPECT_TRUE(get.options[1].positional && get.options[1].required && !get.options[1].repeats);
}

TEST(ManPages, AreWholeForASmallCommand)
{
    const std::string page = CommandPage(Named("get"), "1.2.3");
    const std::string expected = R"(.\" Made from the program's own table of options; changes belong there.
.TH SHEETMAKER-GET 1 "" "sheetmaker 1.2.3" "Sheetmaker PDF"
.SH NAME
sheetmaker\-get \- Print a setting
.SH SYNOPSIS
\fBsheetmaker get\fR [\fIOPTIONS\fR] \fINAME\fR
.SH DESCRIPTION
Print a setting.
.SH ARGUMENTS
.TP
\fINAME\fR
The setting's name.
.SH OPTIONS
.TP
\fB\-h\fR, \fB\-\-help\fR
Print this help message and exit.
.SH EXAMPLES
.nf
sheetmaker get JobOptionsFile
.fi
.SH EXIT STATUS
)";
    EXPECT_EQ(page.substr(0, expected.size()), expected);
}

TEST(ManPages, TellOfEveryFieldOfTheReport)
{
    const std::string page = ReportPage(R"({"description": "What it is.",
        "properties": {"schema": {"const": 1, "description": "Its number."}},
        "$defs": {"drawing": {"properties": {
            "sheets": {"type": "array", "description": "The sheets.", "items": {"type": "object", "properties": {
                "layout": {"type": "string", "description": "Its name."}}}},
            "notes": {"type": "array", "items": {"type": "string"}, "description": "Remarks."}}}}})",
                                        "1.2.3");
    EXPECT_NE(page.find(R"(.SH THE REPORT
.TP
\fBschema\fR (1)
Its number.
.SH A DRAWING
.TP
\fBsheets\fR (array of objects)
The sheets.
.TP
\fBsheets[].layout\fR (string)
Its name.
.TP
\fBnotes\fR (array of strings)
Remarks.
)"),
              std::string::npos)
        << page;
    EXPECT_THROW(ReportPage("[]", "1.2.3"), std::exception);
}

TEST(Completions, OfferWhatAnOptionTakes)
{
    struct Row {
        const char* command;
        const char* option; ///< or the name of a positional
        CompletedWith with;
    };
    const Row rows[] = {
        {"convert", "--layouts", CompletedWith::Choices},
        {"convert", "--layout", CompletedWith::Layouts},
        {"convert", "--output", CompletedWith::Files},
        {"convert", "--job-options", CompletedWith::JobOptions},
        {"convert", "--timeout", CompletedWith::Nothing},
        {"convert", "DRAWING", CompletedWith::Drawings},
        {"attach", "FILE", CompletedWith::Files},
        {"get", "NAME", CompletedWith::Settings},
        {"sign", "NAME", CompletedWith::Nothing},
        {"help", "TOPIC", CompletedWith::Commands},
        {"publish", "DRAWING[:LAYOUT]", CompletedWith::Drawings},
    };
    for (const Row& row : rows) {
        bool found = false;
        for (const OptionFacts& option : Named(row.command).options)
            if (option.longName == row.option || (option.positional && option.value == row.option)) {
                found = true;
                EXPECT_EQ(CompletionOf(Named(row.command), option), row.with) << row.command << " " << row.option;
            }
        EXPECT_TRUE(found) << row.command << " " << row.option;
    }
}

} // namespace
} // namespace sm::app
