// SPDX-License-Identifier: GPL-3.0-or-later
#include "doctor/SystemFindings.h"

#include "base/files/Paths.h"
#include "ghostscript/Interpreter.h"
#include "ports/RegistryKeys.h"
#include "settings/PublishWith.h"
#include "settings/mdlWinReg.h"
#include "windows/publishing/LibraryPresence.h"

namespace sm::app {

namespace {

using State = Finding::State;
using windows::ProgramBits;

std::string PublisherFor(ProgramBits bits, const std::string& setting)
{
    if (setting != std::to_string(kPublishWithOwn) && windows::LibraryIsRegistered(bits))
        return "TwSmPubLib";
    return setting != std::to_string(kPublishWithLibrary) ? "Sheetmaker PDF itself"
                                                          : "nobody, TwSmPubLib is not registered";
}

/// Who makes the PDF when the component plots in CAD programs.
Finding Publishing(const Install& install)
{
    const auto registry = OpenSettings(install, {});
    const std::string stored = StoredSetting(*registry, SettingNamed("PublishWith").name);
    const std::string setting = stored.empty() ? std::to_string(kPublishWithEither) : stored;
    const std::string wide = PublisherFor(ProgramBits::Of64, setting);
    const std::string narrow = PublisherFor(ProgramBits::Of32, setting);
    const std::string detail = "in 64-bit CAD programs: " + wide + "; in 32-bit ones: " + narrow;
    const bool lacking = wide.starts_with("nobody") || narrow.starts_with("nobody");
    return {lacking ? State::Optional : State::Good, "publishing", detail + " (PublishWith " + setting + ")",
            lacking ? "sheetmaker set PublishWith 0" : ""};
}

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

std::vector<Finding> FurtherFindings(const Install& install)
{
    return {Publishing(install)};
}

} // namespace sm::app
