#include "Dispatch.h"
#include "base/process/ThisProcess.h"
#include "commandline/ExitCodes.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

namespace {

/// Where nobody can catch it: in what is made before main, and in what may not throw.
void OnTerminate()
{
    try {
        if (const auto thrown = std::current_exception())
            std::rethrow_exception(thrown);
    } catch (const std::bad_alloc&) {
        std::fputs("sheetmaker: there is not enough memory\n", stderr);
        std::_Exit(sm::app::kExitFailed);
    } catch (...) {
        std::abort();
    }
    std::abort();
}

/// Before all other objects of the program.
[[gnu::constructor(101)]] void Begin()
{
    std::set_terminate(OnTerminate);
}

} // namespace

int main(int argc, char** argv)
{
    sm::base::PrepareProcess();
    try {
        const int code = sm::app::RunProgram({argv + 1, argv + argc}, sm::app::ThisInstall(), std::cout, std::cerr);
        std::cout << std::flush;
        return code;
    } catch (const std::exception& error) {
        std::cerr << "sheetmaker: " << error.what() << "\n";
        return sm::app::kExitFailed;
    }
}
