// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/Places.h"

#include "Folders.h"

#include <gtest/gtest.h>

namespace sm::system {
namespace {

struct PlaceRow {
    const char* name;
    std::map<std::string, std::string> variables;
    const char* settings;
    const char* state;
};

TEST(Places, FollowTheXdgVariables)
{
    const PlaceRow rows[] = {
        {"HomeAlone",
         {{"HOME", "/home/ann"}},
         "/home/ann/.config/sheetmaker-pdf",
         "/home/ann/.local/state/sheetmaker-pdf"},
        {"Given",
         {{"HOME", "/home/ann"}, {"XDG_CONFIG_HOME", "/cfg"}, {"XDG_STATE_HOME", "/var/st"}},
         "/cfg/sheetmaker-pdf",
         "/var/st/sheetmaker-pdf"},
        {"RelativeIsIgnored",
         {{"HOME", "/home/ann"}, {"XDG_CONFIG_HOME", "cfg"}, {"XDG_STATE_HOME", ""}},
         "/home/ann/.config/sheetmaker-pdf",
         "/home/ann/.local/state/sheetmaker-pdf"},
    };
    for (const PlaceRow& row : rows) {
        const Places places = FindPlaces(Variables(row.variables), "/nowhere/bin/sheetmaker");
        EXPECT_EQ(places.settingsFolder, row.settings) << row.name;
        EXPECT_EQ(places.stateFolder, row.state) << row.name;
        EXPECT_EQ(places.SettingsFile(), std::string(row.settings) + "/settings.sqlite") << row.name;
    }
}

TEST(Places, FindTheAccountsHomeWithoutHome)
{
    const Places places = FindPlaces(Variables({}), "/nowhere/bin/x");
    EXPECT_TRUE(places.settingsFolder.is_absolute());
    EXPECT_EQ(places.settingsFolder.filename(), "sheetmaker-pdf");
}

TEST(Places, FindTheShareFolderOfAnInstallBesideTheProgramsFolder)
{
    const TemporaryFolder root;
    const auto share = root.MakeFolder("usr/share/sheetmaker-pdf");
    EXPECT_EQ(FindPlaces(Variables({}), root.Path() / "usr/bin/sheetmaker").shareFolder, share);
}

TEST(Places, FindTheShareFolderOfASourceTreeAboveTheBuild)
{
    const TemporaryFolder root;
    const auto share = root.MakeFolder("tree/share/sheetmaker-pdf");
    const auto program = root.Path() / "tree/build/release/apps/sheetmaker/sheetmaker";
    EXPECT_EQ(FindPlaces(Variables({}), program).shareFolder, share);
}

TEST(Places, FindNoShareFolderWhereThereIsNone)
{
    const TemporaryFolder root;
    EXPECT_EQ(FindPlaces(Variables({}), root.Path() / "usr/bin/sheetmaker").shareFolder, "");
}

TEST(Places, TakeTheShareFolderThatTheUserNames)
{
    const TemporaryFolder root;
    const auto share = root.MakeFolder("mine");
    root.MakeFolder("usr/share/sheetmaker-pdf");
    const auto program = root.Path() / "usr/bin/sheetmaker";
    EXPECT_EQ(FindPlaces(Variables({{"SHEETMAKER_PDF_SHARE", share}}), program).shareFolder, share);
    EXPECT_EQ(FindPlaces(Variables({{"SHEETMAKER_PDF_SHARE", root.Path() / "no"}}), program).shareFolder, "");
}

TEST(Places, KnowTheRunningProgram)
{
    EXPECT_TRUE(std::filesystem::is_regular_file(ExecutablePath()));
}

TEST(FindProgram, TakesTheFirstThatCanBeRun)
{
    const TemporaryFolder root;
    root.MakeFile("a/tool");
    const auto tool = root.MakeProgram("b/tool", "true");
    root.MakeProgram("c/tool", "true");
    const auto path =
        (root.Path() / "a").string() + ":" + (root.Path() / "b").string() + ":" + (root.Path() / "c").string();
    EXPECT_EQ(FindProgram(Variables({{"PATH", path}}), "tool"), tool);
    EXPECT_EQ(FindProgram(Variables({{"PATH", path}}), "other"), "");
    EXPECT_EQ(FindProgram(Variables({}), tool), tool);
    EXPECT_EQ(FindProgram(Variables({}), (root.Path() / "a/tool").string()), "");
}

} // namespace
} // namespace sm::system
