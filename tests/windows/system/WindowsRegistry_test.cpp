// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/RegistryContract.h"

#include "../HandleCount.h"
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
    EXPECT_EQ(registry->Encode("\xe5\x9b\xbd"), "?");
    EXPECT_EQ(registry->Encode(""), "");
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
