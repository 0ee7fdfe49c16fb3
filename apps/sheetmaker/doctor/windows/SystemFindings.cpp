// SPDX-License-Identifier: GPL-3.0-or-later
#include "doctor/SystemFindings.h"

#include "base/files/Paths.h"
#include "ghostscript/Interpreter.h"
#include "ports/RegistryKeys.h"

namespace sm::app {

namespace {

using State = Finding::State;

} // namespace

const char* const kTemporaryRemedy = "set TMP to another folder";
const char* const kFontsRemedy = "install one in the system's font folder";

std::string InterpreterProgram(const Install&)
{
    return ghostscript::FindInterpreter("gs");
}

Finding Settings(const Install& install)
{
    const std::string key = std::string("HKEY_CURRENT_USER\\") + kSettingsKey;
    const auto registry = OpenSettings(install, {});
    const auto opened = registry->CreateKey(RegistryRoot::CurrentUser, kSettingsKey);
    if (!opened)
        return {State::Missing, "settings", key + " can't be written", "give yourself the right to write there"};
    registry->CloseKey(*opened);
    return {State::Good, "settings", key, {}};
}

Finding Viewer(const Install&)
{
    return {State::Good, "PDF viewer", "the one that the system opens PDF files with", {}};
}

Finding Windows(const Install& install)
{
    std::error_code unreadable;
    const std::string program = base::ToText(install.windowsProgram);
    if (!std::filesystem::exists(install.windowsProgram, unreadable))
        return {State::Optional, "windows", program + " is missing (settings, page-setup need it)",
                "install Sheetmaker PDF anew"};
    return {State::Good, "windows", program, {}};
}

} // namespace sm::app
