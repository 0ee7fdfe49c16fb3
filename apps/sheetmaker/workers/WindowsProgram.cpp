// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/WindowsProgram.h"

#include "base/files/Paths.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"
#include "commandline/NamedNumbers.h"
#include "settings/SettingTable.h"

#include <ostream>

namespace sm::app {
namespace {

constexpr const char* kInsteadOfSettings =
    "These commands do the same without one:\n"
    "  sheetmaker list, get NAME, set NAME VALUE       the settings of the first tab and the stamp texts\n"
    "  sheetmaker stamp DRAWING --text N|TEXT --at X,Y  the text stamp\n"
    "  sheetmaker attach DRAWING add FILE --at X,Y      the file attachments: list, add, change, remove\n"
    "  sheetmaker sign DRAWING add NAME --rect X1,Y1,X2,Y2  the signature fields: list, add, change, remove\n"
    "  sheetmaker convert DRAWING --as-set              \"Create PDF\", with the stored settings\n"
    "  sheetmaker page-setup DRAWING --show, --set NAME=VALUE, --remove  the page setup tab\n";

std::string InsteadOfPageSetup()
{
    return "The global page setup is kept as settings, which these commands show and change:\n"
           "  sheetmaker list                                 all of them, with their values\n"
           "  sheetmaker set CanonicalMediaName NAME          the paper; PaperWidth and PaperHeight (mm) go with it\n"
           "  sheetmaker set PlotType 1                       " +
           ListOf(SettingNamed("PlotType").choices) +
           "\n"
           "  sheetmaker set StyleSheet NAME                  the plot style table\n"
           "A drawing's own PDF page setup: sheetmaker page-setup DRAWING --show, --set NAME=VALUE, --remove\n";
}

} // namespace

std::string WithoutScreen(const std::string& command)
{
    return "sheetmaker " + command + ": there is no screen to show a window on\n" +
           (command == "page-setup" ? InsteadOfPageSetup() : kInsteadOfSettings);
}

int BecomeWindowsProgram(const std::vector<std::string>& words, const Install& install, std::ostream& err)
{
    if (!HasScreen(install.environment)) {
        err << WithoutScreen(words.front());
        return kExitToolMissing;
    }
    const std::string program = base::ToText(install.windowsProgram);
    const std::string reason = base::BecomeProgram(program, words);
    err << "sheetmaker " << words.front() << ": the program with the windows can't be started (" << program << ": "
        << reason << "); the package sheetmaker-pdf-windows brings it, and \"sheetmaker doctor\" says more\n";
    return kExitToolMissing;
}

} // namespace sm::app
