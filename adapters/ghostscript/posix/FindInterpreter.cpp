// SPDX-License-Identifier: GPL-3.0-or-later
#include "ghostscript/Interpreter.h"

#include "base/files/Paths.h"

#include <filesystem>

namespace sm::ghostscript {

namespace fs = std::filesystem;

const char* const kInterpreterRemedy = "sudo apt-get install ghostscript";

std::string FindInterpreter(const std::string& program)
{
    return base::FindProgram(program);
}

std::string LinkInput(const std::string& folder, const std::string& name, const std::string& path)
{
    std::error_code error;
    fs::create_symlink(fs::absolute(base::ToPath(path), error), base::ToPath(folder) / base::ToPath(name), error);
    return error ? error.message() : "";
}

} // namespace sm::ghostscript
