// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/Drawing.h"
#include "drawing/Told.h"
#include "drawing/dwg/DwgFiles.h"
#include "dwg/recovery/ObjectSearch.h"

#include <functional>
#include <gmock/gmock.h>

namespace sm::drawing::dwg::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

const std::vector<std::size_t> kObjectSizes{20, 300, 29600, 50, 70, 4000};

/// Handles whose objects are found, and what is told.
struct Found {
    std::vector<std::uint64_t> handles;
    std::vector<std::string> told;
};

Found Open(const std::string& bytes)
{
    FindingList findings;
    const Container container = Container::Open(bytes, "plan.dwg", findings);
    Found found;
    for (const ObjectPlace& place : ProvenPlaces(container, 0, findings))
        found.handles.push_back(place.handle);
    found.told = Told(findings);
    return found;
}

void Overwrite(std::string& bytes, std::uint64_t at, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        bytes[at + i] = static_cast<char>(~bytes[at + i]);
}

struct SectionRow {
    const char* name;
    std::function<void(SectionFile&)> damage;
    std::vector<std::uint64_t> handles;
    std::vector<std::string> told;
};

class DamagedSections : public ::testing::TestWithParam<SectionRow> {};

TEST_P(DamagedSections, GiveTheirObjects)
{
    SectionFile file = FileOf2000(kObjectSizes, 0);
    GetParam().damage(file);
    const Found found = Open(file.bytes);
    EXPECT_THAT(found.handles, ElementsAreArray(GetParam().handles));
    EXPECT_THAT(found.told, ElementsAreArray(GetParam().told));
}

const std::vector<std::uint64_t> kAll{1, 2, 3, 4, 5, 6};

INSTANTIATE_TEST_SUITE_P(
    Rows, DamagedSections,
    ::testing::Values(
        SectionRow{"Intact", [](SectionFile&) {}, kAll, {}},
        SectionRow{"MapZeroed",
                   [](SectionFile& file) { file.bytes.replace(file.map, file.mapSize, file.mapSize, '\0'); },
                   kAll,
                   {"804 x 1"}},
        SectionRow{"MapChecksumWrong",
                   [](SectionFile& file) { Overwrite(file.bytes, file.map + file.mapSize - 5, 1); },
                   kAll,
                   {"801 x 1", "804 x 1"}},
        SectionRow{
            "MapPlaceWrong", [](SectionFile& file) { file.bytes[file.map + 7] ^= 1; }, kAll, {"801 x 1", "804 x 1"}},
        SectionRow{
            "CountOfSectionsLies", [](SectionFile& file) { file.bytes[0x18] = 1; }, kAll, {"807 x 1", "804 x 1"}},
        SectionRow{"HeaderVariablesChecksumWrong",
                   [](SectionFile& file) { file.bytes[file.header + 22] ^= 1; },
                   kAll,
                   {"801 x 1"}},
        SectionRow{
            "SentinelsGone", [](SectionFile& file) { Overwrite(file.bytes, file.header, 1); }, kAll, {"805 x 1"}},
        SectionRow{"AnObjectOverwritten",
                   [](SectionFile& file) { Overwrite(file.bytes, file.places[3].offset, 10); },
                   {1, 2, 3, 5, 6},
                   {"804 x 1", "808 x 1"}},
        SectionRow{"SizeOfAnObjectLies",
                   [](SectionFile& file) { file.bytes.replace(file.places[1].offset, 2, "\xFF\x7F"); },
                   {1, 2, 3, 4, 5, 6},
                   {}},
        SectionRow{"CutOffBeforeTheMap", [](SectionFile& file) { file.bytes.resize(file.map); }, kAll, {"804 x 1"}},
        SectionRow{"CutOffInTheObjects",
                   [](SectionFile& file) { file.bytes.resize(file.places[5].offset + 100); },
                   {1, 2, 3, 4, 5},
                   {"804 x 1"}}),
    [](const auto& row) { return row.param.name; });

struct PageRow {
    const char* name;
    std::function<void(PagedFile&)> damage;
    std::vector<std::uint64_t> handles;
    std::vector<std::string> told;
};

class DamagedPages : public ::testing::TestWithParam<PageRow> {};

constexpr const char* kObjectsName = "AcDb:AcDbObjects";

TEST_P(DamagedPages, GiveTheirObjects)
{
    PagedFile file = PagesOf(SectionsOf(LinesOf2018(kObjectSizes), true));
    GetParam().damage(file);
    const Found found = Open(file.bytes);
    EXPECT_THAT(found.handles, ElementsAreArray(GetParam().handles));
    EXPECT_THAT(found.told, ElementsAreArray(GetParam().told));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DamagedPages,
    ::testing::Values(
        PageRow{"Intact", [](PagedFile&) {}, kAll, {}},
        PageRow{"HeadOverwritten", [](PagedFile& file) { Overwrite(file.bytes, 0x80, 0x6C); }, kAll, {"807 x 1"}},
        PageRow{
            "PageMapOverwritten", [](PagedFile& file) { Overwrite(file.bytes, file.pageMap, 4); }, kAll, {"807 x 1"}},
        PageRow{"SectionMapOverwritten",
                [](PagedFile& file) { Overwrite(file.bytes, file.sectionMap, 4); },
                kAll,
                {"807 x 1"}},
        PageRow{"TablesCutOff", [](PagedFile& file) { file.bytes.resize(file.sectionMap); }, kAll, {"807 x 1"}},
        PageRow{"MapPageGone",
                [](PagedFile& file) { Overwrite(file.bytes, file.pages["AcDb:Handles"][0], 4); },
                kAll,
                {"802 x 1", "804 x 1"}},
        PageRow{"SecondObjectsPageGone",
                [](PagedFile& file) { Overwrite(file.bytes, file.pages[kObjectsName][1], 4); },
                {1, 2, 3},
                {"802 x 1", "804 x 1", "808 x 3"}},
        PageRow{"PageSumWrong",
                [](PagedFile& file) { Overwrite(file.bytes, file.pages[kObjectsName][0] + 600, 1); },
                kAll,
                {"801 x 1"}},
        PageRow{"HeaderPageGone",
                [](PagedFile& file) { Overwrite(file.bytes, file.pages["AcDb:Header"][0], 4); },
                kAll,
                {"802 x 1", "805 x 1"}}),
    [](const auto& row) { return row.param.name; });

/// Opens what is there: an error is one line that names the file.
void OpenAnything(const std::string& bytes)
{
    try {
        (void)Open(bytes);
    } catch (const DrawingError& error) {
        EXPECT_THAT(error.what(), ::testing::StartsWith("plan.dwg: DWG of release "));
    }
}

std::vector<std::string> SmallFiles()
{
    return {FileOf2000({20, 300, 50}, 1).bytes, PagesOf(SectionsOf(LinesOf2018({20, 300, 50}), true)).bytes,
            PagesOf(SectionsOf(LinesOf2018({20, 300, 50}), false), {"AC1018", 96}).bytes,
            CodedFileOf(SectionsOf(LinesOf2000({20, 300, 50}, 0), false))};
}

TEST(Damage, CutAtEveryByteIsSurvived)
{
    for (const std::string& file : SmallFiles())
        for (std::size_t size = 6; size < file.size(); ++size)
            OpenAnything(file.substr(0, size));
}

TEST(Damage, EveryByteChangedIsSurvived)
{
    for (std::string file : SmallFiles())
        for (std::size_t at = 6; at < file.size(); ++at)
            for (const unsigned change : {0x01U, 0x80U, 0xFFU}) {
                file[at] = static_cast<char>(static_cast<unsigned char>(file[at]) ^ change);
                OpenAnything(file);
                file[at] = static_cast<char>(static_cast<unsigned char>(file[at]) ^ change);
            }
}

TEST(Damage, SizesThatLieDoNotAllocate)
{
    PagedOptions options;
    options.addedSize = std::uint64_t{1} << 60U;
    const Objects objects = LinesOf2018(kObjectSizes);
    const std::string bytes = PagesOf(SectionsOf(objects, true), options).bytes;
    FindingList findings;
    const Container container = Container::Open(bytes, "plan.dwg", findings);
    EXPECT_EQ(container.Objects().size(), 2U * 0x7400);
    EXPECT_EQ(container.Objects().substr(0, objects.bytes.size()), objects.bytes);
    EXPECT_THAT(Told(findings), ElementsAre());
}

TEST(Damage, AFileOfFalseObjectsIsSearchedInBoundedTime)
{
    // Each byte looks like the start of an object of nearly 32 KB whose checksum is wrong.
    SectionFile file = FileOf2000({20}, 1);
    std::string bytes = file.bytes.substr(0, file.map);
    for (int i = 0; i < 200000; ++i)
        bytes += std::string("\x70\x7F\x44\xC4\xC0\x40\x00\x00\x40\x55", 10);
    FindingList findings;
    const Container container = Container::Open(bytes, "plan.dwg", findings);
    EXPECT_THAT(SearchObjects(container, 0), ElementsAre(ObjectPlace{1, file.places[0].offset}));
}

} // namespace
} // namespace sm::drawing::dwg::testing
