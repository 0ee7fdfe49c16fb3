// "log": the last conversion's log, another one, or which there are.
#pragma once

#include "commandline/Jobs.h"
#include "machine/Install.h"

#include <iosfwd>

namespace sm::app {

int RunLog(const LogJob& job, const Install& install, std::ostream& out, std::ostream& err);

} // namespace sm::app
