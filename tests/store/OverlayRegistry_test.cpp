// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/OverlayRegistry.h"

#include "TemporaryFolder.h"
#include "doubles/MemoryRegistry.h"
#include "doubles/RegistryAccess.h"
#include "doubles/RegistryNames.h"
#include "store/SqliteRegistry.h"

#include <gtest/gtest.h>

namespace sm::store {
namespace {

constexpr const char* kReleaseKey = "Software\\Tarnwick Software\\Sheetmaker PDF\\AutoCAD\\R16.0\\EMBEDDED-1:409";

TEST(OverlayRegistry, ShowsTheLayerBeforeTheStoredValue)
{
    MemoryRegistry stored;
    WriteText(stored, kKey, "WhatToPlot", "0");
    WriteText(stored, kKey, "DeletePs", "0");
    OverlayRegistry overlay(stored);
    overlay.Lay(kUser, kKey, "WhatToPlot", "1");
    EXPECT_EQ(ReadText(overlay, kKey, "whattoplot"), "1");
    EXPECT_EQ(ReadText(overlay, kKey, "DeletePs"), "0");
    EXPECT_EQ(ReadText(stored, kKey, "WhatToPlot"), "0");
}

TEST(OverlayRegistry, OpensAKeyThatOnlyTheLayerHas)
{
    MemoryRegistry stored;
    OverlayRegistry overlay(stored);
    overlay.Lay(kUser, kKey, "WhatToPlot", "1");
    EXPECT_EQ(ReadText(overlay, kKey, "WhatToPlot"), "1");
    EXPECT_FALSE(stored.OpenKey(kUser, kKey));
}

TEST(OverlayRegistry, KeepsAWriteOfAnOptionForTheRun)
{
    MemoryRegistry stored;
    WriteText(stored, kKey, "JobOptionsFile", "Print");
    OverlayRegistry overlay(stored);
    overlay.Lay(kUser, kKey, "JobOptionsFile", "Web");
    EXPECT_TRUE(WriteText(overlay, kKey, "JobOptionsFile", "Archive"));
    EXPECT_EQ(ReadText(overlay, kKey, "JobOptionsFile"), "Archive");
    EXPECT_EQ(ReadText(stored, kKey, "JobOptionsFile"), "Print");
}

TEST(OverlayRegistry, PassesOtherWritesOn)
{
    MemoryRegistry stored;
    OverlayRegistry overlay(stored);
    EXPECT_TRUE(WriteText(overlay, kKey, "Stamp1", "FOR REVIEW"));
    EXPECT_EQ(ReadText(stored, kKey, "Stamp1"), "FOR REVIEW");
}

TEST(OverlayRegistry, KeepsWritesOfNamedValues)
{
    MemoryRegistry stored;
    WriteText(stored, kKey, "NoShowAcad2000PlotterMsg", "0");
    OverlayRegistry overlay(stored);
    overlay.KeepWrites("NoShowAcad2000PlotterMsg");
    EXPECT_EQ(ReadText(overlay, kKey, "NoShowAcad2000PlotterMsg"), "0");
    EXPECT_TRUE(WriteText(overlay, kKey, "NoShowAcad2000PlotterMsg", "1"));
    EXPECT_EQ(ReadText(overlay, kKey, "NoShowAcad2000PlotterMsg"), "1");
    EXPECT_EQ(ReadText(stored, kKey, "NoShowAcad2000PlotterMsg"), "0");
}

TEST(OverlayRegistry, NeverMeetsTheIsolatedStateOfAnotherRun)
{
    MemoryRegistry stored;
    OverlayRegistry other(stored), overlay(stored);
    for (OverlayRegistry* run : {&other, &overlay})
        run->Isolate(kUser, kKey, "PrinterConfigPath");
    WriteText(stored, kReleaseKey, "PrinterConfigPath", "/left/behind");
    EXPECT_TRUE(WriteText(other, kReleaseKey, "PrinterConfigPath", "/other/run"));
    EXPECT_EQ(ReadText(overlay, kReleaseKey, "PrinterConfigPath"), "(none)");
    EXPECT_TRUE(WriteText(overlay, kReleaseKey, "PrinterConfigPath", "/this/run"));
    EXPECT_EQ(ReadText(overlay, kReleaseKey, "PrinterConfigPath"), "/this/run");
    EXPECT_EQ(ReadText(stored, kReleaseKey, "PrinterConfigPath"), "/left/behind");
}

TEST(OverlayRegistry, StoresNothingForARunThatStoresNothing)
{
    const TemporaryFolder folder;
    const auto file = folder.Path() / "deep" / "settings.sqlite";
    const auto stored = OpenSqliteRegistry(file, {}, {});
    OverlayRegistry overlay(*stored);
    overlay.Isolate(kUser, kKey, "Profile");
    overlay.Lay(kUser, kKey, "DeletePs", "1");
    EXPECT_TRUE(WriteText(overlay, kReleaseKey, "Profile", "<<Unnamed>>"));
    EXPECT_EQ(ReadText(overlay, kKey, "DeletePs"), "1");
    EXPECT_FALSE(std::filesystem::exists(file.parent_path()));
}

TEST(OverlayRegistry, SeesAKeyMadeBelowAfterItWasOpened)
{
    MemoryRegistry stored;
    OverlayRegistry overlay(stored);
    overlay.Lay(kUser, kKey, "DeletePs", "1");
    const auto key = overlay.OpenKey(kUser, kKey);
    ASSERT_TRUE(key);
    WriteText(stored, kKey, "Stamp1", "LATE");
    const auto info = overlay.QueryInfo(*key, "Stamp1");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->size, 4u);
}

} // namespace
} // namespace sm::store
