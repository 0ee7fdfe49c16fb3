// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/Attempt.h"

#include <gtest/gtest.h>
#include <vector>

namespace sm {
namespace {

TEST(CarryOnPolicy, GivesTheResultOfACallThatSucceeds)
{
    EXPECT_EQ(CarryOn([] { return 7; }), std::optional<int>(7));
    EXPECT_TRUE(CarryOn([] {}));
}

TEST(CarryOnPolicy, ReportsTheDescriptionOfTheError)
{
    std::string reported;
    const auto result = CarryOn([]() -> int { throw HostError("Invalid input"); },
                                [&](const std::string& description) { reported = description; });
    EXPECT_FALSE(result.has_value());
    EXPECT_EQ(reported, "Invalid input");
}

TEST(CarryOnPolicy, SwallowsWhatIsNoStandardException)
{
    std::string reported = "nothing";
    EXPECT_FALSE(CarryOn([] { throw 42; }, [&](const std::string& description) { reported = description; }));
    EXPECT_EQ(reported, "");
}

TEST(CarryOnPolicy, SurvivesAReportThatFails)
{
    EXPECT_FALSE(CarryOn([] { throw HostError("first"); }, [](const std::string&) { throw HostError("second"); }));
}

TEST(CarryOnPolicy, LeavesTheCallersValueAlone)
{
    int value = 3;
    CarryOn([&] { value = []() -> int { throw HostError("unreadable"); }(); });
    EXPECT_EQ(value, 3);
}

TEST(GiveUpPolicy, GivesTheResultOfABodyThatSucceeds)
{
    EXPECT_EQ(GiveUp([] { return 1; }, [](const std::string&) { return 2; }), 1);
}

TEST(GiveUpPolicy, EndsWithTheFailureValue)
{
    std::vector<std::string> lines;
    const auto onError = [&](const std::string& description) {
        lines.push_back("RUNTIME ERROR: " + description);
        return -4;
    };
    EXPECT_EQ(GiveUp([]() -> int { throw HostError("no such device"); }, onError), -4);
    EXPECT_EQ(GiveUp([]() -> int { throw "no class of ours"; }, onError), -4);
    EXPECT_EQ(lines, (std::vector<std::string>{"RUNTIME ERROR: no such device", "RUNTIME ERROR: "}));
}

} // namespace
} // namespace sm
