// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/RunReport.h"

#include "report/FileUri.h"
#include "report/SheetWatcher.h"

#include <gtest/gtest.h>
#include <sstream>

namespace sm::app {
namespace {

DrawingReport Full()
{
    DrawingReport report;
    report.drawing = "plan.dxf";
    report.pdfPath = "/out/plan.pdf";
    report.exitCode = 4;
    report.saveStatus = -12;
    report.pages = 3;
    report.pdfBytes = 123456789012;
    report.sheets = {{"Sheet 1", 0, 2}, {"Sheet \"2\"", 1, 0}};
    report.entities = {100, 90, 4, 3, 1, 2};
    report.notDrawn = {{"IMAGE", 2}, {"3DSOLID", 1}};
    report.damage = {{"a bad handle was skipped", 3, 120, true}, {"line ends were mixed", 1, 0, false}};
    report.substitutions = {"romans.shx by a stroke font"};
    report.remarks = {"diamond ends of a plot style table drawn round (2 times), which is told"};
    report.notes = {"annotations are not added by this version"};
    report.attachments = {{"report.pdf", "/srv/report.pdf", 5000000000}};
    report.attachmentsLost = {"/srv/gone.pdf"};
    report.marksLost = {"the stamp \"DRAFT\""};
    report.times = {1.5, 2.25, 3, 4, 11};
    return report;
}

TEST(RunReport, ComesBackFromJson)
{
    EXPECT_EQ(ReportFromJson(ToJson(Full(), -1)), Full());
    EXPECT_EQ(ReportFromJson(ToJson(DrawingReport{}, 2)), DrawingReport{});
    EXPECT_THROW(ReportFromJson("{\"drawing\": 1"), std::exception);
    EXPECT_THROW(ReportFromJson("[]"), std::exception);
}

TEST(RunReport, IsReadableJson)
{
    DrawingReport report = Full();
    report.drawing = "/plans/plan.dxf";
    EXPECT_EQ(ToJson(std::vector<DrawingReport>{report}, "sheetmaker 1.2.3"), R"({
  "schema": 1,
  "program": "sheetmaker 1.2.3",
  "drawings": [
    {
      "drawing": "/plans/plan.dxf",
      "drawingUri": "file:///plans/plan.dxf",
      "pdf": "/out/plan.pdf",
      "pdfUri": "file:///out/plan.pdf",
      "converted": true,
      "failure": "",
      "exitCode": 4,
      "saveStatus": -12,
      "pages": 3,
      "bytes": 123456789012,
      "sheets": [
        {
          "layout": "Sheet 1",
          "status": 0,
          "marks": 2
        },
        {
          "layout": "Sheet \"2\"",
          "status": 1,
          "marks": 0
        }
      ],
      "entities": {
        "read": 100,
        "drawn": 90,
        "hidden": 4,
        "offPage": 3,
        "notReached": 1,
        "notDrawn": 2,
        "notDrawnByKind": {
          "IMAGE": 2,
          "3DSOLID": 1
        }
      },
      "damage": [
        {
          "text": "a bad handle was skipped",
          "count": 3,
          "line": 120,
          "contentLost": true
        },
        {
          "text": "line ends were mixed",
          "count": 1,
          "line": 0,
          "contentLost": false
        }
      ],
      "substitutions": [
        "romans.shx by a stroke font"
      ],
      "remarks": [
        "diamond ends of a plot style table drawn round (2 times), which is told"
      ],
      "notes": [
        "annotations are not added by this version"
      ],
      "attachments": [
        {
          "name": "report.pdf",
          "path": "/srv/report.pdf",
          "bytes": 5000000000
        }
      ],
      "attachmentsLost": [
        "/srv/gone.pdf"
      ],
      "marksLost": [
        "the stamp \"DRAFT\""
      ],
      "logLost": false,
      "notToScale": false,
      "milliseconds": {
        "open": 1.5,
        "plot": 2.25,
        "pages": 3.0,
        "assemble": 4.0,
        "total": 11.0
      }
    }
  ]
})");
}

TEST(RunReport, MendsTextThatIsNotUtf8)
{
    DrawingReport report;
    report.drawing = "pl\xff"
                     "n.dxf";
    EXPECT_NE(ToJson(report, -1).find("\"drawing\":\"pl\xef\xbf\xbdn.dxf\""), std::string::npos);
}

TEST(RunReport, KeepsEveryByteOfPaths)
{
    DrawingReport report;
    report.drawing = "/in/pl\xffn.dxf";
    report.pdfPath = "/out/pl\xffn 100%.pdf";
    EXPECT_EQ(ReportFromJson(ToJson(report, -1)), report);
    EXPECT_EQ(FileUri(report.pdfPath), "file:///out/pl%FFn%20100%25.pdf");
    for (const char* uri : {"", "/plan.dxf", "file:///a%4", "file:///a%zz", "http://a/b"})
        EXPECT_EQ(PathOfUri(uri), "") << uri;
}

TEST(RunReport, TellsADriveFromAFolderWithAColon)
{
    EXPECT_EQ(FileUri("/C:/plan.dxf"), "file:///C%3A/plan.dxf");
    EXPECT_EQ(PathOfUri("file:///C%3A/plan.dxf"), "/C:/plan.dxf");
    EXPECT_EQ(PathOfUri("file:///C:/plan.dxf"), "C:/plan.dxf");
}

TEST(RunReport, NamesNoFileForStandardStreams)
{
    DrawingReport report;
    report.drawing = report.pdfPath = "-";
    EXPECT_TRUE(ToJsonLine(report).starts_with(
        R"({"schema":1,"drawing":"-","drawingUri":"","pdf":"-","pdfUri":"","converted":true)"))
        << ToJsonLine(report);
    EXPECT_EQ(ToJsonLine(report).find('\n'), std::string::npos);
}

TEST(RunReport, BecomesLines)
{
    EXPECT_EQ(ResultLine(Full()), "plan.dxf -> /out/plan.pdf, 3 pages");
    EXPECT_EQ(
        RemarkLines(Full()),
        (std::vector<std::string>{"lost: a bad handle was skipped (line 120, 3 times)", "mended: line ends were mixed",
                                  "not drawn: 2 IMAGE, 1 3DSOLID", "fonts: romans.shx by a stroke font",
                                  "note: diamond ends of a plot style table drawn round (2 times), which is told",
                                  "annotations are not added by this version"}));
    DrawingReport failed;
    failed.drawing = "plan.dxf";
    failed.failure = "sheet \"A\": it was cancelled or could not be plotted";
    failed.damage = {{"short", 2, 0, false}, {"long", 1, 7, true}};
    EXPECT_EQ(ResultLine(failed), "");
    EXPECT_EQ(RemarkLines(failed),
              (std::vector<std::string>{"mended: short (2 times)", "lost: long (line 7)",
                                        "failed: sheet \"A\": it was cancelled or could not be plotted"}));
}

struct ExitRow {
    const char* name;
    std::vector<int> codes;
    bool strict;
    int expected;
};

TEST(RunReport, GivesTheExitCodeOfTheRun)
{
    const ExitRow rows[] = {
        {"AllDone", {0, 0}, false, 0},
        {"OneFailed", {0, 1}, false, 1},
        {"ContentLost", {0, 4}, false, 4},
        {"ContentLostStrict", {0, 4}, true, 1},
        {"FailedOutweighsLost", {4, 1}, false, 1},
        {"ToolMissingOutweighsAll", {1, 3}, false, 3},
        {"WrongNameAlone", {2}, false, 2},
        {"WrongNameAmongSeveral", {0, 2}, false, 1},
        {"Nothing", {}, false, 0},
    };
    for (const ExitRow& row : rows) {
        std::vector<DrawingReport> reports(row.codes.size());
        for (std::size_t i = 0; i < reports.size(); ++i)
            reports[i].exitCode = row.codes[i];
        EXPECT_EQ(ExitCodeOf(reports, row.strict), row.expected) << row.name;
    }
}

TEST(RunReport, WhatIsNotDrawnFailsAStrictRun)
{
    for (const auto& [kind, expected] :
         std::vector<std::pair<std::string, int>>{{"OLE2FRAME", 1}, {"DWFUNDERLAY", 1}, {"LIGHT", 0}, {"SUN", 0}}) {
        std::vector<DrawingReport> reports(1);
        reports[0].notDrawn = {{kind, 2}};
        EXPECT_EQ(ExitCodeOf(reports, false), 0) << kind;
        EXPECT_EQ(ExitCodeOf(reports, true), expected) << kind;
    }
}

TEST(RunReport, AFileThatIsNotAttachedFailsAStrictRun)
{
    std::vector<DrawingReport> reports(1);
    reports[0].attachments = {{"report.pdf", "/srv/report.pdf", 5}};
    EXPECT_EQ(ExitCodeOf(reports, true), 0);
    reports[0].attachmentsLost = {"/srv/gone.pdf"};
    EXPECT_EQ(ExitCodeOf(reports, false), 0);
    EXPECT_EQ(ExitCodeOf(reports, true), 1);
}

TEST(RunReport, WhatIsMissingBesideThatFailsAStrictRun)
{
    DrawingReport mark, log, entities, work, other;
    mark.marksLost = {"the stamp \"DRAFT\""};
    log.logLost = true;
    entities.remarks = {"blocks unfold to too many entities, the rest left out"};
    work.remarks = {"entities unfold to more lines than a sheet can hold, the rest left out"};
    other.remarks = {"a hatch pattern too dense for paper thinned out"};
    for (const DrawingReport& report : {mark, log, entities, work}) {
        EXPECT_EQ(ExitCodeOf({report}, false), 0);
        EXPECT_EQ(ExitCodeOf({report}, true), 1);
    }
    EXPECT_EQ(ExitCodeOf({other}, true), 0);
}

class Watching : public testing::Test {
protected:
    std::ostringstream m_out;
    terminal::Console m_console{m_out, true};
    DrawingReport m_report;
    SheetWatcher m_watcher{m_report, m_console};
};

TEST_F(Watching, CollectsSheetsAndShowsProgress)
{
    m_report.drawing = "plan.dxf";
    m_watcher.Stage("layouts");
    m_watcher.SheetBegins("A", 1, 2);
    m_watcher.Stage("plot");
    m_watcher.SheetEnds("A", 0, 5);
    EXPECT_EQ(m_report.sheets, (std::vector<SheetReport>{{"A", 0, 5}}));
    EXPECT_EQ(m_out.str(), "\r\x1b[Kplan.dxf: layouts\r\x1b[Kplan.dxf: sheet 1 of 2 \"A\""
                           "\r\x1b[Kplan.dxf: sheet 1 of 2 \"A\", plot");
    EXPECT_EQ(m_watcher.FailedSheet(""), "");
}

TEST_F(Watching, NamesTheSheetThatFailedAndWhy)
{
    m_watcher.SheetBegins("A", 1, 2);
    m_watcher.CarriedPast("SetAcadPlotConfig", "the medium is unknown");
    m_watcher.SheetEnds("A", 0, 0);
    m_watcher.SheetBegins("B", 2, 2);
    m_watcher.SheetEnds("B", -9, 0);
    EXPECT_EQ(m_watcher.FailedSheet(""), "sheet \"B\": its paper is not on the plotter's list");
    EXPECT_EQ(m_watcher.FailedSheet("disk full"), "sheet \"B\": its paper is not on the plotter's list (disk full)");
    m_watcher.CarriedPast("PlotLayoutToPubDoc", "broken");
    EXPECT_EQ(m_watcher.FailedSheet(""),
              "sheet \"B\": its paper is not on the plotter's list (PlotLayoutToPubDoc: broken)");
    m_watcher.Reason("Nothing fits.");
    EXPECT_EQ(m_watcher.FailedSheet("disk full"),
              "sheet \"B\": its paper is not on the plotter's list (Nothing fits.)");
}

struct StatusRow {
    std::int32_t status;
    const char* text;
};

TEST(StatusText, ExplainsEveryStatusOfASheet)
{
    const StatusRow rows[] = {
        {-1, "it was cancelled or could not be plotted"},
        {-2, "its page setup could not be applied"},
        {-5, "it has no usable page setup"},
        {-7, "the folder of plotter configurations could not be used"},
        {-8, "the plotter configuration (PC3) file could not be found"},
        {-9, "its paper is not on the plotter's list"},
        {-10, "its view to plot is missing"},
        {-11, "the PostScript driver could not be found"},
        {-12, "its page was refused by the publisher"},
        {-13, "there is no such layout"},
        {-99, "it ended with status -99"},
    };
    for (const StatusRow& row : rows)
        EXPECT_EQ(StatusText(row.status), row.text);
}

} // namespace
} // namespace sm::app
