// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers to text and back.
#include "base/text/NumberText.h"

#include "base/Units.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

namespace sm::base {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(ParseReal, IsLenient)
{
    const struct {
        const char* text;
        double value;
    } rows[] = {{"", 0},
                {"12.5", 12.5},
                {" \t-7 ", -7},
                {"+3", 3},
                {"1e3", 1000},
                {"1E-2x", 0.01},
                {".5", 0.5},
                {"5.", 5},
                {"-.25", -0.25},
                {"abc", 0},
                {"12abc", 12},
                {"1,5", 1},
                {"1e999", 0},
                {"nan", 0},
                {"inf", 0},
                {"0.1", 0.1},
                {"--1", 0},
                {"123456789012345678", 123456789012345678.0},
                {"0.30000000000000004", 0.30000000000000004}};
    for (const auto& row : rows)
        EXPECT_EQ(ParseReal(row.text), row.value) << row.text;
}

/// 0 to 18 decimals of numbers of all sizes: what is put together from eight digits at a time, and what isn't.
TEST(ParseReal, RoundsAsTheLibraryDoes)
{
    std::mt19937_64 dice(7);
    for (int i = 0; i < 100000; ++i) {
        const double value = std::ldexp(static_cast<double>(dice()), static_cast<int>(dice() % 80) - 74);
        std::array<char, 64> text{};
        std::snprintf(text.data(), text.size(), "%.*f", static_cast<int>(dice() % 19), i % 2 == 0 ? value : -value);
        double expected = 0;
        std::from_chars(text.data(), text.data() + std::strlen(text.data()), expected);
        ASSERT_EQ(ParseReal(text.data()), expected) << text.data();
    }
}

TEST(ParseReal, TellsWhatIsNoNumberWhole)
{
    for (const char* const text : {"0", " 12.5 ", "-7\r", "+3", "1e3", ".5", "5.", "-0", "123456789012345678"}) {
        bool sound = true;
        ParseReal(text, sound);
        EXPECT_TRUE(sound) << text;
    }
    for (const char* const text : {"", " ", "-", ".", "abc", "12abc", "1,5", "1O0", "1.0D+02", "1e999", "nan", "inf",
                                   "--1", "1 2", "1.2.3", "12345678901234567x"}) {
        bool sound = true;
        ParseReal(text, sound);
        EXPECT_FALSE(sound) << text;
    }
}

TEST(ParseInteger, TellsWhatIsNoNumberWhole)
{
    for (const char* const text : {"0", " 42 ", "+7", "-7\r", "1.", "1.9", "1.000000"}) {
        bool sound = true;
        ParseInteger(text, sound);
        EXPECT_TRUE(sound) << text;
    }
    for (const char* const text : {"", " ", "x", "-7x", "1.5x", "1,5", "1e3", "9223372036854775808"}) {
        bool sound = true;
        ParseInteger(text, sound);
        EXPECT_FALSE(sound) << text;
    }
}

TEST(ParseInteger, IsLenient)
{
    const struct {
        const char* text;
        std::int64_t value;
    } rows[] = {{"", 0},
                {" 42 ", 42},
                {"+7", 7},
                {"-7x", -7},
                {"x", 0},
                {"1.9", 1},
                {"9223372036854775808", std::numeric_limits<std::int64_t>::max()},
                {"-9223372036854775809", std::numeric_limits<std::int64_t>::min()}};
    for (const auto& row : rows)
        EXPECT_EQ(ParseInteger(row.text), row.value) << row.text;
}

TEST(ParseHexadecimal, TakesUpToSixteenDigits)
{
    EXPECT_EQ(ParseHexadecimal(" 1aF "), 0x1AFU);
    EXPECT_EQ(ParseHexadecimal("FFFFFFFFFFFFFFFF"), 0xFFFFFFFFFFFFFFFFU);
    EXPECT_EQ(ParseHexadecimal("1FFFFFFFFFFFFFFFF"), 0U);
    EXPECT_EQ(ParseHexadecimal("g"), 0U);
    EXPECT_EQ(ParseHexadecimal(""), 0U);
}

TEST(Trimmed, TakesOffBlanksAndControls)
{
    EXPECT_EQ(Trimmed(" \t\r\n a b \x01"), "a b");
    EXPECT_EQ(Trimmed("  "), "");
    EXPECT_EQ(Trimmed(""), "");
}

std::string Quick(double value, int digits)
{
    char room[kNumberRoom];
    return {room, PutDecimal(room, value, digits)};
}

TEST(PutDecimal, RoundsTheProductAwayFromZero)
{
    const struct {
        double value;
        int digits;
        const char* text;
    } rows[] = {{0, 4, "0"},
                {-0.0, 4, "0"},
                {1, 4, "1"},
                {-1.5, 1, "-1.5"},
                {0.25, 1, "0.3"},
                {-0.25, 1, "-0.3"},
                {0.00004, 4, "0"},
                {-0.00004, 4, "0"},
                {1.115, 2, "1.12"},
                {1.005, 2, "1"},
                {12.3456, 4, "12.3456"},
                {100.0200, 6, "100.02"},
                {1e15, 1, "0"},
                {kInfinite, 1, "0"},
                {-kInfinite, 1, "0"},
                {std::nan(""), 1, "0"},
                {99999999999999.0, 1, "99999999999999"}};
    for (const auto& row : rows)
        EXPECT_EQ(Quick(row.value, row.digits), row.text) << row.value;
    char room[kNumberRoom];
    EXPECT_EQ(std::string(room, PutInteger(room, std::numeric_limits<std::int32_t>::min())), "-2147483648");
}

TEST(DecimalText, RoundsTheExactValue)
{
    const struct {
        double value;
        int digits;
        const char* text;
    } rows[] = {{0, 5, "0"},
                {-0.0, 5, "0"},
                {1, 5, "1"},
                {100, 0, "100"},
                {0.000004, 5, "0"},
                {-0.000004, 5, "0"},
                {0.25, 1, "0.2"},
                {1.115, 2, "1.11"},
                {841.8898, 5, "841.8898"},
                {1e20, 5, "100000000000000000000"},
                {kInfinite, 5, "0"},
                {std::nan(""), 5, "0"},
                {-12.5, 5, "-12.5"}};
    for (const auto& row : rows)
        EXPECT_EQ(DecimalText(row.value, row.digits), row.text) << row.value;
    EXPECT_EQ(DecimalText(1e308, 5).size(), 309U);
}

TEST(Units, Agree)
{
    EXPECT_EQ(PointsOfMillimetres(25.4), 72);
    EXPECT_EQ(PointsOfMillimetres(210), 210 * 72 / 25.4);
    EXPECT_EQ(RadiansOf(180), kPi);
}

} // namespace
} // namespace sm::base
