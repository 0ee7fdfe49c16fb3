// SPDX-License-Identifier: GPL-3.0-or-later
// Calls that would begin a run within another one, as they come in while that one waits for its host.
#include "plugin/RunTurn.h"

#include "doubles/TestHouse.h"
#include "hostobjects/cNativeDoc.h"
#include "plugin/cPlugin.h"

#include <future>
#include <gmock/gmock.h>
#include <tuple>

namespace sm {
namespace {

/// What a front end holds: a plug-in object and a native document over one context.
struct FrontEnd {
    explicit FrontEnd(HouseParts& parts)
        : house(parts), app(parts.host.Application()), plugin(parts.context), document(parts.context)
    {
        house.PutSetting("PromptForFileName", "0");
        EXPECT_EQ(plugin.Initialize(app), kTrue);
        EXPECT_EQ(document.InitGetDocByName(1, app, nullptr, "C:\\Jobs\\Plan.dwg"), kTrue);
        pubDoc = house.library.CreatePubDoc();
        house.library.tape.calls.clear();
        house.host.tape.calls.clear();
    }
    HouseParts& house;
    std::shared_ptr<IAcadApplication> app;
    std::shared_ptr<IPubDoc> pubDoc;
    cPlugin plugin;
    cNativeDoc document;
};

struct NestingOperation {
    const char* name;
    std::int32_t (*run)(FrontEnd&);
    std::int32_t done, turnedAway; ///< what comes back
};

const NestingOperation kNestConvert{"ConvertToPDF",
                                    [](FrontEnd& user) {
                                        user.plugin.ConvertToPDF(1);
                                        return 0;
                                    },
                                    0, 0};
const NestingOperation kNestShowSettings{"ShowSettings",
                                         [](FrontEnd& user) {
                                             user.house.windows.settingsResult = 1; // "Create PDF"
                                             return std::int32_t{user.plugin.ShowSettings(1, 0, 0)};
                                         },
                                         kFalse, kFalse};
const NestingOperation kNestAddToPubDoc{
    "AddToPubDoc",
    [](FrontEnd& user) { return user.document.AddToPubDoc(user.pubDoc, "Ground", kFalse, 1200, "Proof"); }, 0, -4};

class NestedRun : public testing::TestWithParam<std::tuple<NestingOperation, NestingOperation, bool>> {};

TEST_P(NestedRun, IsTurnedAwayAndLeavesTheOtherAsItIs)
{
    const NestingOperation &outer = std::get<0>(GetParam()), &inner = std::get<1>(GetParam());
    const bool sameObject = std::get<2>(GetParam());
    HouseParts plain;
    FrontEnd alone(plain);
    EXPECT_EQ(outer.run(alone), outer.done);

    HouseParts first, second;
    FrontEnd running(first), other(second);
    FrontEnd& calling = sameObject ? running : other;
    int calls = 0;
    first.observer.atStage = [&](const std::string& name) {
        if (name == "plot" && calls++ == 0) {
            EXPECT_EQ(inner.run(calling), inner.turnedAway);
        }
    };
    EXPECT_EQ(outer.run(running), outer.done);
    EXPECT_GT(calls, 0);
    EXPECT_EQ(first.library.tape.calls, plain.library.tape.calls);
    EXPECT_EQ(first.host.tape.calls, plain.host.tape.calls);
    EXPECT_EQ(first.library.TakeLog(), plain.library.TakeLog());
    EXPECT_EQ(second.library.tape.calls, std::vector<std::string>());
    EXPECT_EQ(second.host.tape.calls, std::vector<std::string>());
    EXPECT_EQ(second.windows.calls, std::vector<std::string>());
    EXPECT_TRUE(second.desktop.TakeMessages().empty());
    std::vector<std::string> told = sameObject ? plain.observer.carriedPast : std::vector<std::string>();
    told.push_back(std::string(inner.name) + ": another conversion is under way");
    EXPECT_THAT(calling.house.observer.carriedPast, testing::UnorderedElementsAreArray(told));

    EXPECT_EQ(inner.run(calling), inner.done) << "once the first has ended";
    (void)first.library.TakeLog();
    (void)second.library.TakeLog();
}

INSTANTIATE_TEST_SUITE_P(, NestedRun,
                         testing::Combine(testing::Values(kNestConvert, kNestShowSettings, kNestAddToPubDoc),
                                          testing::Values(kNestConvert, kNestShowSettings, kNestAddToPubDoc),
                                          testing::Bool()),
                         [](const auto& row) {
                             return std::string(std::get<1>(row.param).name) + "Within" + std::get<0>(row.param).name +
                                    (std::get<2>(row.param) ? "OfTheSameObject" : "OfAnotherObject");
                         });

TEST(RunTurn, OfOneThreadIsNotThatOfAnother)
{
    HouseParts house;
    const RunTurn turn(house.context, "First");
    EXPECT_TRUE(turn);
    EXPECT_FALSE(RunTurn(house.context, "Second"));
    EXPECT_TRUE(
        std::async(std::launch::async, [&] { return static_cast<bool>(RunTurn(house.context, "Third")); }).get());
    EXPECT_EQ(house.observer.carriedPast, std::vector<std::string>{"Second: another conversion is under way"});
}

} // namespace
} // namespace sm
