// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/system/OwnModule.h"
#include "windows/system/WindowsSystem.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace sm::windows {
namespace {

TEST(WindowsComponent, LiesInTheFolderOfItsModule)
{
    const auto component = CreateComponent();
    const std::filesystem::path module(OwnModulePath());
    EXPECT_EQ(module.filename(), "test_windows_system.exe");
    EXPECT_EQ(component->Folder(), module.parent_path().string());
}

TEST(WindowsComponent, HasNoVersionWithoutAResource)
{
    const ComponentVersion version = CreateComponent()->Version();
    EXPECT_EQ(version.major, 0);
    EXPECT_EQ(version.minor, 0);
    EXPECT_EQ(version.revision, 0);
}

} // namespace
} // namespace sm::windows
