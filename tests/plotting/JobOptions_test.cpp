// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotting/JobOptions.h"

#include "doubles/TestHouse.h"

namespace sm {
namespace {

class JobOptions : public TestHouse {};

TEST_F(JobOptions, ListsWhatStandsBeforeTheExtension)
{
    files.AddFile("C:\\Program Files\\Tarnwick\\Settings\\Web.joboptions.bak");
    files.AddFile("C:\\Program Files\\Tarnwick\\Settings\\ZÜRICH.JOBOPTIONS");
    EXPECT_EQ(ListJobOptions(surroundings), (Lines{"Graphics [600 dpi]", "Proof", "Web", "ZÜRICH"}));
}

TEST_F(JobOptions, AMissingFolderHoldsNone)
{
    registry.Put(RegistryRoot::LocalMachine, kUserKey, "SettingsFolder", "E:\\gone");
    EXPECT_EQ(ListJobOptions(surroundings), Lines{});
}

TEST_F(JobOptions, AChoiceIsStoredAndReturned)
{
    windows.jobOptionsPicked = {1};
    EXPECT_EQ(PickJobOptions(surroundings), std::optional<std::string>("Proof"));
    EXPECT_EQ(Setting("JobOptionsFile"), "Proof");
    EXPECT_EQ(windows.calls, (Lines{"PickJobOptions [Graphics [600 dpi], Proof]"}));
}

TEST_F(JobOptions, NoChoiceStoresNothing)
{
    windows.jobOptionsPicked = {std::nullopt, -1, 2};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(PickJobOptions(surroundings), std::nullopt);
    EXPECT_EQ(Setting("JobOptionsFile"), "(absent)");
}

TEST_F(JobOptions, PathsAreJoinedAsThePlatformDoes)
{
    EXPECT_EQ(JobOptionsPath(surroundings, "Proof"), "C:\\Program Files\\Tarnwick\\Settings\\Proof.joboptions");
    locale.UseSlashes();
    registry.Put(RegistryRoot::LocalMachine, kUserKey, "SettingsFolder", "/usr/share/settings");
    EXPECT_EQ(JobOptionsPath(surroundings, "Proof"), "/usr/share/settings/Proof.joboptions");
}

} // namespace
} // namespace sm
