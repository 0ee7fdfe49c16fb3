// The ports of the machine by the Windows API. Every factory's object is to be used on one thread.
#pragma once

#include "ports/ISystem.h"

#include <memory>

namespace sm::windows {

/// Local time by the system's time zone.
std::unique_ptr<IClock> CreateClock();

} // namespace sm::windows
