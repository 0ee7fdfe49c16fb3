// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/SettingCommands.h"

#include "doubles/MemoryRegistry.h"
#include "doubles/RegistryNames.h"
#include "preferences/SettingNames.h"

#include <gtest/gtest.h>
#include <sstream>

namespace sm::app {
namespace {

const std::vector<std::string> kJobOptions = {"Graphics [600 dpi]", "Print [1200 dpi]"};

class SettingCommands : public testing::Test {
protected:
    int Get(const std::string& name) { return RunGet(m_registry, {name}, m_out, m_err); }
    int Set(const std::string& name, const std::string& value)
    {
        return RunSet(m_registry, {name, value}, kJobOptions, m_err);
    }
    int List(const std::string& part) { return RunList(m_registry, {part}, m_out, m_err); }

    MemoryRegistry m_registry;
    std::ostringstream m_out, m_err;
};

TEST_F(SettingCommands, GetGivesTheStoredValueOrTheDefault)
{
    EXPECT_EQ(Get("JobOptionsFile"), 0);
    EXPECT_EQ(Get("deleteps"), 0);
    m_registry.Put(kUser, kKey, "DeletePs", "0");
    m_registry.Put(kUser, kKey, "WhatToPlot", "");
    EXPECT_EQ(Get("DeletePs"), 0);
    EXPECT_EQ(Get("WhatToPlot"), 0);
    EXPECT_EQ(m_out.str(), "Graphics [600 dpi]\n1\n0\n0\n");
    EXPECT_EQ(m_err.str(), "");
}

TEST_F(SettingCommands, GetSuggestsANameForOneThatIsNotThere)
{
    EXPECT_EQ(Get("DeletPs"), 2);
    EXPECT_EQ(Get("Colour"), 2);
    EXPECT_EQ(m_err.str(), "sheetmaker get: there is no setting \"DeletPs\"; did you mean \"DeletePs\"?\n"
                           "sheetmaker get: there is no setting \"Colour\"; \"sheetmaker list\" shows them\n");
}

struct SetRow {
    const char* name;
    const char* value;
    int exitCode;
    const char* stored;
    const char* error;
};

const SetRow kSetRows[] = {
    {"DeletePs", "0", 0, "0", ""},
    {"DeletePs", "YES", 0, "1", ""},
    {"DeletePs", "off", 0, "0", ""},
    {"DeletePs", "", 0, "", ""},
    {"DeletePs", "2", 2, "(absent)", "sheetmaker set: DeletePs takes 1 or 0\n"},
    {"WhatToPlot", "1", 0, "1", ""},
    {"WhatToPlot", "2", 2, "(absent)", "sheetmaker set: WhatToPlot takes 0 to 1\n"},
    {"WhatToPlot", "-1", 2, "(absent)", "sheetmaker set: WhatToPlot takes 0 or more\n"},
    {"WhatToPlot", "0.5", 2, "(absent)", "sheetmaker set: WhatToPlot takes a whole number\n"},
    {"PlotOriginX", "-3.25", 0, "-3.25", ""},
    {"PlotOriginX", "3,25", 2, "(absent)", "sheetmaker set: PlotOriginX takes a number, with \".\" for the decimals\n"},
    {"PaperWidth", "-1", 2, "(absent)", "sheetmaker set: PaperWidth takes 0 or more\n"},
    {"PaperWidth", "nan", 2, "(absent)", "sheetmaker set: PaperWidth takes a number, with \".\" for the decimals\n"},
    {"Stamp3", "NOT FOR SALE", 0, "NOT FOR SALE", ""},
    {"JobOptionsFile", "print [1200 DPI]", 0, "Print [1200 dpi]", ""},
    {"AttachmentLimit", "1200", 0, "1200", ""},
    {"AttachmentLimit", "1.5", 2, "(absent)", "sheetmaker set: AttachmentLimit takes a whole number\n"},
    {"AttachmentLimit", "1000001", 2, "(absent)", "sheetmaker set: AttachmentLimit takes 0 to 1000000\n"},
    {"DwgConverter", "dwg2dxf", 0, "dwg2dxf", ""},
    {"DwgConverter", "my-converter {in} {out}", 0, "my-converter {in} {out}", ""},
    {"DwgConverter", "my-converter", 2, "(absent)",
     "sheetmaker set: DwgConverter \"my-converter\" is none of node, dwg2dxf, oda and no command with {in} and "
     "{out}\n"},
    {"JobOptionsFile", "Web", 2, "(absent)",
     "sheetmaker set: JobOptionsFile takes the name of installed job options: \"Graphics [600 dpi]\", \"Print [1200 "
     "dpi]\"\n"},
};

TEST_F(SettingCommands, SetStoresWhatTheSettingTakes)
{
    for (const SetRow& row : kSetRows) {
        m_registry = MemoryRegistry();
        m_err.str("");
        EXPECT_EQ(Set(row.name, row.value), row.exitCode) << row.name << " " << row.value;
        EXPECT_EQ(m_registry.Text(kUser, kKey, row.name), row.stored) << row.name << " " << row.value;
        EXPECT_EQ(m_err.str(), row.error) << row.name << " " << row.value;
    }
}

TEST_F(SettingCommands, APaperTakesItsSizeAlong)
{
    EXPECT_EQ(Set("canonicalmedianame", "iso_a3_(297.00_x_420.00_mm)"), 0);
    EXPECT_EQ(m_registry.Text(kUser, kKey, "CanonicalMediaName"), "ISO_A3_(297.00_x_420.00_MM)");
    EXPECT_EQ(m_registry.Text(kUser, kKey, "PaperWidth"), "297");
    EXPECT_EQ(m_registry.Text(kUser, kKey, "PaperHeight"), "420");
    EXPECT_EQ(m_err.str(), "sheetmaker set: with it, PaperWidth is 297 and PaperHeight 420\n");
    m_err.str("");
    EXPECT_EQ(Set("CanonicalMediaName", ""), 0);
    EXPECT_EQ(m_registry.Text(kUser, kKey, "CanonicalMediaName"), "");
    EXPECT_EQ(m_registry.Text(kUser, kKey, "PaperWidth"), "");
    EXPECT_EQ(m_registry.Text(kUser, kKey, "PaperHeight"), "");
    EXPECT_EQ(m_err.str(), "sheetmaker set: with it, PaperWidth is 279.4 and PaperHeight 215.9\n");
}

TEST_F(SettingCommands, APaperThatNoPlotterHasIsRefused)
{
    EXPECT_EQ(Set("CanonicalMediaName", "ISO_A9"), 2);
    EXPECT_EQ(m_registry.Text(kUser, kKey, "CanonicalMediaName"), "(absent)");
    EXPECT_EQ(m_registry.Text(kUser, kKey, "PaperWidth"), "(absent)");
    const std::string told = m_err.str();
    EXPECT_EQ(told.find("sheetmaker set: CanonicalMediaName takes the name of a paper of the PDF plotter: \""), 0U)
        << told;
    EXPECT_NE(told.find("\"ISO_A3_(297.00_x_420.00_MM)\""), std::string::npos) << told;
}

TEST_F(SettingCommands, SetUsesTheSettingsOwnSpelling)
{
    EXPECT_EQ(Set("openinviewer", "no"), 0);
    EXPECT_EQ(m_registry.Text(kUser, kKey, "OpenInViewer"), "0");
    EXPECT_EQ(Set("OpenInViewr", "no"), 2);
    EXPECT_EQ(m_err.str(), "sheetmaker set: there is no setting \"OpenInViewr\"; did you mean \"OpenInViewer\"?\n");
}

TEST_F(SettingCommands, ListMarksWhatWasChanged)
{
    m_registry.Put(kUser, kKey, "TransferAttributes", "1");
    EXPECT_EQ(List("transfer"), 0);
    EXPECT_EQ(m_out.str(), "  TransferTextHlinks = 0\n"
                           "  TransferDrawingHlinks = 0\n"
                           "  TransferBlockHlinks = 0\n"
                           "  TransferVPortHlinks = 0\n"
                           "* TransferAttributes = 1\n");
    EXPECT_EQ(List("nothing"), 2);
    EXPECT_EQ(m_err.str(), "sheetmaker list: no setting's name contains \"nothing\"\n");
}

TEST_F(SettingCommands, ListShowsEverySettingWithItsDefault)
{
    EXPECT_EQ(List(""), 0);
    EXPECT_EQ(m_out.str(), R"(  PromptForFileName = 1
  DeletePs = 1
  OpenInViewer = 1
  WhatToPlot = 0
  Optimization = 0
  JobOptionsFile = Graphics [600 dpi]
  TransferTextHlinks = 0
  TransferDrawingHlinks = 0
  TransferBlockHlinks = 0
  TransferVPortHlinks = 0
  TransferAttributes = 0
  BlockAttribRemindAgain = 1
  NoShowAcad2000PlotterMsg = 0
  Stamp1 = DRAFT PRINT
  Stamp2 = FOR REVIEW
  Stamp3 = DO NOT BUILD TO PRINT
  Stamp4 = PROPRIETARY - DO NOT DISTRIBUTE
  Stamp5 = EMAILED ON &[Date]
  Stamp6 = PRINTED ON &[Date]
  Stamp7 = PRELIMINARY - &[User] - &[Date]
  Stamp8 = FOR BID ONLY - &[Date]
  Stamp9 = ENGINEERING PRE-RELEASE - &[Date]
  Stamp10 = &[Path] - &[Date]
  Stamp11 = STAMP 11
  Stamp12 = STAMP 12
  Stamp13 = STAMP 13
  Stamp14 = STAMP 14
  Stamp15 = STAMP 15
  CanonicalMediaName = ANSI_A_(11.00_x_8.50_Inches)
  PaperWidth = 279.4
  PaperHeight = 215.9
  PlotRotation = 0
  PlotType = 1
  CenterPlot = 1
  PlotOriginX = 0
  PlotOriginY = 0
  UseStandardScale = 1
  StandardScale = 0
  ScaleNumer = 1
  ScaleDenom = 1
  PaperUnits = 0
  PlotWithPlotStyles = 1
  StyleSheet = 
  ShowPlotStyles = 1
  PlotHidden = 0
  PlotViewportsFirst = 1
  PlotWithLineWeights = 1
  ScaleLineWeights = 0
  PlotViewportBorders = 0
  WinLowerLeftX = 0
  WinLowerLeftY = 0
  WinUpperRightX = 0
  WinUpperRightY = 0
  ViewToPlot = 
  PublishWith = 0
  DwgConverter = 
  AttachmentLimit = 250
)");
}

} // namespace
} // namespace sm::app
