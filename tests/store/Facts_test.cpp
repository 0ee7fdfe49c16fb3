// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/Facts.h"

#include "TemporaryFolder.h"
#include "doubles/RegistryAccess.h"
#include "doubles/RegistryNames.h"
#include "store/SqliteRegistry.h"

#include <gtest/gtest.h>

namespace sm::store {
namespace {

ValueTable Shipped()
{
    return ShippedFacts({"/share/help/acadsmpdf.hlp", "/share/settings", "1.2.3", "/share"});
}

struct FactRow {
    RegistryRoot root;
    const char* key;
    const char* name;
    const char* text;
};

const FactRow kFactRows[] = {
    {kMachine, "Software\\Tarnwick Software\\Sheetmaker PDF", "Version", "1.2.3"},
    {kMachine, "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD", "HelpFile", "/share/help/acadsmpdf.hlp"},
    {kMachine, "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD", "SettingsFolder", "/share/settings"},
    {kUser, "Software\\Autodesk\\AutoCAD", "CurVer", "R16.0"},
    {kUser, "Software\\Autodesk\\AutoCAD\\R16.0", "CurVer", "EMBEDDED-1:409"},
    {kMachine, "Software\\Autodesk\\AutoCAD", "CurVer", "R16.0"},
    {kMachine, "Software\\Autodesk\\AutoCAD\\R16.0", "CurVer", "EMBEDDED-1:409"},
    {kMachine, "Software\\Autodesk\\AutoCAD\\R16.0\\EMBEDDED-1:409", "AcadLocation", "/share"},
    {kMachine, "Software\\Autodesk\\AutoCAD\\R16.0\\EMBEDDED-1:409", "Language", "English"},
    {kMachine, "Software\\Autodesk\\AutoCAD\\R16.0\\EMBEDDED-1:409", "LocaleID", "409"},
    {kMachine, "Software\\Autodesk\\AutoCAD\\R16.0\\EMBEDDED-1:409", "ProductID", "EMBEDDED"},
    {kMachine, "Software\\Autodesk\\AutoCAD\\R16.0\\EMBEDDED-1:409", "ProductName", "Sheetmaker PDF drawing engine"},
    {kMachine, "Software\\Autodesk\\AutoCAD\\R16.0\\EMBEDDED-1:409", "Release", "16.0"},
};

TEST(Facts, StandInTheRegistryOfAFreshMachine)
{
    const TemporaryFolder folder;
    const auto file = folder.Path() / "settings.sqlite";
    const auto registry = OpenSqliteRegistry(file, Shipped(), {});
    for (const FactRow& row : kFactRows)
        EXPECT_EQ(ReadText(*registry, row.key, row.name, row.root), row.text) << row.key << " " << row.name;
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(Facts, OfTheMachineCannotBeWritten)
{
    const TemporaryFolder folder;
    const auto registry = OpenSqliteRegistry(folder.Path() / "settings.sqlite", Shipped(), {});
    const char* product = "Software\\Tarnwick Software\\Sheetmaker PDF";
    EXPECT_FALSE(WriteText(*registry, product, "Version", "9", kMachine));
    EXPECT_FALSE(WriteText(*registry, "Software\\New", "Name", "9", kMachine));
    EXPECT_EQ(ReadText(*registry, product, "Version", kMachine), "1.2.3");
}

TEST(Facts, OfTheUserGiveWayToWhatTheUserStored)
{
    const TemporaryFolder folder;
    const auto registry = OpenSqliteRegistry(folder.Path() / "settings.sqlite", Shipped(), {});
    EXPECT_TRUE(WriteText(*registry, "Software\\Autodesk\\AutoCAD", "CurVer", "R15.0"));
    EXPECT_EQ(ReadText(*registry, "Software\\Autodesk\\AutoCAD", "CurVer"), "R15.0");
    EXPECT_EQ(ReadText(*registry, "Software\\Autodesk\\AutoCAD\\R16.0", "CurVer"), "EMBEDDED-1:409");
}

} // namespace
} // namespace sm::store
