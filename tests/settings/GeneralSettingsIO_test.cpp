// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/GeneralSettingsIO.h"

#include "doubles/RegistryNames.h"
#include "doubles/SettingsStand.h"

namespace sm {
namespace {

class GeneralSettingsStore : public SettingsStand {
protected:
    std::string Stored(const std::string& name) { return registry.Text(kUser, kKey, name); }
};

TEST_F(GeneralSettingsStore, HasTheseDefaults)
{
    const GeneralSettings settings = ReadGeneralSettings(surroundings);
    EXPECT_TRUE(settings.PromptForFileName);
    EXPECT_TRUE(settings.DeletePs);
    EXPECT_TRUE(settings.OpenInViewer);
    EXPECT_EQ(settings.WhatToPlot, 0);
    EXPECT_EQ(settings.Optimization, 0);
    EXPECT_EQ(settings.JobOptionsFile, "Graphics [600 dpi]");
    EXPECT_EQ(settings.Transfer, TransferFlags());
    EXPECT_EQ(ReadTransferFlags(surroundings), (TransferFlags{kFalse, kFalse, kFalse, kFalse, kFalse}));
}

TEST_F(GeneralSettingsStore, WritesEachValueUnderItsName)
{
    GeneralSettings settings;
    settings.Transfer = {kTrue, kFalse, kTrue, kFalse, kTrue};
    settings.PromptForFileName = false;
    settings.DeletePs = true;
    settings.OpenInViewer = false;
    settings.WhatToPlot = 1;
    settings.Optimization = 1;
    settings.JobOptionsFile = "Screen";
    WriteGeneralSettings(surroundings, settings);

    const std::pair<const char*, const char*> expected[] = {
        {"TransferTextHlinks", "1"},
        {"TransferDrawingHlinks", "0"},
        {"TransferBlockHlinks", "1"},
        {"TransferVPortHlinks", "0"},
        {"TransferAttributes", "1"},
        {"PromptForFileName", "0"},
        {"DeletePs", "1"},
        {"OpenInViewer", "0"},
        {"WhatToPlot", "1"},
        {"Optimization", "1"},
        {"JobOptionsFile", "Screen"},
    };
    for (const auto& [name, text] : expected)
        EXPECT_EQ(Stored(name), text) << name;
    EXPECT_EQ(registry.ValueCount(kUser, kKey), 11u);
    EXPECT_EQ(ReadGeneralSettings(surroundings), settings);
}

TEST_F(GeneralSettingsStore, ReadsAnyNumberButZeroAsASwitchThatIsOn)
{
    registry.Put(kUser, kKey, "TransferTextHlinks", "5");
    registry.Put(kUser, kKey, "TransferAttributes", "-1");
    registry.Put(kUser, kKey, "TransferVPortHlinks", "True");
    EXPECT_EQ(ReadTransferFlags(surroundings), (TransferFlags{kTrue, kFalse, kFalse, kFalse, kTrue}));
}

TEST_F(GeneralSettingsStore, WritesASwitchAsOnWhenAllItsBitsAreSet)
{
    WriteTransferFlags(surroundings, {kTrue, 1, 255, kFalse, -2});
    EXPECT_EQ(Stored("TransferTextHlinks"), "1");
    EXPECT_EQ(Stored("TransferDrawingHlinks"), "0");
    EXPECT_EQ(Stored("TransferBlockHlinks"), "0");
    EXPECT_EQ(Stored("TransferVPortHlinks"), "0");
    EXPECT_EQ(Stored("TransferAttributes"), "0");
}

TEST_F(GeneralSettingsStore, TheStampListHasTheseDefaults)
{
    const std::array<std::string, 16> expected = {
        "(NONE)",
        "DRAFT PRINT",
        "FOR REVIEW",
        "DO NOT BUILD TO PRINT",
        "PROPRIETARY - DO NOT DISTRIBUTE",
        "EMAILED ON &[Date]",
        "PRINTED ON &[Date]",
        "PRELIMINARY - &[User] - &[Date]",
        "FOR BID ONLY - &[Date]",
        "ENGINEERING PRE-RELEASE - &[Date]",
        "&[Path] - &[Date]",
        "STAMP 11",
        "STAMP 12",
        "STAMP 13",
        "STAMP 14",
        "STAMP 15",
    };
    EXPECT_EQ(ReadStampList(surroundings), expected);
}

TEST_F(GeneralSettingsStore, StoresStampsOneToFifteen)
{
    std::array<std::string, 16> stamps;
    for (std::size_t i = 0; i < stamps.size(); ++i)
        stamps[i] = "My stamp " + std::to_string(i);
    WriteStampList(surroundings, stamps);
    EXPECT_EQ(Stored("Stamp0"), "(absent)");
    EXPECT_EQ(Stored("Stamp1"), "My stamp 1");
    EXPECT_EQ(Stored("Stamp15"), "My stamp 15");
    EXPECT_EQ(Stored("Stamp16"), "(absent)");
    stamps[0] = "(NONE)";
    EXPECT_EQ(ReadStampList(surroundings), stamps);
}

TEST_F(GeneralSettingsStore, AnEmptiedStampComesBackAsItsDefault)
{
    registry.Put(kUser, kKey, "Stamp2", "");
    EXPECT_EQ(ReadStampList(surroundings)[2], "FOR REVIEW");
}

TEST_F(GeneralSettingsStore, SurvivesEveryRegistryFault)
{
    GeneralSettings changed;
    changed.WhatToPlot = 1;
    changed.JobOptionsFile = "Screen";
    std::array<std::string, 16> stamps = ReadStampList(surroundings);
    stamps[1] = "MINE";
    const auto operation = [&] {
        WriteGeneralSettings(surroundings, changed);
        WriteStampList(surroundings, stamps);
        ReadGeneralSettings(surroundings);
        ReadStampList(surroundings);
    };
    SweepFaults(operation, [&] {
        WriteGeneralSettings(surroundings, changed);
        WriteStampList(surroundings, stamps);
        EXPECT_EQ(ReadGeneralSettings(surroundings), changed);
        EXPECT_EQ(ReadStampList(surroundings), stamps);
    });
}

} // namespace
} // namespace sm
