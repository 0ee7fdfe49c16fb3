#include "Dispatch.h"
#include "commandline/ExitCodes.h"

#include <csignal>
#include <iostream>

int main(int argc, char** argv)
{
    // A reader that went away (| head) must not end a run in the middle of its cleaning up.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // a file over the size limit is an error of the write, told like a full disk
    try {
        const int code = sm::app::RunProgram({argv + 1, argv + argc}, sm::app::ThisInstall(), std::cout, std::cerr);
        std::cout << std::flush;
        return code;
    } catch (const std::exception& error) {
        std::cerr << "sheetmaker: " << error.what() << "\n";
        return sm::app::kExitFailed;
    }
}
