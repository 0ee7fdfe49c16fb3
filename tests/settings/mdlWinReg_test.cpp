// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/mdlWinReg.h"

#include "doubles/RegistryNames.h"
#include "doubles/SettingsStand.h"

namespace sm {
namespace {

class RegistrySettings : public SettingsStand {};

TEST_F(RegistrySettings, ReadsTextAndNothingElse)
{
    registry.Put(kUser, "Some\\Key", "Text", "words");
    registry.PutBytes(kUser, "Some\\Key", "Number", RegistryType::DWord, std::string("\1\0\0\0", 4));
    registry.PutBytes(kUser, "Some\\Key", "Expand", RegistryType::ExpandString, "%PATH%");
    registry.PutBytes(kUser, "Some\\Key", "Bytes", RegistryType::Binary, "abc");
    registry.PutBytes(kUser, "Some\\Key", "Empty", RegistryType::String, "");

    EXPECT_EQ(RegReadString(registry, kUser, "Some\\Key", "Text"), "words");
    EXPECT_EQ(RegReadString(registry, kUser, "SOME\\key", "TEXT"), "words");
    EXPECT_EQ(RegReadString(registry, kUser, "Some\\Key", "Empty"), "");
    EXPECT_EQ(RegReadString(registry, kUser, "Some\\Key", "Number"), std::nullopt);
    EXPECT_EQ(RegReadString(registry, kUser, "Some\\Key", "Expand"), std::nullopt);
    EXPECT_EQ(RegReadString(registry, kUser, "Some\\Key", "Bytes"), std::nullopt);
    EXPECT_EQ(RegReadString(registry, kUser, "Some\\Key", "Missing"), std::nullopt);
    EXPECT_EQ(RegReadString(registry, kUser, "Other", "Text"), std::nullopt);
    EXPECT_EQ(RegReadString(registry, kMachine, "Some\\Key", "Text"), std::nullopt);
}

TEST_F(RegistrySettings, CutsAReadTextAtItsFirstNul)
{
    registry.PutBytes(kUser, "Key", "Cut", RegistryType::String, std::string("one\0two\0", 8));
    registry.PutBytes(kUser, "Key", "Unended", RegistryType::String, "one two");
    registry.PutBytes(kUser, "Key", "Nul", RegistryType::String, std::string("\0two", 4));
    EXPECT_EQ(RegReadString(registry, kUser, "Key", "Cut"), "one");
    EXPECT_EQ(RegReadString(registry, kUser, "Key", "Unended"), "one two");
    EXPECT_EQ(RegReadString(registry, kUser, "Key", "Nul"), "");
}

TEST_F(RegistrySettings, LeavesTheKeyOpenThatItReadsFrom)
{
    registry.Put(kUser, "Key", "Text", "words");
    RegReadString(registry, kUser, "Key", "Text");
    RegReadString(registry, kUser, "Key", "Missing");
    EXPECT_EQ(registry.OpenHandles(), 2u);
    RegReadString(registry, kUser, "No such key", "Text");
    EXPECT_EQ(registry.OpenHandles(), 2u);
}

TEST_F(RegistrySettings, WritesTextWithoutANulAndClosesTheKey)
{
    RegWriteString(registry, kUser, "New\\Key", "Text", "words");
    const MemoryRegistry::Value* value = registry.Find(kUser, "New\\Key", "Text");
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->type, RegistryType::String);
    EXPECT_EQ(value->bytes, "words");
    EXPECT_EQ(registry.OpenHandles(), 0u);
}

TEST_F(RegistrySettings, CountsTheBytesOfTheEncodedText)
{
    registry.codePage = {{"\xC3\xBC", "\xFC"}}; // u with two dots: two bytes in UTF-8, one in the code page
    RegWriteString(registry, kUser, "Key", "Text", "M\xC3\xBCller");
    ASSERT_NE(registry.Find(kUser, "Key", "Text"), nullptr);
    EXPECT_EQ(registry.Find(kUser, "Key", "Text")->bytes, "M\xFCller");
    EXPECT_EQ(RegReadString(registry, kUser, "Key", "Text"), "M\xC3\xBCller");
}

TEST_F(RegistrySettings, AFailedWriteIsLost)
{
    FailingRegistry failing(registry);
    for (const int call : {1, 2, 3}) { // create, set, close
        failing.faults = {FaultPlan::Mode::Once, call};
        EXPECT_EQ(RegWriteString(failing, kUser, "Key", "Text" + std::to_string(call), "words"), call == 3);
        EXPECT_EQ(failing.faults.injected, 1);
    }
    EXPECT_EQ(registry.Text(kUser, "Key", "Text1"), "(absent)");
    EXPECT_EQ(registry.Text(kUser, "Key", "Text2"), "(absent)");
    EXPECT_EQ(registry.Text(kUser, "Key", "Text3"), "words");
}

TEST_F(RegistrySettings, TheObserverHearsOfASettingThatWasLost)
{
    WriteSetting(surroundings, "DeletePs", false);
    EXPECT_EQ(observer.carriedPast, std::vector<std::string>());
    failingRegistry.faults = {FaultPlan::Mode::Onwards, 1};
    WriteSetting(surroundings, "DeletePs", true);
    WriteReleaseSetting(surroundings, "16", "Profile", "mine");
    EXPECT_EQ(observer.carriedPast,
              (std::vector<std::string>{"WriteSetting: the setting DeletePs could not be stored",
                                        "WriteReleaseSetting: the setting Profile could not be stored"}));
    EXPECT_EQ(registry.Text(kUser, kKey, "DeletePs"), "0");
}

TEST_F(RegistrySettings, ReadsByTypeCode)
{
    const struct {
        const char* name;
        const char* stored;
        std::int32_t typeCode;
        AcadVariant expected;
    } rows[] = {
        {"text", "words", 0, std::string("words")},
        {"text that is a number", "12", 0, std::string("12")},
        {"text isn't trimmed", " x ", 0, std::string(" x ")},
        {"unknown code", "12", 3, std::string("12")},
        {"negative code", "12", -1, std::string("12")},
        {"Boolean 1", "1", 1, true},
        {"Boolean 0", "0", 1, false},
        {"Boolean 2", "2", 1, true},
        {"Boolean -1", "-1", 1, true},
        {"Boolean below a half is tested before rounding", "0.4", 1, true},
        {"Boolean word", "abc", 1, false},
        {"Boolean True", "True", 1, false},
        {"integer", "1", 2, std::int32_t(1)},
        {"integer 1.9", "1.9", 2, std::int32_t(2)},
        {"integer 2.5", "2.5", 2, std::int32_t(2)},
        {"integer 3.5", "3.5", 2, std::int32_t(4)},
        {"integer word", "Graphics [600 dpi]", 2, std::int32_t(0)},
        {"integer with words", "600 dpi", 2, std::int32_t(600)},
        {"integer too large", "99999999999", 2, std::int32_t(2147483647)},
    };
    for (const auto& row : rows) {
        registry.Put(kUser, kKey, "Value", row.stored);
        EXPECT_EQ(ReadSetting(surroundings, "Value", std::string("default"), row.typeCode), row.expected) << row.name;
    }
}

TEST_F(RegistrySettings, GivesTheDefaultUnchangedWhenAbsentOrEmpty)
{
    registry.Put(kUser, kKey, "Empty", "");
    registry.PutBytes(kUser, kKey, "Number", RegistryType::DWord, std::string("\1\0\0\0", 4));
    for (const char* name : {"Missing", "Empty", "Number"}) {
        EXPECT_EQ(ReadSetting(surroundings, name, 12.5, 2), AcadVariant(12.5)) << name;
        EXPECT_EQ(ReadSetting(surroundings, name, std::string("x"), 1), AcadVariant(std::string("x"))) << name;
        EXPECT_TRUE(ReadBooleanSetting(surroundings, SwitchSetting(name, SettingUse::Answer, true))) << name;
        EXPECT_FALSE(ReadBooleanSetting(surroundings, SwitchSetting(name, SettingUse::Answer, false))) << name;
        EXPECT_EQ(ReadIntegerSetting(surroundings, WholeSetting(name, SettingUse::Answer, 7, 9)), 7) << name;
        EXPECT_EQ(ReadIntegerSetting(surroundings, SwitchSetting(name, SettingUse::Answer, true)), 1) << name;
        EXPECT_EQ(ReadTextSetting(surroundings, TextSetting(name, SettingUse::Answer, "default")), "default") << name;
        EXPECT_EQ(ReadTextSetting(surroundings, SwitchSetting(name, SettingUse::Answer, true)), "1") << name;
    }
}

TEST_F(RegistrySettings, PromptForFileNameReadsFalseAsZeroAndTrueAsEmpty)
{
    registry.Put(kUser, kKey, "PromptForFileName", "0");
    EXPECT_FALSE(ReadBooleanSetting(surroundings, SettingNamed("PromptForFileName")));
    registry.Put(kUser, kKey, "PromptForFileName", "");
    EXPECT_TRUE(ReadBooleanSetting(surroundings, SettingNamed("PromptForFileName")));
}

TEST_F(RegistrySettings, WritesEveryKindAsText)
{
    const struct {
        const char* name;
        AcadVariant value;
        const char* expected;
    } rows[] = {
        {"true", true, "1"},
        {"false", false, "0"},
        {"integer", std::int32_t(7), "7"},
        {"double", 8.5, "8,5"},
        {"text as it is", std::string(" words "), " words "},
        {"empty text", std::string(), ""},
    };
    locale.decimalSeparator = ',';
    for (const auto& row : rows) {
        WriteSetting(surroundings, "Value", row.value);
        EXPECT_EQ(registry.Text(kUser, kKey, "Value"), row.expected) << row.name;
        EXPECT_EQ(registry.Find(kUser, kKey, "Value")->type, RegistryType::String) << row.name;
    }
}

TEST_F(RegistrySettings, ANumberWrittenUnderACommaLocaleLosesItsFraction)
{
    locale.decimalSeparator = ',';
    WriteSetting(surroundings, "PaperWidth", 279.4);
    EXPECT_EQ(registry.Text(kUser, kKey, "PaperWidth"), "279,4");
    EXPECT_EQ(ReadSetting(surroundings, "PaperWidth", std::int32_t(0), kSettingInteger), AcadVariant(279));
}

TEST_F(RegistrySettings, ReadsTheFactsOfTheInstallationMachineWide)
{
    EXPECT_EQ(HelpFilePath(surroundings), "");
    EXPECT_EQ(SettingsFolderPath(surroundings), "");
    EXPECT_EQ(ProductVersion(surroundings), "");
    registry.Put(kUser, kKey, "HelpFile", "wrong root");
    registry.Put(kMachine, kKey, "HelpFile", "C:\\Tarnwick\\acadsmpdf.hlp");
    registry.Put(kMachine, kKey, "SettingsFolder", "C:\\Tarnwick\\Settings");
    registry.Put(kMachine, "Software\\Tarnwick Software\\Sheetmaker PDF", "Version", "2.1");
    EXPECT_EQ(HelpFilePath(surroundings), "C:\\Tarnwick\\acadsmpdf.hlp");
    EXPECT_EQ(SettingsFolderPath(surroundings), "C:\\Tarnwick\\Settings");
    EXPECT_EQ(ProductVersion(surroundings), "2.1");
}

} // namespace
} // namespace sm
