// SPDX-License-Identifier: GPL-3.0-or-later
// Lets every test of the program that this is linked into run over COM, by the road that SM_ROAD names: "direct"
// (without it, too) or "apart".
#include "windows/testhost/ComCrossing.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string_view>

namespace sm::testhost {
namespace {

class CrossingEnvironment final : public testing::Environment {
public:
    void SetUp() override
    {
        const char* const named = std::getenv("SM_ROAD");
        const std::string_view road = named == nullptr ? "direct" : named;
        ASSERT_TRUE(road == "direct" || road == "apart") << road;
        CrossingInForce() = MakeComCrossing(road == "apart" ? Road::Apart : Road::Direct);
    }
    void TearDown() override { CrossingInForce() = nullptr; }
};

[[maybe_unused]] const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new CrossingEnvironment);

} // namespace
} // namespace sm::testhost
