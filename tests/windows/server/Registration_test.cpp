// SPDX-License-Identifier: GPL-3.0-or-later
// What registering leaves in the registry, and that unregistering takes all of it back.
#include "RegistrySnapshot.h"
#include "SystemProgram.h"

#include "LoadedComponent.h"

#include <algorithm>

namespace sm::windows {
namespace {

struct WayRow {
    const char* name;
    const char *on, *off; ///< options of regsvr32
    HKEY root;            ///< under which it writes
};

const WayRow kWays[] = {{"Machine", "/s", "/s /u", HKEY_LOCAL_MACHINE},
                        {"User", "/s /n /i:user", "/s /u /n /i:user", HKEY_CURRENT_USER},
                        {"MachineByInstall", "/s /n /i", "/s /u /n /i", HKEY_LOCAL_MACHINE}};

const std::wstring kPlatform = sizeof(void*) == 8 ? L"win64" : L"win32";

class Registration : public testing::TestWithParam<WayRow> {};

INSTANTIATE_TEST_SUITE_P(, Registration, testing::ValuesIn(kWays),
                         [](const auto& row) { return std::string(row.param.name); });

int Regsvr32(const char* options)
{
    return RunProgram(std::string("regsvr32 ") + options + " " + SM_COMPONENT).exitCode;
}

void ExpectAllClassesByName()
{
    const Apartment apartment;
    for (const wchar_t* name : {L"TarnwickSmPubAcad.cPlugin", L"TarnwickSmPubAcad.cNativeDoc",
                                L"TarnwickSmPubAcad.cAcadPageSetup", L"TarnwickSmPubAcad.cAcadTransferSettings"}) {
        CLSID id{};
        EXPECT_EQ(CLSIDFromProgID(name, &id), S_OK) << Narrow(name);
        ComRef<IDispatch> object;
        EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                   reinterpret_cast<void**>(object.Receive())),
                  S_OK)
            << Narrow(name);
    }
}

std::wstring TextAt(HKEY root, const wchar_t* path, const wchar_t* name)
{
    wchar_t text[400] = {};
    DWORD size = sizeof text;
    return RegGetValueW(root, path, name, RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS ? text : L"(none)";
}

void ExpectWrittenUnder(HKEY root)
{
    const wchar_t* const server = L"Software\\Classes\\CLSID\\{A80EB25C-3937-4062-836A-11C388058516}\\InprocServer32";
    const std::wstring path = TextAt(root, server, nullptr);
    EXPECT_EQ(path.substr(path.size() - std::min<std::size_t>(path.size(), 14)), L"\\TwAcadPdf.dll");
    EXPECT_EQ(TextAt(root, server, L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(TextAt(root, L"Software\\Classes\\TarnwickSmPubAcad.cPlugin\\CLSID", nullptr),
              L"{A80EB25C-3937-4062-836A-11C388058516}");
    EXPECT_EQ(
        TextAt(root,
               (L"Software\\Classes\\TypeLib\\{f1446010-8459-4adc-a8b4-d14804d3f499}\\1.0\\0\\" + kPlatform).c_str(),
               nullptr),
        path);
}

/// The classes of the machine are seen in two places.
bool LiesUnder(const std::wstring& path, const std::vector<std::wstring>& folders)
{
    return std::any_of(folders.begin(), folders.end(),
                       [&](const std::wstring& folder) { return path.substr(0, folder.size()) == folder; });
}

TEST_P(Registration, IsTakenBackWithoutATrace)
{
    const std::vector<std::wstring> own =
        GetParam().root == HKEY_CURRENT_USER
            ? std::vector<std::wstring>{L"user\\Classes\\"}
            : std::vector<std::wstring>{L"machine\\Classes\\", L"machine\\Wow6432Node\\Classes\\"};
    const RegistrySnapshot before = Both();
    ASSERT_EQ(Regsvr32(GetParam().on), 0);
    ASSERT_EQ(Regsvr32(GetParam().on), 0);
    ExpectWrittenUnder(GetParam().root);
    if (GetParam().root == HKEY_LOCAL_MACHINE) // Wine looks for no others
        ExpectAllClassesByName();
    const RegistrySnapshot registered = Both();
    for (const std::wstring& change : Differences(before, registered))
        EXPECT_TRUE(LiesUnder(change, own)) << Narrow(change);
    EXPECT_EQ(Regsvr32(GetParam().off), 0);
    EXPECT_EQ(Regsvr32(GetParam().off), 0);
    const RegistrySnapshot after = Both();
    EXPECT_GT(registered.size(), before.size());
    const std::vector<std::wstring> left = Differences(before, after);
    EXPECT_EQ(left, std::vector<std::wstring>());
    std::printf("%zu entries before, %zu while registered, %zu after; %zu differ\n", before.size(), registered.size(),
                after.size(), left.size());
    CLSID id{};
    EXPECT_NE(CLSIDFromProgID(L"TarnwickSmPubAcad.cPlugin", &id), S_OK);
}

} // namespace
} // namespace sm::windows
