// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingTable.h"

#include "settings/DataKeg.h"
#include "settings/PageSetupFields.h"
#include "settings/mdlUtilities.h"

#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace sm {
namespace {

using Lines = std::vector<std::string>;

Lines With(SettingUse use)
{
    Lines names;
    for (const Setting& setting : kSettings)
        if (setting.use == use)
            names.emplace_back(setting.name);
    return names;
}

TEST(SettingTable, HasEachNameOnce)
{
    std::set<std::string> names;
    for (const Setting& setting : kSettings)
        EXPECT_TRUE(names.insert(setting.name).second) << setting.name;
    EXPECT_EQ(names.size(), 57u);
}

TEST(SettingTable, SaysWhereASettingCounts)
{
    EXPECT_EQ(With(SettingUse::Conversion),
              (Lines{"PromptForFileName", "DeletePs", "OpenInViewer", "WhatToPlot", "Optimization", "JobOptionsFile"}));
    EXPECT_EQ(With(SettingUse::Transfer), (Lines{"TransferTextHlinks", "TransferDrawingHlinks", "TransferBlockHlinks",
                                                 "TransferVPortHlinks", "TransferAttributes"}));
    EXPECT_EQ(With(SettingUse::Answer), (Lines{"BlockAttribRemindAgain", "NoShowAcad2000PlotterMsg"}));
    EXPECT_EQ(With(SettingUse::StampText),
              (Lines{"Stamp1", "Stamp2", "Stamp3", "Stamp4", "Stamp5", "Stamp6", "Stamp7", "Stamp8", "Stamp9",
                     "Stamp10", "Stamp11", "Stamp12", "Stamp13", "Stamp14", "Stamp15"}));
    EXPECT_EQ(With(SettingUse::Component), Lines{"PublishWith"});
    EXPECT_EQ(With(SettingUse::ThisProgram), (Lines{"DwgConverter", "AttachmentLimit"}));
}

TEST(SettingTable, TheGlobalPageSetupIsTheRecordsFieldsAndNothingElse)
{
    Lines fields;
    for (const PageSetupField& field : PageSetupFields())
        fields.emplace_back(field.valueName);
    EXPECT_EQ(With(SettingUse::GlobalPageSetup), fields);
}

TEST(SettingTable, ARecordBeginsWithTheDefaults)
{
    for (const PageSetupField& field : PageSetupFields()) {
        PageSetupRecord changed;
        std::visit(
            [&](auto member) {
                using Value = std::remove_reference_t<decltype(changed.*member)>;
                changed.*member = Value{};
            },
            field.member);
        const auto setting = std::find_if(std::begin(kSettings), std::end(kSettings), [&](const Setting& one) {
            return one.name == std::string_view(field.valueName);
        });
        ASSERT_NE(setting, std::end(kSettings)) << field.valueName;
        SetFieldText(changed, field, DefaultText(*setting));
        EXPECT_EQ(changed, PageSetupRecord()) << field.valueName;
    }
    const GeneralSettings general;
    EXPECT_TRUE(general.PromptForFileName && general.DeletePs && general.OpenInViewer);
    EXPECT_EQ(general.WhatToPlot, 0);
    EXPECT_EQ(general.Optimization, 0);
    EXPECT_EQ(general.JobOptionsFile, "Graphics [600 dpi]");
}

struct DefaultRow {
    const char* name;
    const Setting& setting;
    const char* text;
};

TEST(SettingTable, WritesDefaultsAsTheyAreStored)
{
    const DefaultRow rows[] = {
        {"switch on", SettingNamed("DeletePs"), "1"},
        {"switch off", SettingNamed("PlotHidden"), "0"},
        {"named number", SettingNamed("PlotType"), "1"},
        {"number", SettingNamed("PaperHeight"), "215.9"},
        {"whole number with a fraction's kind", SettingNamed("ScaleNumer"), "1"},
        {"text", SettingNamed("JobOptionsFile"), "Graphics [600 dpi]"},
        {"empty text", SettingNamed("StyleSheet"), ""},
        {"first stamp", StampTextSetting(1), "DRAFT PRINT"},
        {"tenth stamp", StampTextSetting(10), "&[Path] - &[Date]"},
        {"last stamp", StampTextSetting(15), "STAMP 15"},
    };
    for (const DefaultRow& row : rows)
        EXPECT_EQ(DefaultText(row.setting), row.text) << row.name;
}

std::string Listed(std::span<const NamedNumber> numbers)
{
    std::string list;
    for (const NamedNumber& one : numbers)
        list += std::to_string(one.number) + " " + one.name + "\n";
    return list;
}

TEST(SettingTable, NamesItsNumbers)
{
    EXPECT_EQ(Listed(SettingNamed("PlotType").choices), "0 Display\n1 Extents\n2 Limits\n3 View\n4 Window\n5 Layout\n");
    EXPECT_EQ(Listed(SettingNamed("PaperUnits").choices), "0 Inches\n1 Millimeters\n2 Pixels\n");
    EXPECT_EQ(Listed(SettingNamed("WhatToPlot").choices), "0 Current Tab\n1 All Layout Tabs\n");
    EXPECT_EQ(Listed(SettingNamed("Optimization").choices), "0 Print\n1 Draft\n");
    EXPECT_EQ(Listed(SettingNamed("PublishWith").choices), "0 Automatic\n1 Own\n2 Library\n");
    EXPECT_EQ(Listed(kPageSetupSources), "0 Native\n1 Custom\n2 Global\n");
    EXPECT_EQ(Listed(kStampJustifications), "0 Left\n1 Center\n2 Right\n");
    EXPECT_EQ(SettingNamed("PlotType").most, 5);
    EXPECT_STREQ(NameOf(kPlotTypes, 6), "");
    EXPECT_STREQ(NameOf(kPlotTypes, -1), "");
}

TEST(SettingTable, EveryLineQualityButPrintIsDraft)
{
    EXPECT_EQ(ResolutionOf(kLinesForPrint), 1200);
    EXPECT_EQ(ResolutionOf(kLinesForDraft), 600);
    EXPECT_EQ(ResolutionOf(7), 600);
}

} // namespace
} // namespace sm
