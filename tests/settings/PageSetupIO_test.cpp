// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/RegistryNames.h"
#include "doubles/SettingsStand.h"
#include "settings/mdlDataKegIO.h"

namespace sm {
namespace {

using Texts = std::vector<std::string>;

/// A record in which no two fields are alike.
PageSetupRecord Distinct()
{
    PageSetupRecord record;
    record.ConfigName = "Some.pc3";
    record.CanonicalMediaName = "ISO_A3_(420.00_x_297.00_MM)";
    record.LocaleMedianame = "ISO A3 (420.00 x 297.00 MM)";
    record.PaperWidth = 420.5;
    record.PaperHeight = 297.25;
    record.PlotRotation = 3;
    record.PlotType = 4;
    record.CenterPlot = 5;
    record.PlotOriginX = 6.5;
    record.PlotOriginY = -7.25;
    record.UseStandardScale = 8;
    record.StandardScale = -9;
    record.ScaleNumer = 10.125;
    record.ScaleDenom = 11.5;
    record.PaperUnits = 12;
    record.PlotWithPlotStyles = 13;
    record.StyleSheet = "monochrome.ctb";
    record.ShowPlotStyles = 14;
    record.PlotHidden = 15;
    record.PlotViewportsFirst = 16;
    record.PlotWithLineweights = 17;
    record.ScaleLineWeights = 18;
    record.PlotViewportBorders = 19;
    record.WinLowerLeftX = -20.5;
    record.WinLowerLeftY = 21.5;
    record.WinUpperRightX = 1e20;
    record.WinUpperRightY = 23.5;
    record.ViewToPlot = "North view";
    return record;
}

/// What reading `Distinct` back gives: neither the configuration nor the display name is stored.
PageSetupRecord DistinctAsRead()
{
    PageSetupRecord record = Distinct();
    record.ConfigName = "*TARNWICK*";
    record.LocaleMedianame = "";
    return record;
}

class PageSetups : public SettingsStand {
protected:
    std::shared_ptr<DocumentFacts> facts = host.AddDocument(DocumentFacts());
    std::shared_ptr<IAcadDocument> document = host.Document(facts);

    void StorePlots(const std::vector<AcadVariant>& values)
    {
        AcadXData data{{1001}, {std::string("TWSI_Plots")}};
        data.codes.resize(values.size() + 1, 1000);
        data.values.insert(data.values.end(), values.begin(), values.end());
        facts->XData["TWSI_Plots"] = data;
    }
    /// 27 values, all empty but for the one at `position`.
    void StorePlotsValue(std::size_t position, const std::string& text)
    {
        std::vector<AcadVariant> values(27, std::string());
        values[position - 1] = text;
        StorePlots(values);
    }
};

TEST_F(PageSetups, TheGlobalOneWasNeverSavedAndReadsAsItsDefaults)
{
    const PageSetupRecord record = ReadGlobalPageSetup(surroundings);
    EXPECT_EQ(record.ConfigName, "*TARNWICK*");
    EXPECT_EQ(record.CanonicalMediaName, "ANSI_A_(11.00_x_8.50_Inches)");
    EXPECT_EQ(record.LocaleMedianame, "");
    EXPECT_EQ(record.PlotRotation, 0);
    EXPECT_EQ(record.PlotType, 1);
    EXPECT_EQ(record.ViewToPlot, "");
    EXPECT_EQ(record.WinLowerLeftX, 0);
    EXPECT_EQ(record.WinLowerLeftY, 0);
    EXPECT_EQ(record.WinUpperRightX, 0);
    EXPECT_EQ(record.WinUpperRightY, 0);
    EXPECT_EQ(record.CenterPlot, 1);
    EXPECT_EQ(record.PlotOriginX, 0);
    EXPECT_EQ(record.PlotOriginY, 0);
    EXPECT_EQ(record.PlotHidden, 0);
    EXPECT_EQ(record.UseStandardScale, 1);
    EXPECT_EQ(record.PlotWithLineweights, 1);
    EXPECT_EQ(record.PlotWithPlotStyles, 1);
    EXPECT_EQ(record.ScaleLineWeights, 0);
    EXPECT_EQ(record.ShowPlotStyles, 1);
    EXPECT_EQ(record.PlotViewportBorders, 0);
    EXPECT_EQ(record.PlotViewportsFirst, 1);
    EXPECT_EQ(record.StandardScale, 0);
    EXPECT_EQ(record.PaperUnits, 0);
    EXPECT_EQ(record.ScaleNumer, 1);
    EXPECT_EQ(record.ScaleDenom, 1);
    EXPECT_EQ(record.StyleSheet, "");
    EXPECT_EQ(record.PaperWidth, 279.4);
    EXPECT_EQ(record.PaperHeight, 215.9);
}

TEST_F(PageSetups, TheGlobalOneIsStoredValueByValue)
{
    WriteGlobalPageSetup(surroundings, Distinct());
    const std::pair<const char*, const char*> expected[] = {
        {"CanonicalMediaName", "ISO_A3_(420.00_x_297.00_MM)"},
        {"PaperWidth", "420.5"},
        {"PaperHeight", "297.25"},
        {"PlotRotation", "3"},
        {"PlotType", "4"},
        {"CenterPlot", "5"},
        {"PlotOriginX", "6.5"},
        {"PlotOriginY", "-7.25"},
        {"UseStandardScale", "8"},
        {"StandardScale", "-9"},
        {"ScaleNumer", "10.125"},
        {"ScaleDenom", "11.5"},
        {"PaperUnits", "12"},
        {"PlotWithPlotStyles", "13"},
        {"StyleSheet", "monochrome.ctb"},
        {"ShowPlotStyles", "14"},
        {"PlotHidden", "15"},
        {"PlotViewportsFirst", "16"},
        {"PlotWithLineWeights", "17"},
        {"ScaleLineWeights", "18"},
        {"PlotViewportBorders", "19"},
        {"WinLowerLeftX", "-20.5"},
        {"WinLowerLeftY", "21.5"},
        {"WinUpperRightX", "1E+20"},
        {"WinUpperRightY", "23.5"},
        {"ViewToPlot", "North view"},
    };
    for (const auto& [name, text] : expected)
        EXPECT_EQ(registry.Text(kUser, kKey, name), text) << name;
    EXPECT_EQ(registry.ValueCount(kUser, kKey), 26u);
    EXPECT_EQ(ReadGlobalPageSetup(surroundings), DistinctAsRead());
}

TEST_F(PageSetups, TheGlobalOneTakesDefaultsForValuesThatAreEmptyOrNoText)
{
    registry.Put(kUser, kKey, "PaperWidth", "");
    registry.PutBytes(kUser, kKey, "PlotType", RegistryType::DWord, std::string("\4\0\0\0", 4));
    registry.Put(kUser, kKey, "CenterPlot", "0");
    registry.Put(kUser, kKey, "PlotHidden", "2.5");
    const PageSetupRecord record = ReadGlobalPageSetup(surroundings);
    EXPECT_EQ(record.PaperWidth, 279.4);
    EXPECT_EQ(record.PlotType, 1);
    EXPECT_EQ(record.CenterPlot, 0);
    EXPECT_EQ(record.PlotHidden, 2);
}

TEST_F(PageSetups, AStoredScalePartOfZeroReadsAsOne)
{
    registry.Put(kUser, kKey, "ScaleNumer", "0");
    registry.Put(kUser, kKey, "ScaleDenom", "x");
    EXPECT_EQ(ReadGlobalPageSetup(surroundings).ScaleNumer, 1);
    EXPECT_EQ(ReadGlobalPageSetup(surroundings).ScaleDenom, 1);

    PageSetupRecord record;
    for (const std::size_t position : {12, 13}) {
        StorePlotsValue(position, "0");
        EXPECT_EQ(ReadCustomPageSetup(context, *document, record), CustomPageSetup::Read);
        EXPECT_EQ(record.ScaleNumer, 1);
        EXPECT_EQ(record.ScaleDenom, 1);
    }
}

TEST_F(PageSetups, ThePlotsRecordHoldsItsValuesFromPositionTwoOn)
{
    EXPECT_TRUE(WriteCustomPageSetup(context, *document, Distinct()));
    const Texts expected = {
        "TWSI_Plots",                  // 0
        "",                            // 1 stays empty
        "ISO_A3_(420.00_x_297.00_MM)", // 2 CanonicalMediaName
        "420.5",                       // 3 PaperWidth
        "297.25",                      // 4 PaperHeight
        "3",                           // 5 PlotRotation
        "4",                           // 6 PlotType
        "5",                           // 7 CenterPlot
        "6.5",                         // 8 PlotOriginX
        "-7.25",                       // 9 PlotOriginY
        "8",                           // 10 UseStandardScale
        "-9",                          // 11 StandardScale
        "10.125",                      // 12 ScaleNumer
        "11.5",                        // 13 ScaleDenom
        "12",                          // 14 PaperUnits
        "13",                          // 15 PlotWithPlotStyles
        "monochrome.ctb",              // 16 StyleSheet
        "14",                          // 17 ShowPlotStyles
        "15",                          // 18 PlotHidden
        "16",                          // 19 PlotViewportsFirst
        "17",                          // 20 PlotWithLineWeights
        "18",                          // 21 ScaleLineWeights
        "19",                          // 22 PlotViewportBorders
        "-20.5",                       // 23 WinLowerLeftX
        "21.5",                        // 24 WinLowerLeftY
        "1E+20",                       // 25 WinUpperRightX
        "23.5",                        // 26 WinUpperRightY
        "North view",                  // 27 ViewToPlot
    };
    const AcadXData& stored = facts->XData["TWSI_Plots"];
    ASSERT_EQ(stored.values.size(), 28u);
    ASSERT_EQ(stored.codes.size(), 28u);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(stored.values[i], AcadVariant(expected[i])) << i;
        EXPECT_EQ(stored.codes[i], i == 0 ? 1001 : 1000) << i;
    }
    PageSetupRecord record;
    EXPECT_EQ(ReadCustomPageSetup(context, *document, record), CustomPageSetup::Read);
    EXPECT_EQ(record, DistinctAsRead());
}

TEST_F(PageSetups, EachPositionOfThePlotsRecordReadsIntoItsField)
{
    using Record = PageSetupRecord;
    const struct {
        std::size_t position;
        std::variant<std::string Record::*, double Record::*, std::int32_t Record::*> field;
    } rows[] = {
        {2, &Record::CanonicalMediaName},
        {3, &Record::PaperWidth},
        {4, &Record::PaperHeight},
        {5, &Record::PlotRotation},
        {6, &Record::PlotType},
        {7, &Record::CenterPlot},
        {8, &Record::PlotOriginX},
        {9, &Record::PlotOriginY},
        {10, &Record::UseStandardScale},
        {11, &Record::StandardScale},
        {12, &Record::ScaleNumer},
        {13, &Record::ScaleDenom},
        {14, &Record::PaperUnits},
        {15, &Record::PlotWithPlotStyles},
        {16, &Record::StyleSheet},
        {17, &Record::ShowPlotStyles},
        {18, &Record::PlotHidden},
        {19, &Record::PlotViewportsFirst},
        {20, &Record::PlotWithLineweights},
        {21, &Record::ScaleLineWeights},
        {22, &Record::PlotViewportBorders},
        {23, &Record::WinLowerLeftX},
        {24, &Record::WinLowerLeftY},
        {25, &Record::WinUpperRightX},
        {26, &Record::WinUpperRightY},
        {27, &Record::ViewToPlot},
    };
    for (const auto& row : rows) {
        StorePlotsValue(row.position, "7.5");
        PageSetupRecord record, expected;
        if (const auto* text = std::get_if<std::string Record::*>(&row.field))
            expected.** text = "7.5";
        else if (const auto* number = std::get_if<double Record::*>(&row.field))
            expected.** number = 7.5;
        else
            expected.*std::get<std::int32_t Record::*>(row.field) = 8;
        EXPECT_EQ(ReadCustomPageSetup(context, *document, record), CustomPageSetup::Read);
        EXPECT_EQ(record, expected) << "position " << row.position;
    }
}

TEST_F(PageSetups, PositionOneOfThePlotsRecordIsIgnored)
{
    StorePlotsValue(1, "anything");
    PageSetupRecord record = Distinct();
    EXPECT_EQ(ReadCustomPageSetup(context, *document, record), CustomPageSetup::Read);
    EXPECT_EQ(record, PageSetupRecord());
}

TEST_F(PageSetups, NoPlotsRecordOrOneOfAnotherLengthGivesTheDefaults)
{
    PageSetupRecord record = Distinct();
    EXPECT_EQ(ReadCustomPageSetup(context, *document, record), CustomPageSetup::Defaults);
    EXPECT_EQ(record, PageSetupRecord());
    for (const std::size_t count : {0, 1, 26, 28}) {
        StorePlots(std::vector<AcadVariant>(count, std::string("5")));
        record = Distinct();
        EXPECT_EQ(ReadCustomPageSetup(context, *document, record), CustomPageSetup::Defaults) << count;
        EXPECT_EQ(record, PageSetupRecord()) << count;
    }
}

TEST_F(PageSetups, AHostErrorLeavesTheRecordAsItWas)
{
    WriteCustomPageSetup(context, *document, Distinct());
    host.tape.FailCall("Dictionaries.GetXData", "Record is busy");
    PageSetupRecord record;
    EXPECT_EQ(ReadCustomPageSetup(context, *document, record), CustomPageSetup::HostError);
    EXPECT_EQ(record, PageSetupRecord());
}

TEST_F(PageSetups, ACommaLocaleLosesTheFractionsOnTheWayBack)
{
    locale.decimalSeparator = ',';
    PageSetupRecord record;
    record.PlotOriginX = 8.5;
    WriteCustomPageSetup(context, *document, record);
    EXPECT_EQ(facts->XData["TWSI_Plots"].values[8], AcadVariant(std::string("8,5")));
    EXPECT_EQ(facts->XData["TWSI_Plots"].values[3], AcadVariant(std::string("279,4")));
    PageSetupRecord read;
    ReadCustomPageSetup(context, *document, read);
    EXPECT_EQ(read.PlotOriginX, 8);
    EXPECT_EQ(read.PaperWidth, 279);

    WriteGlobalPageSetup(surroundings, record);
    EXPECT_EQ(registry.Text(kUser, kKey, "PlotOriginX"), "8,5");
    EXPECT_EQ(ReadGlobalPageSetup(surroundings).PlotOriginX, 8);
}

TEST_F(PageSetups, ATextOfThePlotsRecordIsTrimmedAndOneOfTheRegistryIsNot)
{
    PageSetupRecord record;
    record.ViewToPlot = " North ";
    WriteCustomPageSetup(context, *document, record);
    WriteGlobalPageSetup(surroundings, record);
    EXPECT_EQ(facts->XData["TWSI_Plots"].values[27], AcadVariant(std::string("North")));
    EXPECT_EQ(registry.Text(kUser, kKey, "ViewToPlot"), " North ");
}

TEST_F(PageSetups, SurviveEveryFault)
{
    const auto operation = [&] {
        PageSetupRecord record;
        ReadCustomPageSetup(context, *document, record);
        WriteCustomPageSetup(context, *document, Distinct());
        ReadGlobalPageSetup(surroundings);
        WriteGlobalPageSetup(surroundings, Distinct());
    };
    SweepFaults(operation, [&] {
        PageSetupRecord record;
        WriteCustomPageSetup(context, *document, Distinct());
        WriteGlobalPageSetup(surroundings, Distinct());
        EXPECT_EQ(ReadCustomPageSetup(context, *document, record), CustomPageSetup::Read);
        EXPECT_EQ(record, DistinctAsRead());
        EXPECT_EQ(ReadGlobalPageSetup(surroundings), DistinctAsRead());
    });
}

} // namespace
} // namespace sm
