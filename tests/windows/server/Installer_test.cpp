// SPDX-License-Identifier: GPL-3.0-or-later
// Installing and uninstalling, for the machine and for one user: what is there in between, and that nothing is left.
#include "LoadedComponent.h"
#include "RegistrySnapshot.h"
#include "SystemProgram.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <shlobj.h>

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

std::string Fact(HKEY root, const char* key, const char* name)
{
    char text[400] = {};
    DWORD size = sizeof text;
    return RegGetValueA(root, key, name, RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS ? text : "(none)";
}

std::string Read(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// As the system lists what can be removed.
void ExpectListed(HKEY root, const fs::path& folder)
{
    const char* const key = "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\SheetmakerPdfAutoCAD";
    EXPECT_EQ(Fact(root, key, "DisplayName"), "Sheetmaker PDF for AutoCAD");
    EXPECT_EQ(Fact(root, key, "DisplayIcon"), (folder / "Uninstall.exe").string() + ",0");
    EXPECT_EQ(Fact(root, key, "QuietUninstallString"), '"' + (folder / "Uninstall.exe").string() + "\" /S");
    DWORD kilobytes = 0, size = sizeof kilobytes;
    EXPECT_EQ(RegGetValueA(root, key, "EstimatedSize", RRF_RT_REG_DWORD, nullptr, &kilobytes, &size), ERROR_SUCCESS);
    EXPECT_GT(kilobytes, fs::file_size(folder / "TwAcadPdf.dll") / 1024);
}

fs::path MenuOf(HKEY root)
{
    wchar_t path[MAX_PATH] = {};
    SHGetFolderPathW(nullptr, root == HKEY_CURRENT_USER ? CSIDL_PROGRAMS : CSIDL_COMMON_PROGRAMS, nullptr, 0, path);
    return fs::path(path) / "Sheetmaker PDF";
}

/// Start menu and "Open with", which the program has and the component alone hasn't.
void ExpectOffered(HKEY root, const fs::path& folder)
{
    const std::string kind = "Software\\Classes\\Tarnwick.SheetmakerPdf.Drawing\\shell\\open\\command";
    const std::string command = '"' + (folder / "sheetmaker-windows.exe").string() + "\" settings \"%1\"";
    EXPECT_EQ(Fact(root, kind.c_str(), nullptr), SM_PROGRAM ? command : "(none)");
    for (const char* type : {".dxf", ".dwg"}) {
        const std::string key = std::string("Software\\Classes\\") + type + "\\OpenWithProgids";
        EXPECT_EQ(Fact(root, key.c_str(), "Tarnwick.SheetmakerPdf.Drawing"), SM_PROGRAM ? "" : "(none)");
    }
    for (const char* entry : {"Sheetmaker PDF.lnk", "Global Page Setup.lnk", "Sheetmaker PDF Command Prompt.lnk",
                              "Sheetmaker PDF Help.lnk"})
        EXPECT_EQ(fs::exists(MenuOf(root) / entry), SM_PROGRAM != 0) << entry;
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
    EXPECT_NE(Read(folder / "help\\index.html").find("<section id=\"registry\">"), std::string::npos);
    ExpectListed(GetParam().root, folder);
    ExpectOffered(GetParam().root, folder);
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
    EXPECT_FALSE(fs::exists(MenuOf(GetParam().root)));
    fs::remove_all(folder);
    EXPECT_EQ(Differences(before, Both()), std::vector<std::wstring>());
}

void Write(const fs::path& file, const std::string& text)
{
    std::ofstream(file, std::ios::binary) << text;
}

/// What is in a folder, with paths within it; folders aside.
std::vector<std::string> FilesIn(const fs::path& folder)
{
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path().lexically_relative(folder).string());
    std::sort(files.begin(), files.end());
    return files;
}

/// The machine's installation and one of the user's beside it.
class TwoInstallations : public testing::Test {
protected:
    void SetUp() override
    {
        Remove();
        ASSERT_EQ(Install("/AllUsers", m_machine), 0);
        ASSERT_EQ(Install("/CurrentUser", m_user), 0);
    }
    void TearDown() override
    {
        if (fs::exists(m_user / "Uninstall.exe"))
            Uninstall(m_user);
        Uninstall(m_machine);
        Remove();
    }
    void Remove()
    {
        fs::remove_all(m_machine);
        fs::remove_all(m_user);
    }
    static int Install(const std::string& mode, const fs::path& folder)
    {
        return static_cast<int>(RunProgram(std::string(SM_SETUP) + " /S " + mode + " /D=" + folder.string()).exitCode);
    }
    static void Uninstall(const fs::path& folder)
    {
        EXPECT_EQ(RunProgram((folder / "Uninstall.exe").string() + " /S _?=" + folder.string()).exitCode, 0);
        fs::remove(folder / "Uninstall.exe");
    }

    const fs::path m_machine = "C:\\sheetmaker-machine", m_user = "C:\\sheetmaker-user";
};

TEST_F(TwoInstallations, GoOneByOne)
{
    const auto files = FilesIn(m_machine);
    Uninstall(m_user);
    EXPECT_TRUE(!fs::exists(m_user) || fs::is_empty(m_user));
    EXPECT_EQ(FilesIn(m_machine), files);
    EXPECT_EQ(Fact(HKEY_LOCAL_MACHINE, "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD", "SettingsFolder"),
              "C:\\sheetmaker-machine\\Settings");
    EXPECT_EQ(Fact(HKEY_LOCAL_MACHINE,
                   "Software\\Classes\\CLSID\\{A80EB25C-3937-4062-836A-11C388058516}\\InprocServer32", nullptr),
              "C:\\sheetmaker-machine\\TwAcadPdf.dll");
}

TEST_F(TwoInstallations, LeaveWhatTheUserMadeOrChanged)
{
    const fs::path changed = m_user / "Settings\\Graphics [600 dpi].joboptions",
                   own = m_user / "Settings\\Own.joboptions", page = m_user / "help\\notes.html",
                   other = m_user / "Settings\\Print [1200 dpi].joboptions";
    Write(own, "own");
    Write(page, "notes");
    Write(changed, "changed");
    fs::remove(other);
    ASSERT_EQ(Install("/CurrentUser", m_user), 0); // again, as an upgrade does
    EXPECT_EQ(Read(changed), "changed");
    EXPECT_TRUE(fs::exists(other));
    Uninstall(m_user);
    EXPECT_EQ(FilesIn(m_user), (std::vector<std::string>{"Settings\\Graphics [600 dpi].joboptions",
                                                         "Settings\\Own.joboptions", "help\\notes.html"}));
    EXPECT_EQ(Read(changed) + Read(own) + Read(page), "changedownnotes");
}

TEST_F(TwoInstallations, ReplaceAComponentInUseForThoseWhoComeNext)
{
    const fs::path library = m_user / "TwAcadPdf.dll", former = m_user / "TwAcadPdf.dll.former";
    const auto installed = Read(library);
    // Marked behind its end, where the loader doesn't look, so that it can be told from the new one.
    Write(library, installed + "former");
    const HMODULE used = LoadLibraryW(library.c_str());
    ASSERT_NE(used, nullptr);
    EXPECT_EQ(Install("/CurrentUser", m_user), 0);
    EXPECT_EQ(Read(library), installed);
    EXPECT_EQ(Read(former), installed + "former");
    EXPECT_NE(GetProcAddress(used, "DllGetClassObject"), nullptr);
    EXPECT_NE(Read(m_user / "install.ini").find("TwAcadPdf.dll is in use. Programs that run now go on with the former"),
              std::string::npos);
    FreeLibrary(used);
    EXPECT_EQ(Install("/CurrentUser", m_user), 0);
    EXPECT_FALSE(fs::exists(former));
    EXPECT_EQ(Read(m_user / "install.ini").find("in use"), std::string::npos);

    const HMODULE usedStill = LoadLibraryW(library.c_str());
    Uninstall(m_user);
    EXPECT_EQ(FilesIn(m_user), std::vector<std::string>{"TwAcadPdf.dll.former"});
    FreeLibrary(usedStill);
}

#if SM_PROGRAM
TEST_F(TwoInstallations, HoldTheProgram)
{
    const auto doctor = RunProgram((m_user / "sheetmaker.exe").string() + " doctor");
    EXPECT_NE(doctor.output.find("ok        share folder: C:/sheetmaker-user/share/sheetmaker-pdf\n"),
              std::string::npos)
        << doctor.output;
    EXPECT_NE(doctor.output.find("ok        windows: C:/sheetmaker-user/sheetmaker-windows.exe\n"), std::string::npos)
        << doctor.output;
}
#endif

} // namespace
} // namespace sm::windows
