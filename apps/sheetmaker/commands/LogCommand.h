// "log": the last conversion's log.
#pragma once

#include "machine/Install.h"

#include <iosfwd>

namespace sm::app {

int RunLog(const Install& install, std::ostream& out, std::ostream& err);

} // namespace sm::app
