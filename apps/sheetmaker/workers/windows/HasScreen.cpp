#include "workers/WindowsProgram.h"

namespace sm::app {

bool HasScreen(const system::Environment&)
{
    return true;
}

} // namespace sm::app
