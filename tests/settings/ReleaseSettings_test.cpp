// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/RegistryNames.h"
#include "doubles/SettingsStand.h"
#include "settings/mdlWinReg.h"

namespace sm {
namespace {

constexpr const char* kUserReleaseKey = "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD\\R16.0\\ACAD-201:409";
constexpr const char* kMachineReleaseKey = "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD\\R15.0\\ACAD-1:409";

class ReleaseSettings : public SettingsStand {
protected:
    ReleaseSettings()
    {
        registry.Put(kUser, "Software\\Autodesk\\AutoCAD", "CurVer", "R16.0");
        registry.Put(kUser, "Software\\Autodesk\\AutoCAD\\R16.0", "CurVer", "ACAD-201:409");
        registry.Put(kMachine, "Software\\Autodesk\\AutoCAD", "CurVer", "R15.0");
        registry.Put(kMachine, "Software\\Autodesk\\AutoCAD\\R15.0", "CurVer", "ACAD-1:409");
    }
};

TEST_F(ReleaseSettings, FollowTheChainOfTheUserForRelease16AndOfTheMachineForOthers)
{
    const struct {
        const char* driverVersion;
        const char* release;
        const char* product;
    } rows[] = {
        {"16", "R16.0", "ACAD-201:409"}, {"15", "R15.0", "ACAD-1:409"}, {"15+", "R15.0", "ACAD-1:409"},
        {"", "R15.0", "ACAD-1:409"},     {"17", "R15.0", "ACAD-1:409"},
    };
    for (const auto& row : rows) {
        const AcadProductKey key = ResolveAcadProductKey(surroundings, row.driverVersion);
        EXPECT_EQ(key.ReleaseKey, row.release) << row.driverVersion;
        EXPECT_EQ(key.ProductKey, row.product) << row.driverVersion;
    }
}

TEST_F(ReleaseSettings, AreKeptPerUserUnderReleaseAndProduct)
{
    WriteReleaseSetting(surroundings, "16", "PrinterConfigPath", "C:\\Plotters");
    WriteReleaseSetting(surroundings, "15+", "PrinterConfigPath", "D:\\Plotters");
    EXPECT_EQ(registry.Text(kUser, kUserReleaseKey, "PrinterConfigPath"), "C:\\Plotters");
    EXPECT_EQ(registry.Text(kUser, kMachineReleaseKey, "PrinterConfigPath"), "D:\\Plotters");
    EXPECT_EQ(ReadReleaseSetting(surroundings, "16", "PrinterConfigPath", "none"), "C:\\Plotters");
    EXPECT_EQ(ReadReleaseSetting(surroundings, "15", "PrinterConfigPath", "none"), "D:\\Plotters");
}

TEST_F(ReleaseSettings, GiveTheDefaultWhenAbsentOrEmpty)
{
    EXPECT_EQ(ReadReleaseSetting(surroundings, "16", "Profile", "none"), "none");
    WriteReleaseSetting(surroundings, "16", "Profile", "");
    EXPECT_EQ(registry.Text(kUser, kUserReleaseKey, "Profile"), "");
    EXPECT_EQ(ReadReleaseSetting(surroundings, "16", "Profile", "none"), "none");
}

TEST_F(ReleaseSettings, WorkWithoutTheChain)
{
    MemoryRegistry bare;
    Surroundings elsewhere{bare, files, desktop, windows, library, locale, clock, component, observer};
    WriteReleaseSetting(elsewhere, "16", "Profile", "mine");
    EXPECT_EQ(ReadReleaseSetting(elsewhere, "16", "Profile", "none"), "mine");
    EXPECT_EQ(ReadAcadInstallInfo(elsewhere, "16"), AcadInstallInfo());
}

TEST_F(ReleaseSettings, TheInstallFactsComeMachineWideWhateverTheChainsRoot)
{
    const char* kHostKey = "Software\\Autodesk\\AutoCAD\\R16.0\\ACAD-201:409";
    registry.Put(kUser, kHostKey, "AcadLocation", "wrong root");
    registry.Put(kMachine, kHostKey, "AcadLocation", "C:\\Acad");
    registry.Put(kMachine, kHostKey, "Language", "English");
    registry.Put(kMachine, kHostKey, "LocaleID", "409");
    registry.Put(kMachine, kHostKey, "ProductID", "201");
    registry.Put(kMachine, kHostKey, "ProductName", "Drafting 2004");
    registry.Put(kMachine, kHostKey, "Release", "16.0.0.86");
    const AcadInstallInfo expected{"R16.0", "ACAD-201:409", "C:\\Acad",      "English",
                                   "409",   "201",          "Drafting 2004", "16.0.0.86"};
    EXPECT_EQ(ReadAcadInstallInfo(surroundings, "16"), expected);

    registry.PutBytes(kMachine, kHostKey, "LocaleID", RegistryType::DWord, std::string("\x09\4\0\0", 4));
    EXPECT_EQ(ReadAcadInstallInfo(surroundings, "16").LocaleID, "");
    EXPECT_EQ(ReadAcadInstallInfo(surroundings, "15").AcadLocation, "");
}

} // namespace
} // namespace sm
