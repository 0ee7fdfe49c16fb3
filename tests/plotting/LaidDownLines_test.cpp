// SPDX-License-Identifier: GPL-3.0-or-later
// Every text that the plot loop, the plot configuration and the plotter folder are to write or show.
#include "doubles/LaidDownTexts.h"
#include "doubles/ProducedTexts.h"

#include <gtest/gtest.h>

namespace sm {
namespace {

const bool kLogLines = RequireLaidDownTexts({
    {"RUNTIME ERROR: AcadGetPlotLayoutList : ", false},
    {"USE NATIVE PAGE SETUP FOR ", false},
    {"USE CUSTOM PAGE SETUP FOR ", false},
    {"USE GLOBAL PAGE SETUP FOR ", false},
    {"USE  PAGE SETUP FOR ", false},
    {"ERROR: FAILED TO ADD PS TO PUB DOC = ", false},
    {"RESET PAGE SETUP"},
    {"ERROR: PlotLayoutToPubDoc -5"},
    {"ERROR: PlotLayoutToPubDoc -7"},
    {"ERROR: PlotLayoutToPubDoc -11"},
    {"ERROR: PlotLayoutToPubDoc -12"},
    {"ERROR: PlotLayoutToPubDoc -13"},
    {"  Layout Tab: ", false},
    {"  PlotWithPlotStyles: ", false},
    {"  ShowPlotStyles: ", false},
    {"  PlotHidden: ", false},
    {"  PlotViewportBorders: ", false},
    {"  PlotWithLineWeights: ", false},
    {"  ScaleLineWeights: ", false},
    {"  PlotViewportsFirst: ", false},
    {"  StyleSheet Requested: ", false},
    {"  StyleSheet Used: ", false},
    {"  PrinterConfigPath: ", false},
    {"  DriversPath: ", false},
    {"  ConfigName: [Missing: ", false, " - Cannot set using Acad2000 ActiveX Interface]"},
    {"   [Exiting without setting the following Plot Settings:]"},
    {"   [CanonicalMediaName]"},
    {"   [PlotRotation]"},
    {"   [PaperUnits]"},
    {"   [UseStandardScale]"},
    {"   [StandardScale]"},
    {"   [ScaleNumer]"},
    {"   [ScaleDenom]"},
    {"   [Use Alternative ConfigName: ", false, "]"},
    {"  ConfigName: [Missing: gone.pc3]"},
    {"  CanonicalMediaName: [Original: ", false, "]"},
    {"  PlotRotation: [Original: ", false, "]"},
    {"  ConfigName: ", false, ".pc3"},
    {"RUNTIME ERROR: ", false},
    {"  CanonicalMediaName: [Missing: ", false, "]"},
    {"  CanonicalMediaName: ISO_A4_(210.00_x_297.00_MM)"},
    {"  PaperWidth: ", false},
    {"  PaperHeigth: ", false},
    {"  PlotRotation: ", false},
    {"  Window LowerLeft: ", false},
    {"  Window UpperRight: ", false},
    {"  PlotView: ", false},
    {"  PlotType: Display"},
    {"  PlotType: Extents"},
    {"  PlotType: Limits"},
    {"  PlotType: View"},
    {"  PlotType: Window"},
    {"  PlotType: Layout"},
    {"           [Use PlotType Window in place of Layout]"},
    {"           [Window LowerLeft: ", false, "]"},
    {"           [Window UpperRight: ", false, "]"},
    {"           [PlotType: Window]"},
    {"  CenterPlot: 0"},
    {"  CenterPlot: 1"},
    {"  CenterPlot: Not Set"},
    {"  PlotOrigin: ", false},
    {"  PaperUnits: Inches"},
    {"  PaperUnits: Millimeters"},
    {"  PaperUnits: Pixels"},
    {"  UseStandardScale: 1"},
    {"  UseStandardScale: False"},
    {"  StandardScale: ", false},
    {"  ScaleNumer: ", false},
    {"  ScaleDenom: ", false},
    {"RUNTIME ERROR: SetAcadPlotConfig -", false},
    {"  Original Profile Name: ", false},
    {"  Original PrinterConfigPath: ", false},
    {"  Set PrinterConfigPath To: ", false},
    {"  ERROR: Plotter Folder does not exist."},
    {"  ERROR: Could not set Plotter Path."},
    {"  OK: Plotter Already Reset"},
    {"  Reset PrinterConfigPath To: ", false},
    {"  ERROR: Could not reset PrinterConfigPath, try default AutoCAD PrinterConfigPath."},
    {"             Reset Plotter Path To: ", false},
    {"  ERROR: Could not reset PrinterConfigPath."},
});

const bool kMessages = RequireLaidDownTexts({
    {"The Postscript HDI driver (ps6.hdi, ps7.hdi or ps8.hdi) is required to make PDF files.  It could not be located "
     "\r\nin your current AutoCAD Drivers folder. You may need to reinstall AutoCAD or redefine your AutoCAD "
     "Drivers\r\nfolder to point a directory containing one of these files."},
    {"Before converting to PDF you must initialize the Page Setup for each Model or Layout Tab to be converted. "
     "\r\nDo this using the AutoCAD /File/Page_Setup/ menu item."},
    {"There was an error setting the printer for the PDF conversion.  The Sheetmaker PDF install folder could not be "
     "located.\r\nPlease reinstall the software or see trouble shooting in the Help files for more information."},
    {"The selected view to plot could not be found. PDF conversion was canceled."},
    {"The selected plot view was not defined on the layout to be converted. PDF conversion was canceled."},
    {"The Media Name selected could not be found on the HDI Postscript printer PC3 file.\r\nPlease see the Help file "
     "for more information."},
    {"The PDF plotter configuration file could not be found.  Please reinstall the software to fix this problem."},
    {"An unknown error occurred during Sheetmaker PDF execution. It is suggested that you send an email\r\nto "
     "Tarnwick Technical Support at support@tarnwick.example and attach the Log File that was created. \r\n\r\nWould "
     "you like to view the log file now?"},
    {"Due to certain limitations, the PDF Annotations (i.e text stamps, \r\nhyperlinks, file attachments, and digital "
     "signature fields) cannot be \r\nadded using the Display plot type. Please choose Layout, Extents, View or "
     "Window.\r\n\r\nWould you like to continue to make a PDF file without Annotations?"},
    {"Your plotter folder was changed during the PDF creation process and there was an error trying to reset "
     "it.\r\nIt was instead changed to: ",
     false},
    {"The original plotter or PC3 file for this layout doesn't exists. You will be forced to \r\nreset your page setup "
     "manually using the AutoCAD /File/Page_Setup/ menu item.\r\n\r\nWould you like to be notified next time this "
     "occurrs?"},
});

TEST(LaidDownLines, AreCheckedWhenTheWholeProgramHasRun)
{
    EXPECT_TRUE(kLogLines && kMessages);
    EXPECT_EQ(ProducedTexts().count("a text that nothing produces"), 0U);
}

} // namespace
} // namespace sm
