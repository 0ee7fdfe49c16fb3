#include "commands/LogCommand.h"

#include "commandline/ExitCodes.h"
#include "machine/LogFiles.h"

#include <ostream>

namespace sm::app {

int RunLog(const Install& install, std::ostream& out, std::ostream& err)
{
    const std::filesystem::path file = install.places.stateFolder / kLogFileName;
    std::error_code unreadable;
    if (!std::filesystem::exists(file, unreadable)) {
        err << "A Log file has not yet been created.\n";
        return kExitFailed;
    }
    out << ReadWholeFile(file);
    return kExitDone;
}

} // namespace sm::app
