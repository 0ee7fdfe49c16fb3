// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/HelpTopic.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace sm::app {
namespace {

struct HelpTopicRow {
    const char* name;
    const char* address;
    const char* opened;
};

const HelpTopicRow kHelpTopicRows[] = {
    {"Anchor", "file:///usr/share/help/index.html#c400", "file:///usr/share/help/topics/c400.html"},
    {"WholePage", "file:///usr/share/help/index.html", "file:///usr/share/help/index.html"},
    {"OtherAnchor", "file:///usr/share/help/index.html#picking", "file:///usr/share/help/index.html#picking"},
    {"NoNumber", "file:///usr/share/help/index.html#c", "file:///usr/share/help/index.html#c"},
    {"Web", "https://www.example/index.html#c400", "https://www.example/index.html#c400"},
    {"Document", "/home/ann/plan.pdf", "/home/ann/plan.pdf"},
};

TEST(HelpTopic, IsAPageOfItsOwn)
{
    for (const HelpTopicRow& row : kHelpTopicRows)
        EXPECT_EQ(HelpTopic(row.address), row.opened) << row.name;
}

TEST(HelpTopic, IsInstalled)
{
    const std::string folder = SM_SOURCE_DIR "/share/sheetmaker-pdf/help";
    const std::string page = HelpTopic("file://" + folder + "/index.html#c400");
    EXPECT_TRUE(std::filesystem::is_regular_file(page.substr(7))) << page;
}

} // namespace
} // namespace sm::app
