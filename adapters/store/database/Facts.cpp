// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Facts.h"

#include "ports/RegistryKeys.h"

namespace sm::store {
namespace {

constexpr const char* kHostKey = "Software\\Autodesk\\AutoCAD";
constexpr const char* kReleaseKey = "R16.0";
constexpr const char* kHostProductKey = "EMBEDDED-1:409";

void AddReleaseChain(ValueTable& facts, RegistryRoot root)
{
    facts.SetText(root, kHostKey, "CurVer", kReleaseKey);
    facts.SetText(root, std::string(kHostKey) + "\\" + kReleaseKey, "CurVer", kHostProductKey);
}

void AddInstallRecord(ValueTable& facts, const std::string& hostFolder)
{
    const std::string key = std::string(kHostKey) + "\\" + kReleaseKey + "\\" + kHostProductKey;
    const auto add = [&](const char* name, const std::string& text) {
        facts.SetText(RegistryRoot::LocalMachine, key, name, text);
    };
    add("AcadLocation", hostFolder);
    add("Language", "English");
    add("LocaleID", "409");
    add("ProductID", "EMBEDDED");
    add("ProductName", "Sheetmaker PDF drawing engine");
    add("Release", "16.0");
}

} // namespace

ValueTable ShippedFacts(const Install& install)
{
    ValueTable facts;
    facts.SetText(RegistryRoot::LocalMachine, kProductKey, "Version", install.version);
    facts.SetText(RegistryRoot::LocalMachine, kSettingsKey, "HelpFile", install.helpFile);
    facts.SetText(RegistryRoot::LocalMachine, kSettingsKey, "SettingsFolder", install.settingsFolder);
    AddReleaseChain(facts, RegistryRoot::CurrentUser);
    AddReleaseChain(facts, RegistryRoot::LocalMachine);
    AddInstallRecord(facts, install.hostFolder);
    return facts;
}

} // namespace sm::store
