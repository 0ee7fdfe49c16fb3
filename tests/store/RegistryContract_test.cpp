// What every registry keeps, whatever it stands on.
#include "RegistryAccess.h"
#include "TemporaryFolder.h"
#include "doubles/MemoryRegistry.h"
#include "store/OverlayRegistry.h"
#include "store/SqliteRegistry.h"

#include <functional>
#include <gtest/gtest.h>

namespace sm::store {
namespace {

constexpr auto kUser = RegistryRoot::CurrentUser;

struct Stand {
    TemporaryFolder folder;
    std::unique_ptr<IRegistry> below, registry;
};

std::unique_ptr<IRegistry> Sqlite(const Stand& stand)
{
    return OpenSqliteRegistry(stand.folder.Path() / "settings.sqlite", {}, {});
}

struct Kind {
    const char* name;
    std::function<void(Stand&)> make;
};

const Kind kKinds[] = {
    {"Memory", [](Stand& stand) { stand.registry = std::make_unique<MemoryRegistry>(); }},
    {"Sqlite", [](Stand& stand) { stand.registry = Sqlite(stand); }},
    {"OverlayOnMemory",
     [](Stand& stand) {
         stand.below = std::make_unique<MemoryRegistry>();
         stand.registry = std::make_unique<OverlayRegistry>(*stand.below);
     }},
    {"OverlayOnSqlite",
     [](Stand& stand) {
         stand.below = Sqlite(stand);
         stand.registry = std::make_unique<OverlayRegistry>(*stand.below);
     }},
    {"OverlayThatKeepsWrites",
     [](Stand& stand) {
         stand.below = Sqlite(stand);
         auto overlay = std::make_unique<OverlayRegistry>(*stand.below);
         overlay->KeepWrites("Name");
         stand.registry = std::move(overlay);
     }},
};

class RegistryContract : public testing::TestWithParam<Kind> {
protected:
    void SetUp() override { GetParam().make(m_stand); }
    IRegistry& Registry() { return *m_stand.registry; }

private:
    Stand m_stand;
};

INSTANTIATE_TEST_SUITE_P(, RegistryContract, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

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
    EXPECT_EQ(ReadText(Registry(), "Software\\Product", "Name"), "value");
}

TEST_P(RegistryContract, IgnoresLetterCaseOfKeysAndNames)
{
    EXPECT_TRUE(WriteText(Registry(), "Software\\Product", "Name", "value"));
    EXPECT_EQ(ReadText(Registry(), "SOFTWARE\\product", "nAME"), "value");
    EXPECT_TRUE(WriteText(Registry(), "software\\PRODUCT", "NAME", "other"));
    EXPECT_EQ(ReadText(Registry(), "Software\\Product", "Name"), "other");
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
        EXPECT_EQ(info->size, 5u);
        EXPECT_EQ(ReadText(Registry(), "Software\\Product", "Name"), bytes);
        EXPECT_TRUE(Registry().CloseKey(*key));
    }
}

TEST_P(RegistryContract, WritesAsManyBytesAsItIsTold)
{
    const auto key = Registry().CreateKey(kUser, "Software\\Product");
    ASSERT_TRUE(key);
    EXPECT_TRUE(Registry().SetValue(*key, "Name", RegistryType::String, "abcdef", 3));
    EXPECT_EQ(ReadText(Registry(), "Software\\Product", "Name"), "abc");
    EXPECT_FALSE(Registry().SetValue(*key, "Name", RegistryType::String, "ab", 9));
    EXPECT_EQ(ReadText(Registry(), "Software\\Product", "Name"), "abc");
}

TEST_P(RegistryContract, KeepsAnEmptyValueApartFromNone)
{
    EXPECT_TRUE(WriteText(Registry(), "Software\\Product", "Name", ""));
    EXPECT_EQ(ReadText(Registry(), "Software\\Product", "Name"), "");
}

TEST_P(RegistryContract, LeavesTheRestOfABufferAlone)
{
    EXPECT_TRUE(WriteText(Registry(), "Software\\Product", "Name", "abc"));
    const auto key = Registry().OpenKey(kUser, "Software\\Product");
    ASSERT_TRUE(key);
    std::string wide = "......", narrow = "..";
    EXPECT_TRUE(Registry().QueryValue(*key, "Name", wide));
    EXPECT_EQ(wide, "abc...");
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

} // namespace
} // namespace sm::store
