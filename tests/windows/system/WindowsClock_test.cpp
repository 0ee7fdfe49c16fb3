// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/system/WindowsSystem.h"

#include <ctime>
#include <gtest/gtest.h>

namespace sm::windows {
namespace {

/// The seconds that the C library's local time says of `time`, without a time zone.
std::int64_t LocalSeconds(std::time_t time)
{
    const std::tm local = *std::localtime(&time);
    using namespace std::chrono;
    const auto day = local_days(year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday);
    return (day + hours(local.tm_hour) + minutes(local.tm_min) + seconds(local.tm_sec)).time_since_epoch().count();
}

TEST(WindowsClock, TellsLocalTime)
{
    const auto clock = CreateClock();
    const std::int64_t before = LocalSeconds(std::time(nullptr));
    const std::int64_t now = clock->Now().time_since_epoch().count();
    EXPECT_GE(now, before);
    EXPECT_LE(now, LocalSeconds(std::time(nullptr)));
}

} // namespace
} // namespace sm::windows
