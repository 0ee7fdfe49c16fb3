// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/BlockNames.h"
#include "doubles/FixedSystem.h"

#include <gtest/gtest.h>

namespace sm {
namespace {

TEST(SanitizeName, ReplacesByCharacterAndDropsABadLastOne)
{
    FixedLocale locale;
    const struct {
        const char *name, *text, *sanitized;
    } rows[] = {
        {"only the last is dropped", "A.B..", "A-B-"},
        {"a blank", "Block 1", "Block-1"},
        {"a colon at the end", "Title:", "Title"},
        {"allowed ones stay", "A-Z_a-z_0-9", "A-Z_a-z_0-9"},
        {"letters with accents are not allowed", "Größe", "Gr--e"},
        {"an accent at the end is one character", "Maß", "Ma"},
        {"characters outside the code page", "Лист1", "----1"},
        {"an emoji is one character", "a😀b", "a-b"},
        {"neighbours of the allowed ranges", "/:@[`{x", "------x"},
        {"empty", "", ""},
        {"one bad character", ".", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(SanitizeName(locale, row.text), row.sanitized) << row.name;
}

TEST(BlockNames, CountsEachNameOnItsOwn)
{
    FixedLocale locale;
    BlockNames names;
    EXPECT_EQ(names.Next(locale, "TITLE"), "TITLE_1");
    EXPECT_EQ(names.Next(locale, "A B"), "A-B_1");
    EXPECT_EQ(names.Next(locale, "TITLE"), "TITLE_2");
    EXPECT_EQ(names.Next(locale, "A.B"), "A-B_1");
}

} // namespace
} // namespace sm
