// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/IRunObserver.h"
#include "settings/mdlUtilities.h"
#include "settings/mdlWinReg.h"

namespace sm {

namespace {

constexpr const char* kAcadKey = "Software\\Autodesk\\AutoCAD";

std::string SettingsKeyOf(const AcadProductKey& product)
{
    return std::string(kSettingsKey) + "\\" + product.ReleaseKey + "\\" + product.ProductKey;
}

} // namespace

AcadProductKey ResolveAcadProductKey(Surroundings& surroundings, const std::string& driverVersion)
{
    const RegistryRoot root = Val(driverVersion) == 16 ? RegistryRoot::CurrentUser : RegistryRoot::LocalMachine;
    AcadProductKey product;
    product.ReleaseKey = RegReadString(surroundings.registry, root, kAcadKey, "CurVer").value_or("");
    product.ProductKey =
        RegReadString(surroundings.registry, root, kAcadKey + ("\\" + product.ReleaseKey), "CurVer").value_or("");
    return product;
}

std::string ReadReleaseSetting(Surroundings& surroundings, const std::string& driverVersion,
                               const std::string& valueName, const std::string& defaultValue)
{
    const std::string keyPath = SettingsKeyOf(ResolveAcadProductKey(surroundings, driverVersion));
    return TextOrDefault(
        RegReadString(surroundings.registry, RegistryRoot::CurrentUser, keyPath, valueName).value_or(""), defaultValue);
}

void WriteReleaseSetting(Surroundings& surroundings, const std::string& driverVersion, const std::string& valueName,
                         const std::string& value)
{
    if (!RegWriteString(surroundings.registry, RegistryRoot::CurrentUser,
                        SettingsKeyOf(ResolveAcadProductKey(surroundings, driverVersion)), valueName, value))
        surroundings.observer.CarriedPast("WriteReleaseSetting", "the setting " + valueName + " could not be stored");
}

AcadInstallInfo ReadAcadInstallInfo(Surroundings& surroundings, const std::string& driverVersion)
{
    const AcadProductKey product = ResolveAcadProductKey(surroundings, driverVersion);
    const std::string keyPath = std::string(kAcadKey) + "\\" + product.ReleaseKey + "\\" + product.ProductKey;
    const auto fact = [&](const char* valueName) {
        return RegReadString(surroundings.registry, RegistryRoot::LocalMachine, keyPath, valueName).value_or("");
    };
    AcadInstallInfo info;
    info.ReleaseKey = product.ReleaseKey;
    info.ProductKey = product.ProductKey;
    info.AcadLocation = fact("AcadLocation");
    info.Language = fact("Language");
    info.LocaleID = fact("LocaleID");
    info.ProductID = fact("ProductID");
    info.ProductName = fact("ProductName");
    info.Release = fact("Release");
    return info;
}

} // namespace sm
