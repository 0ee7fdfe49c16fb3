// SPDX-License-Identifier: GPL-3.0-or-later
// The way to the program with the windows: when it is taken, and what is said when it can't be.
#include "workers/WindowsProgram.h"

#include "Dispatch.h"
#include "app/Fixtures.h"
#include "doctor/Doctor.h"

#include <gtest/gtest.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::app {
namespace {

struct ScreenRow {
    const char* name;
    std::map<std::string, std::string> variables;
    bool hasScreen;
};

const ScreenRow kScreens[] = {
    {"Nothing", {}, false},
    {"X11", {{"DISPLAY", ":0"}}, true},
    {"Wayland", {{"WAYLAND_DISPLAY", "wayland-0"}}, true},
    {"EmptyDisplay", {{"DISPLAY", ""}}, false},
    {"PlatformOfItsOwn", {{"QT_QPA_PLATFORM", "offscreen"}}, true},
    {"PlatformThatShowsNothing", {{"QT_QPA_PLATFORM", "minimal"}}, false},
};

TEST(WindowsProgram, IsForMachinesWithAScreen)
{
    for (const ScreenRow& row : kScreens) {
        Machine machine;
        machine.variables.insert(row.variables.begin(), row.variables.end());
        EXPECT_EQ(HasScreen(machine.Here().environment), row.hasScreen) << row.name;
    }
}

TEST(WindowsProgram, CommandsAreNamedWhereThereIsNoScreen)
{
    const Machine machine;
    std::ostringstream out, err;
    EXPECT_EQ(RunProgram({"settings", "plan.dxf"}, machine.Here(), out, err), 3);
    EXPECT_EQ(err.str(),
              "sheetmaker settings: there is no screen to show a window on\n"
              "These commands do the same without one:\n"
              "  sheetmaker list, get NAME, set NAME VALUE       the settings of the first tab and the stamp texts\n"
              "  sheetmaker stamp DRAWING --text N|TEXT --at X,Y  the text stamp\n"
              "  sheetmaker attach DRAWING add FILE --at X,Y      the file attachments: list, add, change, remove\n"
              "  sheetmaker sign DRAWING add NAME --rect X1,Y1,X2,Y2  the signature fields: list, add, change, remove\n"
              "  sheetmaker convert DRAWING --as-set              \"Create PDF\", with the stored settings\n"
              "  sheetmaker page-setup DRAWING --show, --set NAME=VALUE, --remove  the page setup tab\n");
    err.str("");
    EXPECT_EQ(RunProgram({"page-setup"}, machine.Here(), out, err), 3);
    EXPECT_EQ(
        err.str(),
        "sheetmaker page-setup: there is no screen to show a window on\n"
        "The global page setup is kept as settings, which these commands show and change:\n"
        "  sheetmaker list                                 all of them, with their values\n"
        "  sheetmaker set CanonicalMediaName NAME          the paper; PaperWidth and PaperHeight (mm) go with it\n"
        "  sheetmaker set PlotType 1                       0 display, 1 extents, 2 limits, 3 view, 4 window, 5 "
        "layout\n"
        "  sheetmaker set StyleSheet NAME                  the plot style table\n"
        "A drawing's own PDF page setup: sheetmaker page-setup DRAWING --show, --set NAME=VALUE, --remove\n");
    EXPECT_EQ(out.str(), "");
}

TEST(WindowsProgram, AProgramThatIsMissingIsNamed)
{
    Machine machine;
    machine.variables["DISPLAY"] = ":0";
    Install install = machine.Here();
    install.windowsProgram = machine.In("bin/sheetmaker-windows");
    std::ostringstream out, err;
    EXPECT_EQ(RunProgram({"settings"}, install, out, err), 3);
    EXPECT_EQ(err.str(), "sheetmaker settings: the program with the windows can't be started (" +
                             machine.In("bin/sheetmaker-windows") +
                             ": No such file or directory); the package sheetmaker-pdf-windows brings it, and "
                             "\"sheetmaker doctor\" says "
                             "more\n");
}

TEST(WindowsProgram, GetsTheSameWordsInTheSameProcess)
{
    Machine machine;
    machine.variables["DISPLAY"] = ":0";
    machine.MakeProgram("sheetmaker-windows", "echo \"$$ $# $1|$2|$3\" >'" + machine.In("words") + "'; exit 4");
    Install install = machine.Here();
    install.windowsProgram = machine.In("bin/sheetmaker-windows");
    const pid_t child = fork();
    if (child == 0) {
        std::ostringstream out, err;
        _exit(RunProgram({"settings", "a plan.dxf", "--layout=A 1"}, install, out, err));
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 4);
    EXPECT_EQ(Contents(machine.In("words")), std::to_string(child) + " 3 settings|a plan.dxf|--layout=A 1\n");
}

TEST(WindowsProgram, OneThatShowsTheWindowsItselfGetsTheJob)
{
    const Machine machine;
    std::ostringstream out, err;
    std::vector<Job> shown;
    const ShowWindows show = [&](const Job& job, const Install&) {
        shown.push_back(job);
        return 1;
    };
    EXPECT_EQ(RunProgram({"page-setup", "a.dxf"}, machine.Here(), out, err, show), 1);
    EXPECT_EQ(RunProgram({"settings", "--help"}, machine.Here(), out, err, show), 0);
    EXPECT_EQ(shown, std::vector<Job>{PageSetupJob{"a.dxf"}});
}

TEST(WindowsProgram, DoctorTellsOfTheProgramAndTheScreen)
{
    Machine machine;
    Install install = machine.Here();
    const auto found = [&] {
        for (const Finding& finding : Examine(install))
            if (finding.what == "windows")
                return finding.detail + (finding.state == Finding::State::Good ? " (good)" : " (not good)");
        return std::string();
    };
    EXPECT_EQ(found(), "the program with the windows is missing (settings, page-setup need it) (not good)");
    machine.MakeProgram("sheetmaker-windows", "true");
    install.windowsProgram = machine.In("bin/sheetmaker-windows");
    EXPECT_EQ(found(), "there is no screen (settings, page-setup need one) (not good)");
    machine.variables["DISPLAY"] = ":0";
    install.environment = machine.Here().environment;
    EXPECT_EQ(found(), machine.In("bin/sheetmaker-windows") + " (good)");
}

} // namespace
} // namespace sm::app
