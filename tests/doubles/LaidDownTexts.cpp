// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/LaidDownTexts.h"

#include "doubles/ProducedTexts.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace sm {
namespace {

bool Matches(const LaidDownText& laidDown, const std::string& text)
{
    if (laidDown.whole)
        return text == laidDown.beginning;
    return text.size() > laidDown.beginning.size() + laidDown.ending.size() && text.rfind(laidDown.beginning, 0) == 0 &&
           text.compare(text.size() - laidDown.ending.size(), std::string::npos, laidDown.ending) == 0;
}

/// No filter, or one that only leaves tests out.
bool RunsAllButSome()
{
    const std::string filter = GTEST_FLAG_GET(filter);
    return filter.empty() || filter == "*" || filter.front() == '-';
}

class LaidDownCheck final : public testing::Environment {
public:
    explicit LaidDownCheck(std::vector<LaidDownText> texts) : m_texts(std::move(texts)) {}
    void TearDown() override
    {
        if (!RunsAllButSome())
            return; // a part of the tests produces a part of the texts
        for (const LaidDownText& laidDown : m_texts) {
            const auto& produced = ProducedTexts();
            EXPECT_TRUE(std::any_of(produced.begin(), produced.end(),
                                    [&](const std::string& text) { return Matches(laidDown, text); }))
                << "never produced: \"" << laidDown.beginning << (laidDown.whole ? "" : "...") << laidDown.ending
                << "\"";
        }
    }

private:
    std::vector<LaidDownText> m_texts;
};

} // namespace

bool RequireLaidDownTexts(std::vector<LaidDownText> texts)
{
    testing::AddGlobalTestEnvironment(new LaidDownCheck(std::move(texts)));
    return true;
}

} // namespace sm
