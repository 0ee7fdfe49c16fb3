// SPDX-License-Identifier: GPL-3.0-or-later
// Entities that are decoded when they are asked for, in real drawings. Their folder is named by SM_SHARED_DRAWINGS, or
// lies beside the source tree; without it these tests are skipped.
#include "drawing/Drawing.h"
#include "drawing/EntityKinds.h"
#include "drawing/SharedDrawings.h"
#include "drawing/entities/Curves.h"
#include "dwg/read/ObjectIndex.h"
#include "dxf/DxfDrawing.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <thread>

namespace sm::drawing::dwg::testing {
namespace {

namespace fs = std::filesystem;

/// A drawing of R2000 or of R2018; empty when the folder isn't there.
std::string LateSample(const std::string& release)
{
    std::ifstream stream(SharedDrawings() / "twins" / "acadsharp" / ("sample_" + release + ".dwg"), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The first object of that type with its fields overwritten by what no writer stores.
Handle Spoil(std::string& file, std::uint32_t type, std::size_t at, std::size_t count)
{
    FindingList findings;
    const Container container = Container::Open(file, "plan.dwg", findings);
    ObjectIndex index(container, ReadClasses(container), findings);
    const auto object = std::ranges::find(index.All(), type, &IndexedObject::type);
    const Handle handle = object->handle;
    file.replace(object->offset + at, count, count, '\xFF');
    return handle;
}

std::uint32_t TypeOf(const std::string& file, std::string_view className)
{
    FindingList findings;
    const Container container = Container::Open(file, "plan.dwg", findings);
    const std::vector<ObjectClass> classes = ReadClasses(container);
    return std::ranges::find(classes, className, &ObjectClass::name)->number;
}

constexpr std::uint32_t kLine = 19;

TEST(LateEntities, ThatAreDamagedAreInvisibleAndToldWhenTheyAreRead)
{
    std::string file = LateSample("AC1015");
    if (file.empty())
        GTEST_SKIP() << "no drawings";
    const Handle handle = Spoil(file, kLine, 20, 12);
    const auto drawing = OpenDwgBytes(file, "plan.dwg");
    EXPECT_TRUE(drawing->Findings().empty());
    const EntityRecord* const record = drawing->FindEntity(handle);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->kind, EntityKind::Line);
    EXPECT_TRUE(drawing->Findings().empty()) << "its handle is known without reading it";
    LineData line;
    for (int i = 0; i < 2; ++i) {
        Read(*drawing, *record, line);
        EXPECT_TRUE(line.invisible);
        EXPECT_EQ(line.start.x, 0);
        ASSERT_EQ(drawing->Findings().size(), 1U);
        EXPECT_EQ(drawing->Findings().front().code, 811);
        EXPECT_EQ(drawing->Findings().front().count, 1U);
        EXPECT_TRUE(drawing->Findings().front().contentLost);
    }
}

TEST(LateObjects, ThatAreDamagedHaveNoTagsAndAreToldWhenTheyAreRead)
{
    std::string file = LateSample("AC1015");
    if (file.empty())
        GTEST_SKIP() << "no drawings";
    const Handle handle = Spoil(file, TypeOf(file, "SCALE"), 12, 6);
    const auto drawing = OpenDwgBytes(file, "plan.dwg");
    const NamedSlice* const scale = drawing->Tags().FindObject(handle);
    ASSERT_NE(scale, nullptr);
    EXPECT_EQ(scale->name, "SCALE");
    EXPECT_TRUE(drawing->Findings().empty());
    EXPECT_FALSE(drawing->Tags().TagsOf(scale->slice).Next());
    ASSERT_EQ(drawing->Findings().size(), 1U);
    EXPECT_EQ(drawing->Findings().front().code, 812);
    EXPECT_EQ(drawing->Findings().front().count, 1U);
}

/// A number from what all entities have in common.
std::uint64_t SumOf(const Drawing& drawing)
{
    std::uint64_t sum = 0;
    Entity entity;
    for (std::uint32_t block = 0; block < drawing.Blocks().size(); ++block)
        for (const EntityRecord& record : drawing.EntitiesOf(block)) {
            Read(drawing, record, entity);
            sum = sum * 31 + entity.handle + entity.layer + entity.linetype;
        }
    return sum;
}

TEST(LateEntities, MayBeAskedForByManyThreads)
{
    for (const char* const release : {"AC1015", "AC1032"}) {
        const std::string file = LateSample(release);
        if (file.empty())
            GTEST_SKIP() << "no drawings";
        const std::uint64_t expected = SumOf(*OpenDwgBytes(file, "plan.dwg"));
        const auto drawing = OpenDwgBytes(file, "plan.dwg");
        std::array<std::uint64_t, 4> read{};
        std::vector<std::thread> threads;
        for (std::uint64_t& one : read)
            threads.emplace_back([&] { one = SumOf(*drawing); });
        for (std::thread& thread : threads)
            thread.join();
        for (const std::uint64_t one : read)
            EXPECT_EQ(one, expected) << release;
    }
}

} // namespace
} // namespace sm::drawing::dwg::testing
