// Installing and uninstalling, for the machine and for one user: what is there in between, and that nothing is left.
#include "LoadedComponent.h"
#include "RegistrySnapshot.h"
#include "SystemProgram.h"

#include <algorithm>
#include <filesystem>

namespace sm::windows {
namespace {

namespace fs = std::filesystem;

struct ModeRow {
    const char *name, *option;
    HKEY root;
};

class Installer : public testing::TestWithParam<ModeRow> {};

INSTANTIATE_TEST_SUITE_P(, Installer,
                         testing::Values(ModeRow{"Machine", "/AllUsers", HKEY_LOCAL_MACHINE},
                                         ModeRow{"User", "/CurrentUser", HKEY_CURRENT_USER}),
                         [](const auto& row) { return std::string(row.param.name); });

RegistrySnapshot Both()
{
    RegistrySnapshot all;
    TakeSnapshot(HKEY_LOCAL_MACHINE, L"Software", L"machine", all);
    TakeSnapshot(HKEY_CURRENT_USER, L"Software", L"user", all);
    return all;
}

std::string Fact(HKEY root, const char* key, const char* name)
{
    char text[400] = {};
    DWORD size = sizeof text;
    return RegGetValueA(root, key, name, RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS ? text : "(none)";
}

TEST_P(Installer, PutsEverythingInPlaceAndTakesItBack)
{
    const char* const product = "Software\\Tarnwick Software\\Sheetmaker PDF";
    const char* const settings = "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD";
    const fs::path folder = "C:\\sheetmaker-installed";
    fs::remove_all(folder);
    const RegistrySnapshot before = Both();
    const std::string setup = SM_SETUP;
    ASSERT_EQ(RunProgram(setup + " /S " + GetParam().option + " /D=" + folder.string()).exitCode, 0);
    for (const char* file : {"TwAcadPdf.dll", "License.txt", "Uninstall.exe", "PC3\\Tarnwick PS8 HighRes.pc3",
                             "PC3\\Tarnwick PS6 MidRes.pc3", "Settings\\Graphics [600 dpi].joboptions",
                             "help\\index.html", "help\\topics\\c170.html"})
        EXPECT_TRUE(fs::exists(folder / file)) << file;
    EXPECT_EQ(Fact(GetParam().root, product, "Version"), "0.1.0");
    EXPECT_EQ(Fact(GetParam().root, settings, "SettingsFolder"), "C:\\sheetmaker-installed\\Settings");
    EXPECT_EQ(Fact(GetParam().root, settings, "HelpFile"), "C:\\sheetmaker-installed\\help\\index.html");
    EXPECT_EQ(Fact(GetParam().root, "Software\\Classes\\CLSID\\{A80EB25C-3937-4062-836A-11C388058516}\\InprocServer32",
                   nullptr),
              "C:\\sheetmaker-installed\\TwAcadPdf.dll");
    // With "_?=" it runs in its own folder and is waited for, but can't delete itself.
    const std::string uninstall = (folder / "Uninstall.exe").string() + " /S _?=" + folder.string();
    EXPECT_EQ(RunProgram(uninstall).exitCode, 0);
    fs::remove(folder / "Uninstall.exe");
    EXPECT_TRUE(!fs::exists(folder) || fs::is_empty(folder));
    fs::remove_all(folder);
    EXPECT_EQ(Differences(before, Both()), std::vector<std::wstring>());
}

} // namespace
} // namespace sm::windows
