// SPDX-License-Identifier: GPL-3.0-or-later
// Pickers that the user cancels are noted; everything else passes through.
#include "run/WatchedWindows.h"

#include <gtest/gtest.h>

#include <vector>

namespace sm::app {
namespace {

/// Answers every picker alike.
class FixedWindows final : public IWindows {
public:
    explicit FixedWindows(std::optional<std::int32_t> choice) : m_choice(choice) {}
    std::int32_t ShowConversionSettings() override { return 1; }
    bool ShowPageSetup(IAcadPageSetup&, const std::string&) override { return true; }
    std::optional<std::int32_t> PickPlotStyle(const std::vector<std::string>&) override { return m_choice; }
    std::optional<std::int32_t> PickJobOptions(const std::vector<std::string>&) override { return m_choice; }
    std::optional<std::int32_t> PickPageSize(const std::vector<std::string>&) override { return m_choice; }
    bool RunProgress(const std::function<bool(const std::function<void(double)>&)>& scan) override
    {
        return scan([](double) {});
    }

private:
    std::optional<std::int32_t> m_choice;
};

std::vector<std::string> CancelledWhere(std::optional<std::int32_t> choice)
{
    std::vector<std::string> cancelled;
    const auto windows = WatchWindows(std::make_unique<FixedWindows>(choice),
                                      [&](const std::string& what) { cancelled.push_back(what); });
    EXPECT_EQ(windows->PickPlotStyle({}), choice);
    EXPECT_EQ(windows->PickJobOptions({}), choice);
    EXPECT_EQ(windows->PickPageSize({}), choice);
    EXPECT_EQ(windows->ShowConversionSettings(), 1);
    EXPECT_TRUE(windows->RunProgress([](const auto&) { return true; }));
    return cancelled;
}

TEST(WatchedWindows, NoteWhatIsCancelled)
{
    EXPECT_EQ(CancelledWhere(std::nullopt),
              (std::vector<std::string>{"the choice of a plot style table", "the choice of job options",
                                        "the choice of a paper"}));
    for (const std::int32_t choice : {-1, 0, 3}) // -1: the window failed
        EXPECT_TRUE(CancelledWhere(choice).empty()) << choice;
}

} // namespace
} // namespace sm::app
