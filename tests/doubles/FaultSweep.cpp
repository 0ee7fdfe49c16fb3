// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/FaultSweep.h"

#include <algorithm>

namespace sm {
namespace {

using Mode = FaultPlan::Mode;
using Kind = FaultPlan::Kind;

/// "Files" here are the file system's calls; "Everything" is host, library and registry under one count.
FaultPlan& Arm(HouseParts& house, FaultySide side, FaultPlan& own)
{
    FaultPlan& plan = side == FaultySide::Files                                        ? house.failingFiles.faults
                      : side == FaultySide::Registry || side == FaultySide::Everything ? house.failingRegistry.faults
                                                                                       : own;
    if (side == FaultySide::Host || side == FaultySide::Everything)
        house.host.tape.faults = &plan;
    if (side == FaultySide::Library || side == FaultySide::Everything)
        house.library.tape.faults = &plan;
    return plan;
}

int RunOnce(FaultySide side, Kind kind, Mode mode, int countdown, const SweptOperation& operation)
{
    FaultPlan own;
    HouseParts house;
    operation.prepare(house);
    FaultPlan& plan = Arm(house, side, own);
    plan = {mode, countdown, kind};
    EXPECT_NO_THROW(operation.run(house));
    const int injected = plan.injected;
    plan = {};
    operation.after(house);
    return injected;
}

} // namespace

std::string NameOf(FaultySide side)
{
    static constexpr const char* kNames[] = {"Everything", "Host", "Library", "Registry", "Files"};
    return kNames[static_cast<int>(side)];
}

namespace {

void SweepOnce(FaultySide side, Kind kind, Mode mode, const SweptOperation& operation)
{
    const std::string how = kind == Kind::Throws ? " throws" : " answers nothing";
    const std::string when = mode == Mode::Once ? " once at call " : " from call ";
    int injected = 0;
    for (int countdown = 1; countdown == 1 || injected > 0; ++countdown) {
        SCOPED_TRACE(NameOf(side) + how + when + std::to_string(countdown));
        injected = RunOnce(side, kind, mode, countdown, operation);
        EXPECT_TRUE(countdown > 1 || injected > 0) << "no call was made to fail";
    }
}

} // namespace

void SweepFaults(FaultySide side, const SweptOperation& operation)
{
    for (const Mode mode : {Mode::Once, Mode::Onwards})
        SweepOnce(side, Kind::Throws, mode, operation);
    if (side == FaultySide::Everything)
        SweepOnce(side, Kind::AnswersNothing, Mode::Once, operation);
}

void ExpectCallEnded(HouseParts& house)
{
    EXPECT_EQ(house.context.g_AcadApp, nullptr);
    EXPECT_EQ(house.context.g_AcadDoc, nullptr);
    EXPECT_EQ(house.context.g_Log, nullptr);
    EXPECT_EQ(house.library.logsAlive, 0);
    EXPECT_EQ(house.library.documentsAlive, 0);
    EXPECT_EQ(house.library.tape.CallsOf("Log.OpenLog").size(), house.library.tape.CallsOf("Log.CloseLog").size());
}

void ExpectPlotterFolderKept(HouseParts& house)
{
    const std::string& folder = house.host.facts.PrinterConfigPath;
    const std::string setTo = "Preferences.SetPrinterConfigPath ";
    const bool defaultTried = !house.host.tape.CallsOf(setTo + "C:\\Acad\\Plotters").empty() ||
                              !house.host.tape.CallsOf(setTo + "C:\\Acad15\\Plotters").empty() ||
                              !house.host.tape.CallsOf(setTo + "\\Plotters").empty();
    const auto hostNamedNone = house.library.tape.CallsOf("Log.WriteLogLine   Original PrinterConfigPath: ");
    const bool nothingToKeep = std::find(hostNamedNone.begin(), hostNamedNone.end(),
                                         "Log.WriteLogLine   Original PrinterConfigPath: ") != hostNamedNone.end();
    EXPECT_TRUE(nothingToKeep || folder == kUsersPlotters || house.PendingFolder() == kUsersPlotters || defaultTried)
        << "plotter folder " << folder << ", waiting \"" << house.PendingFolder() << "\"";
}

} // namespace sm
