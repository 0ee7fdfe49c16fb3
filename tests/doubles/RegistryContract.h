// SPDX-License-Identifier: GPL-3.0-or-later
// What every registry keeps, whatever it stands on. Included by one test source of each program that has registries:
//
//     INSTANTIATE_TEST_SUITE_P(, RegistryContract, testing::ValuesIn(kKinds), NameOfRegistryKind);
#pragma once

#include "doubles/RegistryAccess.h"

#include <functional>
#include <gtest/gtest.h>

namespace sm {

struct RegistryKind {
    const char* name;
    /// A registry without the keys "Software\\House" and "Software\\Product".
    std::function<std::shared_ptr<IRegistry>()> make;
    /// Texts that are written without a terminating NUL get one.
    bool addsTerminator = false;
};

inline std::string NameOfRegistryKind(const testing::TestParamInfo<RegistryKind>& kind)
{
    return kind.param.name;
}

class RegistryContract : public testing::TestWithParam<RegistryKind> {
protected:
    static constexpr auto kUser = RegistryRoot::CurrentUser;

    void SetUp() override { m_registry = GetParam().make(); }
    IRegistry& Registry() { return *m_registry; }
    /// Bytes that are added to a text of 5 bytes with none of them at the end.
    static std::uint32_t Terminator(RegistryType type)
    {
        const bool text = type == RegistryType::String || type == RegistryType::ExpandString;
        return text && GetParam().addsTerminator ? 1 : 0;
    }
    std::string Read(const std::string& path, const std::string& name)
    {
        std::string text = ReadText(Registry(), path, name);
        if (GetParam().addsTerminator && text.ends_with('\0'))
            text.pop_back();
        return text;
    }

private:
    std::shared_ptr<IRegistry> m_registry;
};

TEST_P(RegistryContract, GivesNothingForAMissingKey)
{
    EXPECT_FALSE(Registry().OpenKey(kUser, "Software\\Nobody"));
}

TEST_P(RegistryContract, MakesAKeyWithAllItsParents)
{
    EXPECT_TRUE(Registry().CreateKey(kUser, "Software\\House\\Product"));
    EXPECT_TRUE(Registry().OpenKey(kUser, "Software\\House\\Product"));
    EXPECT_TRUE(Registry().OpenKey(kUser, "Software\\House"));
    EXPECT_TRUE(Registry().OpenKey(kUser, "Software"));
    EXPECT_FALSE(Registry().OpenKey(kUser, "Software\\House\\Other"));
}

TEST_P(RegistryContract, ReadsBackWhatWasWritten)
{
    EXPECT_TRUE(WriteText(Registry(), "Software\\Product", "Name", "value"));
    EXPECT_EQ(Read("Software\\Product", "Name"), "value");
}

TEST_P(RegistryContract, IgnoresLetterCaseOfKeysAndNames)
{
    EXPECT_TRUE(WriteText(Registry(), "Software\\Product", "Name", "value"));
    EXPECT_EQ(Read("SOFTWARE\\product", "nAME"), "value");
    EXPECT_TRUE(WriteText(Registry(), "software\\PRODUCT", "NAME", "other"));
    EXPECT_EQ(Read("Software\\Product", "Name"), "other");
}

TEST_P(RegistryContract, GivesNothingForAMissingValue)
{
    const auto key = Registry().CreateKey(kUser, "Software\\Product");
    ASSERT_TRUE(key);
    std::string buffer = "kept";
    EXPECT_FALSE(Registry().QueryInfo(*key, "Name"));
    EXPECT_FALSE(Registry().QueryValue(*key, "Name", buffer));
    EXPECT_EQ(buffer, "kept");
}

TEST_P(RegistryContract, KeepsTypeSizeAndEveryByte)
{
    const std::string bytes("a\0\xff\x80z", 5);
    for (const auto type : {RegistryType::None, RegistryType::String, RegistryType::ExpandString, RegistryType::Binary,
                            RegistryType::DWord}) {
        const auto key = Registry().CreateKey(kUser, "Software\\Product");
        ASSERT_TRUE(key);
        EXPECT_TRUE(Registry().SetValue(*key, "Name", type, bytes, 5));
        const auto info = Registry().QueryInfo(*key, "Name");
        ASSERT_TRUE(info);
        EXPECT_EQ(info->type, type);
        EXPECT_EQ(info->size, 5u + Terminator(type));
        EXPECT_EQ(Read("Software\\Product", "Name"), bytes);
        EXPECT_TRUE(Registry().CloseKey(*key));
    }
}

TEST_P(RegistryContract, WritesAsManyBytesAsItIsTold)
{
    const auto key = Registry().CreateKey(kUser, "Software\\Product");
    ASSERT_TRUE(key);
    EXPECT_TRUE(Registry().SetValue(*key, "Name", RegistryType::String, "abcdef", 3));
    EXPECT_EQ(Read("Software\\Product", "Name"), "abc");
    EXPECT_FALSE(Registry().SetValue(*key, "Name", RegistryType::String, "ab", 9));
    EXPECT_EQ(Read("Software\\Product", "Name"), "abc");
}

TEST_P(RegistryContract, KeepsAnEmptyValueApartFromNone)
{
    EXPECT_TRUE(WriteText(Registry(), "Software\\Product", "Name", ""));
    EXPECT_EQ(Read("Software\\Product", "Name"), "");
}

TEST_P(RegistryContract, LeavesTheRestOfABufferAlone)
{
    EXPECT_TRUE(WriteText(Registry(), "Software\\Product", "Name", "abc"));
    const auto key = Registry().OpenKey(kUser, "Software\\Product");
    ASSERT_TRUE(key);
    std::string wide = "......", narrow = "..";
    EXPECT_TRUE(Registry().QueryValue(*key, "Name", wide));
    EXPECT_EQ(wide, Terminator(RegistryType::String) == 0 ? "abc..." : std::string("abc\0..", 6));
    EXPECT_FALSE(Registry().QueryValue(*key, "Name", narrow));
    EXPECT_EQ(narrow, "..");
}

TEST_P(RegistryContract, ClosesEachKeyOnce)
{
    const auto first = Registry().CreateKey(kUser, "Software\\Product");
    const auto second = Registry().OpenKey(kUser, "Software\\Product");
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    EXPECT_TRUE(Registry().CloseKey(*first));
    EXPECT_FALSE(Registry().CloseKey(*first));
    EXPECT_TRUE(Registry().SetValue(*second, "Name", RegistryType::String, "x", 1));
    EXPECT_TRUE(Registry().CloseKey(*second));
}

TEST_P(RegistryContract, RefusesAKeyThatIsNotOpen)
{
    std::string buffer = "kept";
    EXPECT_FALSE(Registry().QueryInfo(0, "Name"));
    EXPECT_FALSE(Registry().QueryValue(4711, "Name", buffer));
    EXPECT_FALSE(Registry().SetValue(0, "Name", RegistryType::String, "x", 1));
    EXPECT_FALSE(Registry().CloseKey(4711));
    EXPECT_EQ(buffer, "kept");
}

TEST_P(RegistryContract, DecodesWhatItEncodes)
{
    EXPECT_EQ(Registry().Decode(Registry().Encode("Gr\xc3\xb6\xc3\x9f"
                                                  "e")),
              "Gr\xc3\xb6\xc3\x9f"
              "e");
}

} // namespace sm
