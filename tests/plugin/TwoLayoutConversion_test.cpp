// SPDX-License-Identifier: GPL-3.0-or-later
// One whole conversion of a drawing with two sheets, every log line and library call written out.
#include "doubles/TestHouse.h"
#include "plugin/cPlugin.h"

namespace sm {
namespace {

class TwoLayoutConversion : public TestHouse {
protected:
    void Convert()
    {
        PutSetting("PromptForFileName", "0");
        PutSetting("WhatToPlot", "1");
        cPlugin plugin(context);
        ASSERT_EQ(plugin.Initialize(host.Application()), kTrue);
        plugin.ConvertToPDF(77);
    }
};

TEST_F(TwoLayoutConversion, WritesThisLog)
{
    Convert();
    EXPECT_EQ(Log(), (Lines{
                         "PLUGIN STARTING PDF FILE: C:\\Jobs\\Plan.pdf",
                         "USE NATIVE PAGE SETUP FOR GROUND",
                         "  Original Profile Name: Unnamed Profile",
                         "  Original PrinterConfigPath: C:\\Users\\me\\Plotters",
                         "  Set PrinterConfigPath To: C:\\Program Files\\Tarnwick\\PC3",
                         "  Layout Tab: Ground",
                         "  PlotWithPlotStyles: 1",
                         "  ShowPlotStyles: 0",
                         "  PlotHidden: 0",
                         "  PlotViewportBorders: 0",
                         "  PlotWithLineWeights: 1",
                         "  ScaleLineWeights: 0",
                         "  PlotViewportsFirst: 1",
                         "  StyleSheet Requested: Florida.ctb",
                         "  StyleSheet Used: Florida.ctb",
                         "  PrinterConfigPath: C:\\Program Files\\Tarnwick\\PC3",
                         "  DriversPath: C:\\Acad\\Drivers",
                         "  ConfigName: Tarnwick PS8 HighRes.pc3",
                         "  CanonicalMediaName: ISO_A3_(420.00_x_297.00_MM)",
                         "  PaperWidth: 420",
                         "  PaperHeigth: 297",
                         "  PlotRotation: 0",
                         "  Window LowerLeft: 0 0",
                         "  Window UpperRight: 0 0",
                         "  PlotType: Layout",
                         "           [Use PlotType Window in place of Layout]",
                         "           [Window LowerLeft: 0 0]",
                         "           [Window UpperRight: 409 262]",
                         "           [PlotType: Window]",
                         "  PlotOrigin: 0 0",
                         "  CenterPlot: Not Set",
                         "  PaperUnits: Millimeters",
                         "  UseStandardScale: 1",
                         "  StandardScale: 16",
                         "TEXT STAMP",
                         "  [None]",
                         "FILE ATTACHMENTS",
                         "  [None]",
                         "DIGITAL SIGNATURE FIELDS",
                         "  [None]",
                         "HYPERLINKS",
                         "BLOCK ATTRIBUTES",
                         "  [None]",
                         "RESET PAGE SETUP",
                         "  Reset PrinterConfigPath To: C:\\Users\\me\\Plotters",
                         "USE NATIVE PAGE SETUP FOR UPPER",
                         "  Original Profile Name: Unnamed Profile",
                         "  Original PrinterConfigPath: C:\\Users\\me\\Plotters",
                         "  Set PrinterConfigPath To: C:\\Program Files\\Tarnwick\\PC3",
                         "  Layout Tab: Upper",
                         "  PlotWithPlotStyles: 1",
                         "  ShowPlotStyles: 0",
                         "  PlotHidden: 0",
                         "  PlotViewportBorders: 0",
                         "  PlotWithLineWeights: 1",
                         "  ScaleLineWeights: 0",
                         "  PlotViewportsFirst: 1",
                         "  StyleSheet Requested: ",
                         "  StyleSheet Used: ",
                         "  PrinterConfigPath: C:\\Program Files\\Tarnwick\\PC3",
                         "  DriversPath: C:\\Acad\\Drivers",
                         "  ConfigName: Tarnwick PS8 HighRes.pc3",
                         "  CanonicalMediaName: ISO_A3_(420.00_x_297.00_MM)",
                         "  PaperWidth: 420",
                         "  PaperHeigth: 297",
                         "  PlotRotation: 0",
                         "  Window LowerLeft: 0 0",
                         "  Window UpperRight: 0 0",
                         "  PlotType: Extents",
                         "  CenterPlot: 0",
                         "  PlotOrigin: 2.5 -1",
                         "  PaperUnits: Millimeters",
                         "  UseStandardScale: False",
                         "  ScaleNumer: 1",
                         "  ScaleDenom: 50",
                         "TEXT STAMP",
                         "  [None]",
                         "FILE ATTACHMENTS",
                         "  [None]",
                         "DIGITAL SIGNATURE FIELDS",
                         "  [None]",
                         "HYPERLINKS",
                         "BLOCK ATTRIBUTES",
                         "  [None]",
                         "RESET PAGE SETUP",
                         "  Reset PrinterConfigPath To: C:\\Users\\me\\Plotters",
                         "PDF FILE SAVED",
                     }));
}

TEST_F(TwoLayoutConversion, AsksTheLibraryInThisOrder)
{
    Convert();
    (void)Log();
    EXPECT_EQ(library.tape.CallsOf("PubDoc"),
              (Lines{
                  "PubDoc.NewPsFileName",
                  "PubDoc.AddPsFile C:\\Temp\\sheet1.ps | 1190.5511811023623 | 841.8897637795276 | 1200 | 1 | "
                  "C:\\Program Files\\Tarnwick\\Settings\\Graphics [600 dpi].joboptions",
                  "PubDoc.PendingMarkCount",
                  "PubDoc.NewPsFileName",
                  "PubDoc.AddPsFile C:\\Temp\\sheet2.ps | 1190.5511811023623 | 841.8897637795276 | 1200 | 1 | "
                  "C:\\Program Files\\Tarnwick\\Settings\\Graphics [600 dpi].joboptions",
                  "PubDoc.PendingMarkCount",
                  "PubDoc.SetDocSummary Plan | R. Draughtsman | 2026-03-14 15:09:26 | 2026-03-14 15:09:26",
                  "PubDoc.SetDocInfo Creator | Tarnwick Sheetmaker PDF 3.0",
                  "PubDoc.SaveToPdf C:\\Jobs\\Plan.pdf | 77 | 1 | 1 | 0",
              }));
    EXPECT_EQ(library.documentsAlive, 0);
}

TEST_F(TwoLayoutConversion, CountsBlocksOverItsSheetsAndFromOneInTheNext)
{
    PutSetting("PromptForFileName", "0");
    PutSetting("WhatToPlot", "1");
    PutSetting("TransferAttributes", "1");
    drawing->Blocks.push_back({"TITLE", {}});
    for (const auto& sheet : {ground, upper})
        sheet->Block.Entities = {
            {"AcDbBlockReference", {}, {}, {}, BlockReferenceFacts{"TITLE", {}, {{"SHEET", sheet->Name}}, {}}}};
    const Lines once{"PubDoc.AddPropertyMark 0 | TITLE_1/SHEET | Ground",
                     "PubDoc.AddPropertyMark 0 | TITLE_2/SHEET | Upper"};
    cPlugin plugin(context);
    ASSERT_EQ(plugin.Initialize(host.Application()), kTrue);
    for (int i = 0; i < 2; ++i) {
        library.tape.calls.clear();
        plugin.ConvertToPDF(77);
        EXPECT_EQ(library.tape.CallsOf("PubDoc.AddPropertyMark"), once) << "conversion " << i + 1;
    }
    (void)Log();
}

TEST_F(TwoLayoutConversion, LeavesTheUsersSettingsAsTheyWere)
{
    Convert();
    (void)Log();
    EXPECT_EQ(host.facts.PrinterConfigPath, kUsersPlotters);
    EXPECT_EQ(PendingFolder(), "");
    EXPECT_EQ(drawing->ActiveLayout, ground);
    EXPECT_EQ(ground->ConfigName, "\\\\server\\plotter");
    EXPECT_EQ(ground->CanonicalMediaName, "A3");
    EXPECT_EQ(ground->PlotType, 5);
    EXPECT_EQ(ground->StyleSheet, "Florida.ctb");
    EXPECT_EQ(upper->ConfigName, "\\\\server\\plotter");
    EXPECT_EQ(upper->CanonicalMediaName, "A3");
    EXPECT_FALSE(upper->UseStandardScale);
    EXPECT_DOUBLE_EQ(upper->ScaleDenominator, 50);
}

TEST_F(TwoLayoutConversion, TellsTheObserverItsStages)
{
    Convert();
    (void)Log();
    EXPECT_EQ(observer.events, (Lines{
                                   "stage layouts",
                                   "sheet begins Ground 1/2",
                                   "stage plot",
                                   "stage annotations",
                                   "sheet ends Ground 0 marks 0",
                                   "sheet begins Upper 2/2",
                                   "stage plot",
                                   "stage annotations",
                                   "sheet ends Upper 0 marks 0",
                                   "stage save",
                                   "saved C:\\Jobs\\Plan.pdf | 0 | ",
                               }));
    EXPECT_EQ(observer.carriedPast, Lines{});
}

} // namespace
} // namespace sm
