// SPDX-License-Identifier: GPL-3.0-or-later
// Order of the steps, plotter, medium and errors of the plot configuration.
#include "plotting/PlotConfigHouse.h"

namespace sm {
namespace {

TEST_F(PlotConfiguration, WritesEveryPropertyInThisOrderAndLogsIt)
{
    record.PlotHidden = 7; // any non-zero value counts as true
    record.ShowPlotStyles = 0;
    record.PlotOriginX = 1.25;
    record.PlotOriginY = -3;
    record.CenterPlot = 0;
    record.WinUpperRightX = 1e20;
    record.WinUpperRightY = 0.1;
    EXPECT_EQ(Configure(), 0);
    EXPECT_EQ(Log(), (Lines{"  Layout Tab: Ground",
                            "  PlotWithPlotStyles: 1",
                            "  ShowPlotStyles: 0",
                            "  PlotHidden: 1",
                            "  PlotViewportBorders: 0",
                            "  PlotWithLineWeights: 1",
                            "  ScaleLineWeights: 0",
                            "  PlotViewportsFirst: 1",
                            "  StyleSheet Requested: monochrome.ctb",
                            "  StyleSheet Used: monochrome.ctb",
                            "  PrinterConfigPath: C:\\Program Files\\Tarnwick\\PC3",
                            "  DriversPath: C:\\Acad\\Drivers",
                            "  ConfigName: Tarnwick PS8 HighRes.pc3",
                            "  CanonicalMediaName: ISO_A4_(210.00_x_297.00_MM)",
                            "  PaperWidth: 210",
                            "  PaperHeigth: 297",
                            "  PlotRotation: 0",
                            "  Window LowerLeft: 0 0",
                            "  Window UpperRight: 1E+20 0.1",
                            "  PlotType: Extents",
                            "  CenterPlot: 0",
                            "  PlotOrigin: 1.25 -3",
                            "  PaperUnits: Inches",
                            "  UseStandardScale: 1",
                            "  StandardScale: 0"}));
    EXPECT_EQ(Writes(),
              (Lines{"SetPlotWithPlotStyles 1", "SetShowPlotStyles 0", "SetPlotHidden 1", "SetPlotViewportBorders 0",
                     "SetPlotWithLineweights 1", "SetScaleLineweights 0", "SetPlotViewportsFirst 1",
                     "SetStyleSheet monochrome.ctb", "SetConfigName Tarnwick PS8 HighRes.pc3",
                     "SetCanonicalMediaName ISO_A4_(210.00_x_297.00_MM)", "SetPlotRotation 0",
                     "SetWindowToPlot 0,0 1e+20,0.1", "SetPlotType 1", "SetCenterPlot 0", "SetPlotOrigin 1.25,-3",
                     "SetPaperUnits 0", "SetUseStandardScale 1", "SetStandardScale 0"}));
}

TEST_F(PlotConfiguration, RestoreWritesTheSameInSilence)
{
    record.PlotType = 5;
    EXPECT_EQ(Configure(kTrue, true), 0);
    EXPECT_EQ(Log(), Lines{});
    const Lines writes = Writes();
    EXPECT_EQ(Lines(writes.begin() + 11, writes.end()),
              (Lines{"SetWindowToPlot 0,0 0,0", "SetPlotType 5", "SetPlotOrigin 0,0", "SetPaperUnits 0",
                     "SetUseStandardScale 1", "SetStandardScale 0"}))
        << "no window stands for the layout, and centring isn't touched";
}

TEST_F(PlotConfiguration, AnEmptyStyleSheetIsWrittenEmpty)
{
    record.StyleSheet = "";
    EXPECT_EQ(Configure(kFalse), 0);
    EXPECT_EQ(ground->StyleSheet, "");
    EXPECT_EQ(windows.calls, Lines{});
    const Lines lines = Log();
    EXPECT_EQ(Lines(lines.begin() + 8, lines.begin() + 10), (Lines{"  StyleSheet Requested: ", "  StyleSheet Used: "}));
}

TEST_F(PlotConfiguration, NoneIsAnEntryOfTheStyleList)
{
    record.StyleSheet = "None";
    EXPECT_EQ(Configure(kFalse), 0);
    EXPECT_EQ(ground->StyleSheet, "None");
    (void)Log();
}

TEST_F(PlotConfiguration, AMissingStyleIsLeftOutInSilence)
{
    record.StyleSheet = "MONOCHROME.CTB"; // the comparison is exact
    EXPECT_EQ(Configure(kTrue), -3);
    EXPECT_EQ(ground->StyleSheet, "");
    EXPECT_EQ(windows.calls, Lines{});
    const Lines lines = Log();
    EXPECT_EQ(lines[8], "  StyleSheet Requested: MONOCHROME.CTB");
    EXPECT_EQ(lines[9], "  StyleSheet Used: ");
    EXPECT_EQ(lines.back(), "  StandardScale: 0") << "the rest is written";
}

TEST_F(PlotConfiguration, AMissingStyleIsPicked)
{
    record.StyleSheet = "gone.ctb";
    windows.stylesPicked = {1};
    EXPECT_EQ(Configure(kFalse), 0);
    EXPECT_EQ(windows.calls, (Lines{"PickPlotStyle [None, Florida.ctb, monochrome.ctb]"}));
    EXPECT_EQ(ground->StyleSheet, "Florida.ctb");
    EXPECT_EQ(record.StyleSheet, "gone.ctb");
    EXPECT_EQ(Log()[9], "  StyleSheet Used: Florida.ctb");
}

TEST_F(PlotConfiguration, ACancelledOrFailingStylePickerEndsAtOnce)
{
    record.StyleSheet = "gone.ctb";
    const struct {
        std::optional<std::int32_t> choice;
        std::int32_t status;
    } rows[] = {{std::nullopt, -2}, {-1, -1}, {3, -1}};
    for (const auto& row : rows) {
        windows.stylesPicked = {row.choice};
        EXPECT_EQ(Configure(kFalse), row.status);
        EXPECT_EQ(Log().back(), "  StyleSheet Requested: gone.ctb");
        EXPECT_EQ(ground->StyleSheet, "Florida.ctb");
    }
}

TEST_F(PlotConfiguration, WithoutADeviceListThePlotterCannotBeUsed)
{
    host.tape.FailCall("Layout.GetPlotDeviceNames", "no list");
    EXPECT_EQ(Configure(), -4);
    host.tape.StopFailing();
    host.facts.Devices.clear();
    host.facts.DevicesIn.clear();
    EXPECT_EQ(Configure(), -4);
    EXPECT_EQ(Log().back(), "  DriversPath: C:\\Acad\\Drivers");
}

TEST_F(PlotConfiguration, AMissingPc3BecomesNoneAndTheMediumIsThenMissing)
{
    record.ConfigName = "gone.pc3";
    record.PlotRotation = 3;
    ground->PlotRotation = 1;
    EXPECT_EQ(Configure(), -5);
    EXPECT_EQ(record.ConfigName, "None");
    EXPECT_EQ(record.CanonicalMediaName, "A3");
    EXPECT_EQ(record.PlotRotation, 1);
    EXPECT_EQ(
        LogFrom("  ConfigName"),
        (Lines{"  ConfigName: [Missing: gone.pc3]", "  CanonicalMediaName: [Original: ISO_A4_(210.00_x_297.00_MM)]",
               "  PlotRotation: [Original: 3]", "  ConfigName: None", "  CanonicalMediaName: [Missing: A3]",
               "   [Exiting without setting the following Plot Settings:]", "   [PlotRotation]", "   [PaperUnits]",
               "   [UseStandardScale]", "   [StandardScale]", "   [ScaleNumer]", "   [ScaleDenom]"}));
    EXPECT_EQ(ground->ConfigName, "None") << "what was written stays written";
}

TEST_F(PlotConfiguration, FirstGenerationTakesTheLastDeviceForNone)
{
    UseDriver("ps6.hdi");
    host.facts.MediaOf["Tarnwick PS8 MidRes.pc3"].push_back("A3");
    record.ConfigName = "None";
    EXPECT_EQ(Configure(), 0);
    EXPECT_EQ(record.ConfigName, "Tarnwick PS8 MidRes.pc3");
    EXPECT_EQ(record.CanonicalMediaName, "A3");
    const Lines lines = LogFrom("  ConfigName");
    EXPECT_EQ(Lines(lines.begin(), lines.begin() + 4),
              (Lines{"  ConfigName: [Missing: None - Cannot set using Acad2000 ActiveX Interface]",
                     "   [Use Alternative ConfigName: Tarnwick PS8 MidRes.pc3]",
                     "  ConfigName: Tarnwick PS8 MidRes.pc3", "  CanonicalMediaName: A3"}));
}

TEST_F(PlotConfiguration, FirstGenerationWithOneDeviceGivesUp)
{
    UseDriver("ps6.hdi");
    host.facts.Devices = {"None"};
    host.facts.DevicesIn.clear();
    EXPECT_EQ(Configure(), -4);
    EXPECT_EQ(LogFrom("  ConfigName"),
              (Lines{"  ConfigName: [Missing: Tarnwick PS8 HighRes.pc3 - Cannot set using Acad2000 ActiveX Interface]",
                     "   [Exiting without setting the following Plot Settings:]", "   [CanonicalMediaName]",
                     "   [PlotRotation]", "   [PaperUnits]", "   [UseStandardScale]", "   [StandardScale]",
                     "   [ScaleNumer]", "   [ScaleDenom]"}));
    EXPECT_EQ(record.ConfigName, kPc3);
}

TEST_F(PlotConfiguration, SecondGenerationOfTheFirstReleaseCanSelectNone)
{
    UseDriver("ps7.hdi");
    record.ConfigName = "None";
    host.facts.MediaOf["None"] = {"ISO_A4_(210.00_x_297.00_MM)"};
    EXPECT_EQ(Configure(), 0);
    EXPECT_EQ(ground->ConfigName, "None");
    (void)Log();
}

TEST_F(PlotConfiguration, ARefusedPlotterIsLogged)
{
    host.tape.FailCall("Layout.SetConfigName", "Invalid input");
    EXPECT_EQ(Configure(), -4);
    EXPECT_EQ(LogFrom("  ConfigName"),
              (Lines{"  ConfigName: Tarnwick PS8 HighRes.pc3", "RUNTIME ERROR: Invalid input"}));
}

TEST_F(PlotConfiguration, AMediumWithoutReadableSizeIsLogged)
{
    host.tape.FailCall("Layout.GetPaperSize", "No paper");
    EXPECT_EQ(Configure(), -5);
    EXPECT_EQ(LogFrom("  Canonical"),
              (Lines{"  CanonicalMediaName: ISO_A4_(210.00_x_297.00_MM)", "RUNTIME ERROR: No paper"}));
}

TEST_F(PlotConfiguration, AnEmptyMediumThatIsListedIsNotWritten)
{
    record.CanonicalMediaName = "";
    host.facts.MediaOf[kPc3].push_back("");
    EXPECT_EQ(Configure(), 0);
    EXPECT_EQ(host.tape.CallsOf("Layout(Ground).SetCanonicalMediaName"), Lines{});
    (void)Log();
}

TEST_F(PlotConfiguration, AnUnexpectedErrorEndsTheCall)
{
    const char* const operations[] = {"Layout.Name",
                                      "Layout.SetPlotHidden",
                                      "Layout.GetPlotStyleTableNames",
                                      "Preferences.PrinterConfigPath",
                                      "Layout.SetPlotRotation",
                                      "Layout.SetWindowToPlot",
                                      "Layout.SetPlotType",
                                      "Layout.SetStandardScale"};
    for (const char* operation : operations) {
        SCOPED_TRACE(operation);
        host.tape.StopFailing();
        host.tape.FailCall(operation, "Invalid argument");
        EXPECT_EQ(Configure(), -1);
        EXPECT_EQ(Log().back(), "RUNTIME ERROR: SetAcadPlotConfig -Invalid argument");
    }
}

TEST_F(PlotConfiguration, AFailureWhileRestoringWritesNoLine)
{
    host.tape.FailCall("Layout.SetPlotRotation", "Invalid argument");
    EXPECT_EQ(Configure(kTrue, true), -1);
    host.tape.FailCall("Layout.SetConfigName", "Invalid input");
    EXPECT_EQ(Configure(kTrue, true), -4);
    EXPECT_EQ(observer.carriedPast, (Lines{"SetAcadPlotConfig: Invalid argument", "SetAcadPlotConfig: Invalid input"}));
}

TEST_F(PlotConfiguration, ABrokenLogDoesNotStopTheConfiguration)
{
    library.tape.FailCall("Log.WriteLogLine", "disk full");
    EXPECT_EQ(Configure(), 0);
    EXPECT_EQ(ground->ConfigName, kPc3);
}

TEST_F(PlotConfiguration, LogNumbersHaveAPointInEveryLocale)
{
    locale.decimalSeparator = ',';
    record.CenterPlot = 0;
    record.PlotOriginX = 2.5;
    EXPECT_EQ(Configure(), 0);
    EXPECT_EQ(LogFrom("  PlotOrigin").front(), "  PlotOrigin: 2.5 0");
}

} // namespace
} // namespace sm
