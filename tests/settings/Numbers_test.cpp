// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/FixedSystem.h"
#include "settings/mdlUtilities.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace sm {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct ReadRow {
    const char* name;
    std::string text;
    double expected;
};

TEST(Val, ReadsTheLongestLeadingNumber)
{
    const ReadRow rows[] = {
        {"empty", "", 0},
        {"no number", "abc", 0},
        {"number after a word", "a12", 0},
        {"integer", "42", 42},
        {"fraction", "12.75", 12.75},
        {"comma ends the number", "8,5", 8},
        {"second point ends the number", "1.2.3", 1.2},
        {"negative", "-3.5", -3.5},
        {"plus sign", "+3.5", 3.5},
        {"two signs", "--3", 0},
        {"sign alone", "-", 0},
        {"point alone", ".", 0},
        {"no digit before the point", ".5", 0.5},
        {"no digit after the point", "5.", 5},
        {"words after it", "600 dpi", 600},
        {"version with a plus", "15+", 15},
        {"leading blanks", "   7", 7},
        {"leading tab", "\t7", 7},
        {"blanks and tabs inside", "1 2\t3.4 5", 123.45},
        {"blank after the sign", "- 4", -4},
        {"line break ends it", "1\n2", 1},
        {"leading line break", "\n1", 0},
        {"exponent", "1E+20", 1e20},
        {"small exponent letter", "25e-1", 2.5},
        {"exponent without digits", "3E", 3},
        {"exponent sign without digits", "3E+", 3},
        {"exponent alone", "E5", 0},
        {"hexadecimal isn't read", "0x10", 0},
        {"infinity isn't read", "inf", 0},
        {"NaN isn't read", "nan", 0},
        {"fifteen digits", "123456.789012345", 123456.789012345},
        {"beyond the largest", "1E400", kLargest},
        {"below the lowest", "-1E400", -kLargest},
        {"digits beyond the largest", std::string(400, '9'), kLargest},
        {"exponent beyond any integer", "1E99999999999999999999", kLargest},
        {"smaller than the smallest", "1E-400", 0},
        {"digits below the smallest", "0." + std::string(400, '0') + "1", 0},
        {"zero with a huge exponent", "0E999", 0},
        {"embedded NUL", std::string("1\0002", 3), 1},
        {"letters of other scripts", "\xD9\xA3", 0},
    };
    for (const ReadRow& row : rows)
        EXPECT_EQ(Val(row.text), row.expected) << row.name;
}

TEST(Val, NeverGivesNegativeZero)
{
    EXPECT_FALSE(std::signbit(Val("-0")));
}

TEST(RoundToInteger, RoundsHalvesToEvenAndKeepsToTheRange)
{
    const struct {
        double value;
        std::int32_t expected;
    } rows[] = {
        {0, 0},
        {0.4, 0},
        {0.5, 0},
        {0.6, 1},
        {1.5, 2},
        {1.9, 2},
        {2.5, 2},
        {3.5, 4},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {-2.6, -3},
        {0.49999999999999994, 0},
        {2147483646.5, 2147483646},
        {2147483647, 2147483647},
        {2147483647.5, 2147483647},
        {-2147483648.5, -2147483648},
        {1e300, 2147483647},
        {-1e300, std::numeric_limits<std::int32_t>::min()},
        {kInfinity, 2147483647},
        {-kInfinity, std::numeric_limits<std::int32_t>::min()},
        {std::nan(""), 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(RoundToInteger(row.value), row.expected) << row.value;
}

struct WriteRow {
    double value;
    const char* expected;
};

TEST(NumberText, WritesTheShortestFormOfFifteenDigits)
{
    const WriteRow rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-1, "-1"},
        {100000, "100000"},
        {215.9, "215.9"},
        {8.5 * 25.4, "215.9"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {1234567.125, "1234567.125"},
        {123456789012345, "123456789012345"},
        {1e14, "100000000000000"},
        {1e15, "1E+15"},
        {1e20, "1E+20"},
        {-1.5e20, "-1.5E+20"},
        {1e300, "1E+300"},
        {0.0001, "0.0001"},
        {1e-7, "1E-07"},
        {1.25e-7, "1.25E-07"},
        {5e-324, "4.94065645841247E-324"},
        {999999999999999.9, "1E+15"},
        {kInfinity, "1.79769313486232E+308"},
        {-kInfinity, "-1.79769313486232E+308"},
        {std::nan(""), "0"},
    };
    for (const WriteRow& row : rows)
        EXPECT_EQ(NumberText(row.value), row.expected) << row.value;
}

TEST(LocaleNumberText, TakesTheDecimalSeparatorOfTheLocale)
{
    FixedLocale locale;
    EXPECT_EQ(LocaleNumberText(locale, 8.5), "8.5");
    locale.decimalSeparator = ',';
    EXPECT_EQ(LocaleNumberText(locale, 8.5), "8,5");
    EXPECT_EQ(LocaleNumberText(locale, -1.5e20), "-1,5E+20");
    EXPECT_EQ(LocaleNumberText(locale, 12), "12");
}

TEST(NumberText, WritingAndReadingAgreeButUnderACommaLocale)
{
    FixedLocale locale;
    EXPECT_EQ(Val(LocaleNumberText(locale, 8.5)), 8.5);
    EXPECT_EQ(Val(LocaleNumberText(locale, 1e20)), 1e20);
    locale.decimalSeparator = ',';
    EXPECT_EQ(Val(LocaleNumberText(locale, 8.5)), 8);
}

} // namespace
} // namespace sm
