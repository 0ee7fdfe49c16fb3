// SPDX-License-Identifier: GPL-3.0-or-later
// A long day: one process converts again and again, with host and library reached over COM.
#include "../HandleCount.h"
#include "doubles/TestHouse.h"
#include "plugin/cPlugin.h"

#include <psapi.h>

namespace sm::windows {
namespace {

std::size_t PrivateBytes()
{
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}

void Convert(HouseParts& house, int count)
{
    for (int i = 0; i < count; ++i) {
        cPlugin plugin(house.context);
        ASSERT_EQ(plugin.Initialize(house.host.Application()), kTrue);
        plugin.ConvertToPDF(0);
        ASSERT_EQ(house.library.TakeLog().back(), "PDF FILE SAVED");
        house.observer = RecordingObserver();
    }
}

TEST(ManyConversions, LeaveNothingBehindButTheKeysThatWereRead)
{
    HouseParts house;
    house.PutSetting("PromptForFileName", "0");
    house.PutSetting("WhatToPlot", "1");
    house.library.tape.keepsCalls = house.host.tape.keepsCalls = false;
    Convert(house, 1);
    const std::size_t once = house.registry.OpenHandles();
    Convert(house, 1);
    const std::size_t each = house.registry.OpenHandles() - once;
    Convert(house, 98);
    const std::size_t keys = house.registry.OpenHandles(), handles = CountHandles(), bytes = PrivateBytes();
    Convert(house, 1000);
    const std::size_t keysAfter = house.registry.OpenHandles(), bytesAfter = PrivateBytes();
    std::printf("handles %zu and %zu, private bytes %zu and %zu, open keys %zu and %zu\n", handles, CountHandles(),
                bytes, bytesAfter, keys, keysAfter);
    EXPECT_EQ(CountHandles(), handles);
    EXPECT_EQ(keysAfter - keys, 1000 * each);                            // one a value that is read
    EXPECT_LT(bytesAfter, bytes + 128 * (keysAfter - keys) + 64 * 1024); // the registry's double remembers open keys
    EXPECT_EQ(house.library.documentsAlive, 0);
    EXPECT_EQ(house.library.logsAlive, 0);
}

} // namespace
} // namespace sm::windows
