// SPDX-License-Identifier: GPL-3.0-or-later
#include "Dispatch.h"
#include "base/process/Memory.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"
#include "workers/TaskText.h"

#include <iostream>
#include <string_view>

namespace {

/// Before all other objects of the program.
[[gnu::constructor(101)]] void Begin()
{
    sm::base::WatchMemory("sheetmaker");
}

int Run(int argc, char** argv)
{
    const int code = sm::app::RunProgram({argv + 1, argv + argc}, sm::app::ThisInstall(), std::cout, std::cerr);
    std::cout << std::flush;
    const bool isWorker = argc > 1 && std::string_view(argv[1]) == sm::app::kWorkerWord; // its report says so
    if (code != sm::app::kExitDone || isWorker || !sm::base::MemoryRanOut())
        return code;
    std::cerr << "sheetmaker: there was not enough memory; what was made may lack something\n";
    return sm::app::kExitFailed;
}

} // namespace

int main(int argc, char** argv)
{
    sm::base::PrepareProcess();
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "sheetmaker: " << error.what() << "\n";
        return sm::app::kExitFailed;
    }
}
