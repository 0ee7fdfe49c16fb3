// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/RegistryContract.h"

#include "../HandleCount.h"
#include "settings/mdlWinReg.h"
#include "windows/automation/WideText.h"
#include "windows/system/WindowsSystem.h"

namespace sm::windows {
namespace {

std::shared_ptr<IRegistry> Fresh()
{
    RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\House");
    RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Product");
    return CreateRegistry();
}

} // namespace
} // namespace sm::windows

namespace sm {

INSTANTIATE_TEST_SUITE_P(, RegistryContract,
                         testing::Values(RegistryKind{"Windows", windows::Fresh, /*addsTerminator=*/true}),
                         NameOfRegistryKind);

} // namespace sm

namespace sm::windows {
namespace {

constexpr auto kUser = RegistryRoot::CurrentUser;

TEST(WindowsRegistry, StoresATextThatIsWrittenWholeWithItsTerminator)
{
    const auto registry = Fresh();
    ASSERT_TRUE(WriteText(*registry, "Software\\Product", "Name", "hello"));
    EXPECT_EQ(ReadText(*registry, "Software\\Product", "Name"), std::string("hello\0", 6));
}

TEST(WindowsRegistry, StoresTextsInTheAnsiCodePage)
{
    const auto registry = Fresh();
    EXPECT_EQ(registry->Encode("\xc3\x9c"
                               "1\xe2\x82\xac"),
              "\xDC"
              "1\x80");
    EXPECT_EQ(registry->Decode("\xDC"
                               "1\x80"),
              "\xc3\x9c"
              "1\xe2\x82\xac");
    EXPECT_EQ(registry->Encode(""), "");
}

/// Texts that the code page of the tests' Wine, 1252, can't hold: the second would become "L".
const char *const kPlotters = "C:\\Users\\\xe5\x9b\xbd\\Plotters", *const kSettings = "C:\\Users\\\xc5\x81ukasz";

/// What stands in the registry, with its terminators.
std::wstring Stored(const wchar_t* name)
{
    wchar_t text[80] = {};
    DWORD type = REG_NONE, size = sizeof text;
    RegGetValueW(HKEY_CURRENT_USER, L"Software\\Product", name, RRF_RT_REG_SZ, &type, text, &size);
    return {text, size / sizeof(wchar_t)};
}

TEST(WindowsRegistry, KeepsTextsWholeThatTheCodePageCannotHold)
{
    const auto registry = Fresh();
    for (const std::string text : {kPlotters, kSettings}) {
        ASSERT_TRUE(RegWriteString(*registry, kUser, "Software\\Product", "Folder", text));
        EXPECT_EQ(Stored(L"Folder"), Wide(text) + L'\0');
        EXPECT_EQ(RegReadString(*registry, kUser, "Software\\Product", "Folder"), text);
    }
    const std::string key = "Software\\Product\\\xe5\x9b\xbd";
    EXPECT_EQ(RegReadString(*registry, kUser, key, "Folder"), std::nullopt);
    ASSERT_TRUE(RegWriteString(*registry, kUser, key, "Folder", "D:\\"));
    EXPECT_EQ(RegReadString(*registry, kUser, key, "Folder"), "D:\\");
}

TEST(WindowsRegistry, ReadsLongTextsWhole)
{
    const auto registry = Fresh();
    std::string text;
    for (int i = 0; i < 200; ++i)
        text += kSettings;
    ASSERT_TRUE(RegWriteString(*registry, kUser, "Software\\Product", "Folder", text));
    EXPECT_EQ(RegReadString(*registry, kUser, "Software\\Product", "Folder"), text);
}

TEST(WindowsRegistry, GivesNoPartOfATextThatDoesNotFit)
{
    const auto registry = Fresh();
    ASSERT_TRUE(RegWriteString(*registry, kUser, "Software\\Product", "Folder", kPlotters));
    const auto key = registry->OpenKey(kUser, "Software\\Product");
    ASSERT_TRUE(key);
    const auto info = registry->QueryInfo(*key, "Folder");
    ASSERT_TRUE(info);
    std::string buffer(info->size - 1, ' ');
    EXPECT_FALSE(registry->QueryValue(*key, "Folder", buffer));
    EXPECT_EQ(buffer, std::string(info->size - 1, ' '));
    EXPECT_TRUE(registry->CloseKey(*key));
}

TEST(WindowsRegistry, KeepsOneHandleForEachKeyThatIsNotClosed)
{
    const auto registry = Fresh();
    ASSERT_TRUE(WriteText(*registry, "Software\\Product", "Name", "hello"));
    const std::size_t before = CountHandles();
    for (int i = 0; i < 20; ++i)
        ASSERT_TRUE(registry->OpenKey(kUser, "Software\\Product"));
    EXPECT_EQ(CountHandles(), before + 20);
}

TEST(WindowsRegistry, ReachesTheMachinesKeys)
{
    const auto registry = Fresh();
    const auto key = registry->OpenKey(RegistryRoot::LocalMachine, "Software\\Microsoft\\Windows NT\\CurrentVersion");
    ASSERT_TRUE(key);
    EXPECT_TRUE(registry->QueryInfo(*key, "CurrentVersion"));
    EXPECT_TRUE(registry->CloseKey(*key));
    EXPECT_FALSE(registry->OpenKey(kUser, "Software\\Microsoft\\Windows NT\\No such key"));
}

TEST(WindowsRegistry, FindsTheInstallersFactsOfAUser)
{
    constexpr auto kMachine = RegistryRoot::LocalMachine;
    const std::string product = "Software\\Tarnwick Software\\Test";
    const auto registry = Fresh();
    ASSERT_TRUE(WriteText(*registry, product, "HelpFile", "of the user"));
    EXPECT_EQ(ReadText(*registry, product, "HelpFile", kMachine), std::string("of the user\0", 12));
    ASSERT_TRUE(WriteText(*registry, product, "HelpFile", "of the machine", kMachine));
    EXPECT_EQ(ReadText(*registry, product, "HelpFile", kMachine), std::string("of the machine\0", 15));
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        RegDeleteTreeA(root, product.c_str());
        RegDeleteKeyA(root, "Software\\Tarnwick Software");
    }
    EXPECT_EQ(ReadText(*registry, product, "HelpFile", kMachine), "(none)");
}

} // namespace
} // namespace sm::windows
