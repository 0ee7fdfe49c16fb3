// SPDX-License-Identifier: GPL-3.0-or-later
// A registration that the registry doesn't take is told to whoever asked for it, and leaves nothing behind.
#include "SystemProgram.h"

#include <windows.h>

#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

namespace sm::windows {
namespace {

namespace fs = std::filesystem;

/// The key of the plug-in's class, one that lasts until the next start of the system: no key that stays can be made
/// below it.
class FleetingClass {
public:
    FleetingClass()
    {
        EXPECT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, kPath, 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE, nullptr,
                                  &m_key, nullptr),
                  ERROR_SUCCESS);
    }
    ~FleetingClass()
    {
        RegCloseKey(m_key);
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, kPath);
    }
    FleetingClass(const FleetingClass&) = delete;
    FleetingClass& operator=(const FleetingClass&) = delete;

private:
    static constexpr const wchar_t* kPath = L"Software\\Classes\\CLSID\\{A80EB25C-3937-4062-836A-11C388058516}";
    HKEY m_key = nullptr;
};

const wchar_t* const kKeys[] = {L"CLSID\\{A80EB25C-3937-4062-836A-11C388058516}",
                                L"TypeLib\\{F1446010-8459-4ADC-A8B4-D14804D3F499}",
                                L"TarnwickSmPubAcad.cPlugin",
                                L"TarnwickSmPubAcad.cNativeDoc",
                                L"TarnwickSmPubAcad.cAcadPageSetup",
                                L"TarnwickSmPubAcad.cAcadTransferSettings"};

/// Those of our keys of classes that are there.
std::vector<std::wstring> KeysLeft()
{
    std::vector<std::wstring> left;
    for (const wchar_t* key : kKeys) {
        HKEY opened = nullptr;
        if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key, 0, KEY_READ, &opened) == ERROR_SUCCESS)
            left.emplace_back(key);
        RegCloseKey(opened);
    }
    return left;
}

TEST(FailedRegistration, IsToldByRegsvr32)
{
    {
        const FleetingClass obstacle;
        EXPECT_NE(RunProgram(std::string("regsvr32 /s ") + SM_COMPONENT).exitCode, 0);
    }
    EXPECT_EQ(KeysLeft(), std::vector<std::wstring>());
}

TEST(FailedRegistration, IsToldByTheInstaller)
{
    const fs::path folder = "C:\\sheetmaker-refused";
    {
        const FleetingClass obstacle;
        EXPECT_EQ(RunProgram(std::string(SM_SETUP) + " /S /AllUsers /D=" + folder.string()).exitCode, 2);
    }
    EXPECT_EQ(RunProgram((folder / "Uninstall.exe").string() + " /S _?=" + folder.string()).exitCode, 0);
    fs::remove_all(folder);
    EXPECT_EQ(KeysLeft(), std::vector<std::wstring>());
}

} // namespace
} // namespace sm::windows
