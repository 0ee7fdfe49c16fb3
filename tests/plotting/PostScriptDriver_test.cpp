// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotting/PostScriptDriver.h"

#include "doubles/TestHouse.h"

namespace sm {
namespace {

class PostScriptDriver : public TestHouse {
protected:
    PostScriptDriver() { BeginCall(); }
    void PutPending(const std::string& folder)
    {
        registry.Put(RegistryRoot::CurrentUser, kReleaseUserKey, "PrinterConfigPath", folder);
        registry.Put(RegistryRoot::CurrentUser, kReleaseUserKey, "Profile", "Old profile");
    }
    [[nodiscard]] std::string PendingProfile() const
    {
        return registry.Text(RegistryRoot::CurrentUser, kReleaseUserKey, "Profile");
    }
};

TEST_F(PostScriptDriver, TheFirstFolderDecidesAndInItTheOldestDriver)
{
    const struct {
        const char* name;
        const char* driversPath;
        std::vector<const char*> drivers;
        const char* version;
    } rows[] = {
        {"ps6", "C:\\A", {"C:\\A\\ps6.hdi"}, "15"},
        {"ps7", "C:\\A", {"C:\\A\\ps7.hdi"}, "15+"},
        {"ps8", "C:\\A", {"C:\\A\\ps8.hdi"}, "16"},
        {"none", "C:\\A;C:\\B", {"C:\\A\\hpgl.hdi"}, ""},
        {"no folder", "", {"C:\\A\\ps8.hdi"}, ""},
        {"folders before files", "C:\\A;C:\\B", {"C:\\A\\ps6.hdi", "C:\\B\\ps8.hdi"}, "15"},
        {"later folder with the older driver", "C:\\A;C:\\B", {"C:\\A\\ps8.hdi", "C:\\B\\ps6.hdi"}, "16"},
        {"both in one folder", "C:\\A", {"C:\\A\\ps6.hdi", "C:\\A\\ps8.hdi"}, "15"},
        {"piece after the last semicolon", "C:\\A;C:\\B;C:\\C", {"C:\\C\\ps7.hdi"}, "15+"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        HouseParts parts;
        parts.files = MemoryFileSystem();
        for (const char* driver : row.drivers)
            parts.files.AddFile(driver);
        parts.host.facts.DriversPath = row.driversPath;
        parts.BeginCall();
        EXPECT_EQ(DriverVersion(parts.context), row.version);
        EXPECT_EQ(DriverPresent(parts.context), *row.version != '\0');
    }
}

TEST_F(PostScriptDriver, AnUnreadableDriversPathHoldsNoDriver)
{
    host.tape.FailCall("Preferences.DriversPath", "busy");
    EXPECT_EQ(DriverVersion(context), "");
    context.g_AcadApp = nullptr;
    EXPECT_FALSE(DriverPresent(context));
}

TEST_F(PostScriptDriver, NamesThePc3OfDriverAndResolution)
{
    const struct {
        const char* version;
        std::int32_t resolution;
        const char* name;
    } rows[] = {
        {"15", 1200, "Tarnwick PS6 HighRes.pc3"},
        {"15", 600, "Tarnwick PS6 MidRes.pc3"},
        {"15+", 1200, "Tarnwick PS7 HighRes.pc3"},
        {"15+", 600, "Tarnwick PS7 MidRes.pc3"},
        {"16", 1200, "Tarnwick PS8 HighRes.pc3"},
        {"16", 600, "Tarnwick PS8 MidRes.pc3"},
        {"16", 0, "Tarnwick PS8 MidRes.pc3"},
        {"", 1200, ""},
        {"", 600, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Pc3Name(row.version, row.resolution), row.name) << row.version << " " << row.resolution;
}

TEST_F(PostScriptDriver, SettingNotesTheUsersFolderAndSwitches)
{
    EXPECT_EQ(SetPlotterPath(context), 0);
    EXPECT_EQ(Log(), (Lines{"  Original Profile Name: Unnamed Profile",
                            "  Original PrinterConfigPath: C:\\Users\\me\\Plotters",
                            "  Set PrinterConfigPath To: C:\\Program Files\\Tarnwick\\PC3"}));
    EXPECT_EQ(host.facts.PrinterConfigPath, "C:\\Program Files\\Tarnwick\\PC3");
    EXPECT_EQ(PendingFolder(), "C:\\Users\\me\\Plotters");
    EXPECT_EQ(PendingProfile(), "Unnamed Profile");
}

TEST_F(PostScriptDriver, SettingFailsWithoutThePc3Folder)
{
    files.Remove(kPc3Folder);
    EXPECT_EQ(SetPlotterPath(context), -1);
    EXPECT_EQ(Log(), (Lines{"  Original Profile Name: Unnamed Profile",
                            "  Original PrinterConfigPath: C:\\Users\\me\\Plotters",
                            "  Set PrinterConfigPath To: C:\\Program Files\\Tarnwick\\PC3",
                            "  ERROR: Plotter Folder does not exist."}));
    EXPECT_EQ(host.facts.PrinterConfigPath, kUsersPlotters);
}

TEST_F(PostScriptDriver, SettingFailsWhenTheHostRefusesTheFolder)
{
    host.facts.RefusedPlotterFolders = {kPc3Folder};
    EXPECT_EQ(SetPlotterPath(context), -1);
    EXPECT_EQ(Log(), (Lines{"  Original Profile Name: Unnamed Profile",
                            "  Original PrinterConfigPath: C:\\Users\\me\\Plotters",
                            "  Set PrinterConfigPath To: C:\\Program Files\\Tarnwick\\PC3",
                            "  ERROR: Could not set Plotter Path."}));
}

TEST_F(PostScriptDriver, AFolderThatCannotBeReadIsNotSwitched)
{
    host.tape.FailCall("Preferences.PrinterConfigPath", "busy");
    EXPECT_EQ(SetPlotterPath(context), -1);
    EXPECT_EQ(Log(), (Lines{"  Original Profile Name: Unnamed Profile", "  Original PrinterConfigPath: ",
                            "  Set PrinterConfigPath To: C:\\Program Files\\Tarnwick\\PC3",
                            "  ERROR: Could not set Plotter Path."}));
    EXPECT_EQ(host.facts.PrinterConfigPath, kUsersPlotters);
}

TEST_F(PostScriptDriver, AFolderThatCannotBeNotedIsNotSwitched)
{
    failingRegistry.faults = {FaultPlan::Mode::Onwards, 1};
    EXPECT_EQ(SetPlotterPath(context), -1);
    EXPECT_EQ(Log(), (Lines{"  Original Profile Name: Unnamed Profile",
                            "  Original PrinterConfigPath: C:\\Users\\me\\Plotters",
                            "  Set PrinterConfigPath To: C:\\Program Files\\Tarnwick\\PC3",
                            "  ERROR: Could not set Plotter Path."}));
    EXPECT_EQ(observer.carriedPast.back(),
              "SetPlotterPath: the user's settings don't keep the plotter folder in force, "
              "which couldn't be put back then");
    EXPECT_EQ(host.facts.PrinterConfigPath, kUsersPlotters);
}

TEST_F(PostScriptDriver, AFolderThatTheRegistryDamagesIsNeitherSwitchedNorPutBack)
{
    const std::string folder = "C:\\Users\\\xe5\x9b\xbd\xe5\xae\xb6\\Plotters";
    registry.codePage = {{"\xe5\x9b\xbd", "?"}, {"\xe5\xae\xb6", "?"}}; // as a code page without them does
    PutPending("D:\\Plotters");
    host.facts.PrinterConfigPath = folder;
    EXPECT_EQ(SetPlotterPath(context), -1);
    EXPECT_EQ(Log(), (Lines{"  Original Profile Name: Unnamed Profile", "  Original PrinterConfigPath: " + folder,
                            "  Set PrinterConfigPath To: C:\\Program Files\\Tarnwick\\PC3",
                            "  ERROR: Could not set Plotter Path."}));
    EXPECT_EQ(PendingFolder(), "");
    EXPECT_EQ(ResetPlotterPath(context), 0);
    EXPECT_EQ(Log(), (Lines{"  OK: Plotter Already Reset"}));
    EXPECT_EQ(host.facts.PrinterConfigPath, folder);
    EXPECT_EQ(host.tape.CallsOf("Preferences.SetPrinterConfigPath"), Lines{});
}

TEST_F(PostScriptDriver, AnInterruptedRunKeepsTheUsersOwnFolderWaiting)
{
    PutPending("D:\\Plotters");
    host.facts.PrinterConfigPath = "C:\\PROGRAM FILES\\Tarnwick\\pc3"; // as another program may have written it
    EXPECT_EQ(SetPlotterPath(context), 0);
    EXPECT_EQ(PendingFolder(), "D:\\Plotters");
    EXPECT_EQ(ResetPlotterPath(context), 0);
    EXPECT_EQ(host.facts.PrinterConfigPath, "D:\\Plotters");
    EXPECT_EQ(PendingFolder(), "");
    (void)Log();
}

TEST_F(PostScriptDriver, AnOtherFolderReplacesTheOneThatWaits)
{
    PutPending("D:\\Plotters");
    EXPECT_EQ(SetPlotterPath(context), 0);
    EXPECT_EQ(PendingFolder(), kUsersPlotters);
    (void)Log();
}

TEST_F(PostScriptDriver, ResettingWithNothingNotedChangesNothing)
{
    EXPECT_EQ(ResetPlotterPath(context), 0);
    EXPECT_EQ(Log(), (Lines{"  OK: Plotter Already Reset"}));
    EXPECT_EQ(host.tape.CallsOf("Preferences.SetPrinterConfigPath"), Lines{});
}

TEST_F(PostScriptDriver, ResettingPutsTheFolderBackAndForgetsIt)
{
    PutPending("D:\\Plotters");
    EXPECT_EQ(ResetPlotterPath(context), 0);
    EXPECT_EQ(Log(), (Lines{"  Reset PrinterConfigPath To: D:\\Plotters"}));
    EXPECT_EQ(host.facts.PrinterConfigPath, "D:\\Plotters");
    EXPECT_EQ(PendingFolder(), "");
    EXPECT_EQ(PendingProfile(), "");
}

TEST_F(PostScriptDriver, ARefusedResetTakesTheHostsDefaultFolder)
{
    PutPending("D:\\Plotters");
    host.facts.RefusedPlotterFolders = {"D:\\Plotters"};
    EXPECT_EQ(ResetPlotterPath(context), 0);
    EXPECT_EQ(Log(), (Lines{"  Reset PrinterConfigPath To: D:\\Plotters",
                            "  ERROR: Could not reset PrinterConfigPath, try default AutoCAD PrinterConfigPath.",
                            "             Reset Plotter Path To: C:\\Acad\\Plotters"}));
    EXPECT_EQ(host.facts.PrinterConfigPath, "C:\\Acad\\Plotters");
    EXPECT_EQ(PendingFolder(), "");
}

TEST_F(PostScriptDriver, AResetThatFailsTwiceIsNotRetried)
{
    PutPending("D:\\Plotters");
    host.facts.RefusedPlotterFolders = {"D:\\Plotters", "C:\\Acad\\Plotters"};
    EXPECT_EQ(ResetPlotterPath(context), -1);
    EXPECT_EQ(Log(), (Lines{"  Reset PrinterConfigPath To: D:\\Plotters",
                            "  ERROR: Could not reset PrinterConfigPath, try default AutoCAD PrinterConfigPath.",
                            "             Reset Plotter Path To: C:\\Acad\\Plotters",
                            "  ERROR: Could not reset PrinterConfigPath."}));
    EXPECT_EQ(PendingFolder(), "");
    EXPECT_EQ(PendingProfile(), "");
    EXPECT_EQ(ResetPlotterPath(context), 0);
    EXPECT_EQ(Log(), (Lines{"  OK: Plotter Already Reset"}));
}

TEST_F(PostScriptDriver, AnUnexpectedErrorLeavesTheFolderWaiting)
{
    PutPending("D:\\Plotters");
    host.tape.FailCall("Application.Preferences", "call was rejected", 1, 1); // the first asks for the drivers
    EXPECT_EQ(ResetPlotterPath(context), -1);
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: call was rejected"}));
    EXPECT_EQ(PendingFolder(), "D:\\Plotters");
}

TEST_F(PostScriptDriver, TheReleaseIsLookedUpWhereTheDriverSays)
{
    const struct {
        const char* driver;
        const char* key;
        const char* defaultFolder;
    } rows[] = {
        {"ps6.hdi", "\\R15.0\\ACAD-1:409", "C:\\Acad15\\Plotters"},
        {"ps7.hdi", "\\R15.0\\ACAD-1:409", "C:\\Acad15\\Plotters"},
        {"ps8.hdi", "\\R16.0\\ACAD-201:409", "C:\\Acad\\Plotters"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.driver);
        UseDriver(row.driver);
        host.facts.PrinterConfigPath = kUsersPlotters;
        EXPECT_EQ(SetPlotterPath(context), 0);
        EXPECT_EQ(registry.Text(RegistryRoot::CurrentUser, std::string(kUserKey) + row.key, "PrinterConfigPath"),
                  kUsersPlotters);
        EXPECT_EQ(DefaultPlotterFolder(context), row.defaultFolder);
        EXPECT_EQ(ResetPlotterPath(context), 0);
    }
    (void)Log();
}

TEST_F(PostScriptDriver, TheProfileIsNotedEvenWhenItCannotBeRead)
{
    host.tape.FailCall("Preferences.ActiveProfile", "busy");
    EXPECT_EQ(SetPlotterPath(context), 0);
    EXPECT_EQ(Log().front(), "  Original Profile Name: ");
    EXPECT_EQ(PendingProfile(), "");
}

} // namespace
} // namespace sm
