// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/KeyPath.h"

#include <gtest/gtest.h>

namespace sm::store {
namespace {

struct KeyPathRow {
    const char* name;
    const char* text;
    const char* folded;
};

TEST(FoldCase, FoldsEveryScriptThatHasCase)
{
    const KeyPathRow rows[] = {
        {"Empty", "", ""},
        {"Ascii", "CurVer_9", "curver_9"},
        {"Latin", "\xc3\x84\xc3\x96\xc3\x9c", "\xc3\xa4\xc3\xb6\xc3\xbc"},
        {"Greek", "\xce\xa3\xce\x91", "\xcf\x83\xce\xb1"},
        {"Cyrillic", "\xd0\x96", "\xd0\xb6"},
        {"NoCase", "\xe5\x9b\xb3", "\xe5\x9b\xb3"},
        {"NotUtf8", "AB\xff", "ab\xff"},
        {"CutShort", "A\xc3", "a\xc3"},
    };
    for (const KeyPathRow& row : rows)
        EXPECT_EQ(FoldCase(row.text), row.folded) << row.name;
}

TEST(FoldKeyPath, DropsSeparatorsThatSayNothing)
{
    const KeyPathRow rows[] = {
        {"Plain", "Software\\House", "software\\house"},
        {"Trailing", "Software\\", "software"},
        {"Leading", "\\Software", "software"},
        {"Doubled", "Software\\\\House", "software\\house"},
        {"Nothing", "\\", ""},
    };
    for (const KeyPathRow& row : rows)
        EXPECT_EQ(FoldKeyPath(row.text), row.folded) << row.name;
}

} // namespace
} // namespace sm::store
