// From the words of the command line to the exit code.
#pragma once

#include "sheetmaker/Install.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace sm::app {

/// `words` are the arguments without the program's name.
int RunProgram(const std::vector<std::string>& words, const Install& install, std::ostream& out, std::ostream& err);

} // namespace sm::app
