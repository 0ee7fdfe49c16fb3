// SPDX-License-Identifier: GPL-3.0-or-later
// Every host, library, registry and file call of the plug-in object's operations is made to fail.
#include "doubles/FaultSweep.h"
#include "plugin/cPlugin.h"

#include <tuple>

namespace sm {
namespace {

void Prepare(HouseParts& house)
{
    house.PutSetting("PromptForFileName", "0");
    house.PutSetting("WhatToPlot", "1");
    house.windows.settingsResult = 1;
    house.PutMarks(house.ground, 2);
    house.PutMarks(house.upper, 2);
    house.upper->PlotType = 0; // display: its marks are dropped
}

void ExpectItStillWorks(HouseParts& house)
{
    ExpectCallEnded(house);
    ExpectPlotterFolderKept(house);
    const bool folderGivenUp = house.host.facts.PrinterConfigPath != kUsersPlotters && house.PendingFolder().empty();
    house.library.tape.calls.clear();
    (void)house.library.TakeLog();

    cPlugin plugin(house.context);
    ASSERT_EQ(plugin.Initialize(house.host.Application()), kTrue);
    plugin.ConvertToPDF(3);
    EXPECT_EQ(house.library.tape.CallsOf("PubDoc.SaveToPdf").size(), 1U);
    const std::vector<std::string> log = house.library.TakeLog();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.back(), "PDF FILE SAVED");
    EXPECT_EQ(house.PendingFolder(), "");
    EXPECT_TRUE(folderGivenUp || house.host.facts.PrinterConfigPath == kUsersPlotters)
        << "after a clean run the plotter folder is " << house.host.facts.PrinterConfigPath;
}

struct Operation {
    const char* name;
    void (*run)(cPlugin&);
};

class FaultSweep : public testing::TestWithParam<std::tuple<Operation, FaultySide>> {};

TEST_P(FaultSweep, NothingEscapesAndEverythingIsPutBack)
{
    const auto& [operation, side] = GetParam();
    const auto runPlugin = operation.run;
    SweepFaults(side, {Prepare,
                       [&](HouseParts& house) {
                           cPlugin plugin(house.context);
                           EXPECT_EQ(plugin.Initialize(house.host.Application()), kTrue);
                           runPlugin(plugin);
                       },
                       ExpectItStillWorks});
}

const auto kName = [](const auto& info) {
    return std::string(std::get<0>(info.param).name) + NameOf(std::get<1>(info.param));
};

constexpr Operation kConvert{"ConvertToPDF", [](cPlugin& plugin) { plugin.ConvertToPDF(1); }};
constexpr Operation kShowSettings{"ShowSettings", [](cPlugin& plugin) { plugin.ShowSettings(1, 0, 0); }};
constexpr Operation kShowLog{"ShowLog", [](cPlugin& plugin) { plugin.ShowLog(); }};

INSTANTIATE_TEST_SUITE_P(Conversion, FaultSweep,
                         testing::Combine(testing::Values(kConvert),
                                          testing::Values(FaultySide::Everything, FaultySide::Host, FaultySide::Library,
                                                          FaultySide::Registry, FaultySide::Files)),
                         kName);
INSTANTIATE_TEST_SUITE_P(Dialog, FaultSweep,
                         testing::Combine(testing::Values(kShowSettings), testing::Values(FaultySide::Everything)),
                         kName);
INSTANTIATE_TEST_SUITE_P(Log, FaultSweep,
                         testing::Combine(testing::Values(kShowLog),
                                          testing::Values(FaultySide::Everything, FaultySide::Library,
                                                          FaultySide::Registry)),
                         kName);

TEST(FaultFreeOperations, InitializeAndVersionCallNothingThatCanFail)
{
    HouseParts house;
    cPlugin plugin(house.context);
    EXPECT_EQ(plugin.Initialize(house.host.Application()), kTrue);
    EXPECT_EQ(plugin.Version(), "2.1.7");
    EXPECT_TRUE(house.host.tape.calls.empty());
    EXPECT_TRUE(house.library.tape.calls.empty());
    EXPECT_EQ(house.failingRegistry.faults.calls, 0);
    EXPECT_EQ(house.failingFiles.faults.calls, 0);
}

} // namespace
} // namespace sm
