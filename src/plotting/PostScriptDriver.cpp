// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotting/PostScriptDriver.h"

#include "plugin/CarryPast.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IAcadApplication.h"
#include "ports/IFileSystem.h"
#include "ports/IRunObserver.h"
#include "settings/mdlUtilities.h"
#include "settings/mdlWinReg.h"

#include <array>

namespace sm {
namespace {

struct DriverFacts {
    const char* fileName;
    const char* version;
    const char* highResolution;
    const char* mediumResolution;
};

constexpr std::array<DriverFacts, 3> kDrivers{{
    {"ps6.hdi", "15", "Tarnwick PS6 HighRes.pc3", "Tarnwick PS6 MidRes.pc3"},
    {"ps7.hdi", "15+", "Tarnwick PS7 HighRes.pc3", "Tarnwick PS7 MidRes.pc3"},
    {"ps8.hdi", "16", "Tarnwick PS8 HighRes.pc3", "Tarnwick PS8 MidRes.pc3"},
}};

std::string Saved(CallContext& context, const std::string& valueName)
{
    return ReadReleaseSetting(context.surroundings, DriverVersion(context), valueName, "");
}

void Save(CallContext& context, const std::string& valueName, const std::string& value)
{
    WriteReleaseSetting(context.surroundings, DriverVersion(context), valueName, value);
}

/// Notes the user's folder for the reset; false when the store doesn't hold it afterwards.
bool KeepUsersFolder(CallContext& context, const std::string& folder, const std::string& target)
{
    ILocale& locale = context.surroundings.locale;
    const bool switchedAlready = locale.LowerCase(folder) == locale.LowerCase(target);
    if (switchedAlready && !Saved(context, kSavedPlotterFolder).empty())
        return true;
    Save(context, kSavedPlotterFolder, folder);
    if (Saved(context, kSavedPlotterFolder) == folder)
        return true;
    // What is stored in its place, perhaps its letters with some of them replaced, must never become the host's folder.
    Save(context, kSavedPlotterFolder, "");
    context.surroundings.observer.CarriedPast(
        "SetPlotterPath",
        "the user's settings don't keep the plotter folder in force, which couldn't be put back then");
    return false;
}

bool SetFolder(CallContext& context, const std::string& folder)
{
    return CarryPast(context, "SetPlotterPath", [&] { HostPreferences(context)->SetPrinterConfigPath(folder); });
}

std::int32_t PutBack(CallContext& context, IAcadPreferences& preferences, const std::string& folder)
{
    TryLogLine(context, "  Reset PrinterConfigPath To: " + folder);
    if (CarryPast(context, "ResetPlotterPath", [&] { preferences.SetPrinterConfigPath(folder); }))
        return 0;
    TryLogLine(context, "  ERROR: Could not reset PrinterConfigPath, try default AutoCAD PrinterConfigPath.");
    const std::string standard = DefaultPlotterFolder(context);
    TryLogLine(context, "             Reset Plotter Path To: " + standard);
    if (CarryPast(context, "ResetPlotterPath", [&] { preferences.SetPrinterConfigPath(standard); }))
        return 0;
    TryLogLine(context, "  ERROR: Could not reset PrinterConfigPath.");
    return -1;
}

} // namespace

std::string DriverVersion(CallContext& context)
{
    const std::string path =
        CarryPast(context, "DriverVersion", [&] { return HostPreferences(context)->DriversPath(); }).value_or("");
    Surroundings& surroundings = context.surroundings;
    for (const std::string& folder : SplitList(path)) {
        for (const DriverFacts& driver : kDrivers) {
            if (surroundings.files.FileExists(JoinPath(surroundings.locale, folder, driver.fileName)))
                return driver.version;
        }
    }
    return {};
}

bool DriverPresent(CallContext& context)
{
    return !DriverVersion(context).empty();
}

std::string Pc3Name(const std::string& driverVersion, std::int32_t resolution)
{
    for (const DriverFacts& driver : kDrivers) {
        if (driverVersion == driver.version)
            return resolution == ResolutionOf(kLinesForPrint) ? driver.highResolution : driver.mediumResolution;
    }
    return {};
}

std::int32_t SetPlotterPath(CallContext& context)
{
    Surroundings& surroundings = context.surroundings;
    const std::string profile =
        CarryPast(context, "SetPlotterPath", [&] { return HostPreferences(context)->ActiveProfile(); }).value_or("");
    TryLogLine(context, "  Original Profile Name: " + profile);
    Save(context, kSavedProfile, profile);

    const std::string target = JoinPath(surroundings.locale, surroundings.component.Folder(), "PC3");
    const auto original =
        CarryPast(context, "SetPlotterPath", [&] { return HostPreferences(context)->PrinterConfigPath(); });
    TryLogLine(context, "  Original PrinterConfigPath: " + original.value_or(""));
    // A folder that isn't noted could never be put back, so it isn't switched either.
    const bool kept = original && KeepUsersFolder(context, *original, target);

    TryLogLine(context, "  Set PrinterConfigPath To: " + target);
    if (!surroundings.files.FolderExists(target)) {
        TryLogLine(context, "  ERROR: Plotter Folder does not exist.");
        return -1;
    }
    if (!kept || !SetFolder(context, target)) {
        TryLogLine(context, "  ERROR: Could not set Plotter Path.");
        return -1;
    }
    return 0;
}

std::int32_t ResetPlotterPath(CallContext& context)
{
    const auto reset = [&] {
        const std::string saved = Saved(context, kSavedPlotterFolder);
        if (saved.empty()) {
            TryLogLine(context, "  OK: Plotter Already Reset");
            return 0;
        }
        const auto preferences = HostPreferences(context);
        const std::int32_t status = PutBack(context, *preferences, saved);
        // Cleared in any case: a reset that failed isn't tried again.
        Save(context, kSavedPlotterFolder, "");
        Save(context, kSavedProfile, "");
        return status;
    };
    return GiveUp(reset, [&](const std::string& description) {
        TryLogLine(context, "RUNTIME ERROR: " + description);
        return -1;
    });
}

std::string DefaultPlotterFolder(CallContext& context)
{
    Surroundings& surroundings = context.surroundings;
    const std::string location = ReadAcadInstallInfo(surroundings, DriverVersion(context)).AcadLocation;
    return JoinPath(surroundings.locale, location, "Plotters");
}

} // namespace sm
