// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/RegistryOverFacts.h"

#include "doubles/MemoryRegistry.h"
#include "doubles/RegistryAccess.h"
#include "doubles/RegistryNames.h"

#include <gtest/gtest.h>

namespace sm::store {
namespace {

constexpr const char* kOwn = "Software\\Maker\\Product";
constexpr const char* kHost = "Software\\Host";

class OverFacts : public testing::Test {
protected:
    OverFacts()
    {
        m_facts.SetText(kMachine, kOwn, "Version", "1.2.3");
        m_facts.SetText(kUser, kOwn, "Size", "12");
        m_facts.SetText(kUser, kHost, "CurVer", "R16.0");
    }
    RegistryOverFacts Registry() { return {m_below, "Software\\Maker", m_facts}; }

    MemoryRegistry m_below;
    ValueTable m_facts;
};

TEST_F(OverFacts, ReadsWhatTheUserStoredBeforeTheFacts)
{
    auto registry = Registry();
    EXPECT_EQ(ReadText(registry, kOwn, "Size"), "12");
    EXPECT_TRUE(WriteText(registry, kOwn, "Size", "14"));
    EXPECT_EQ(ReadText(registry, "software\\MAKER\\product", "size"), "14");
    EXPECT_EQ(m_below.Text(kUser, kOwn, "Size"), "14");
    EXPECT_EQ(ReadText(registry, kOwn, "Version", kMachine), "1.2.3");
    EXPECT_EQ(ReadText(registry, kOwn, "Colour"), "(none)");
}

TEST_F(OverFacts, SeesNothingThatOtherProgramsKeep)
{
    m_below.Put(kUser, kHost, "CurVer", "R23.0");
    m_below.Put(kMachine, kOwn, "Version", "9.9.9");
    m_below.Put(kUser, "Software\\Maker2", "Name", "another maker");
    auto registry = Registry();
    EXPECT_EQ(ReadText(registry, kHost, "CurVer"), "R16.0");
    EXPECT_EQ(ReadText(registry, kOwn, "Version", kMachine), "1.2.3");
    EXPECT_FALSE(registry.OpenKey(kUser, "Software\\Maker2"));
}

TEST_F(OverFacts, WritesNothingThatOthersKeep)
{
    auto registry = Registry();
    EXPECT_FALSE(WriteText(registry, kHost, "CurVer", "R17.0"));
    EXPECT_FALSE(WriteText(registry, kOwn, "Version", "2", kMachine));
    EXPECT_FALSE(WriteText(registry, "Software\\Else", "Name", "Value"));
    EXPECT_FALSE(m_below.HasKey(kUser, "Software\\Else"));
    EXPECT_FALSE(m_below.HasKey(kUser, kHost));
    EXPECT_EQ(ReadText(registry, kHost, "CurVer"), "R16.0");
}

TEST_F(OverFacts, ClosesWhatItOpenedBelow)
{
    auto registry = Registry();
    const auto key = registry.CreateKey(kUser, kOwn);
    ASSERT_TRUE(key);
    EXPECT_EQ(m_below.OpenHandles(), 1U);
    EXPECT_TRUE(registry.CloseKey(*key));
    EXPECT_EQ(m_below.OpenHandles(), 0U);
    EXPECT_FALSE(registry.CloseKey(*key));
    EXPECT_FALSE(registry.QueryInfo(*key, "Size"));
}

} // namespace
} // namespace sm::store
