// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/Drawing.h"
#include "drawing/Told.h"
#include "drawing/dwg/DwgFiles.h"
#include "dwg/file/Container.h"
#include "dwg/file/ObjectMap.h"

#include <gmock/gmock.h>

namespace sm::drawing::dwg::testing {
namespace {

using ::testing::ElementsAre;

std::vector<Place> PlacesOf(const Container& container)
{
    std::vector<Place> places;
    for (const ObjectPlace& place : container.Map())
        places.push_back({place.handle, place.offset});
    return places;
}

MATCHER_P(IsPlace, expected, "")
{
    return arg.handle == expected.handle && arg.offset == expected.offset;
}

std::string OpeningError(const std::string& bytes)
{
    FindingList findings;
    try {
        Container::Open(bytes, "plan.dwg", findings);
    } catch (const DrawingError& error) {
        return error.what();
    }
    return "no error";
}

TEST(ObjectMapChunks, AreReadAsInAFileOfR2000)
{
    // The first pairs of a file: handle 1 at 29398, then one handle and 21 bytes further, and 19 bytes further.
    const std::string pairs("\x01\xD6\xE5\x01\x01\x15\x01\x13", 8);
    const ObjectMap map = ReadObjectMap(std::string("\x00\x0A", 2) + pairs + std::string(2, '\0'), 40000);
    EXPECT_THAT(map.places, ElementsAre(ObjectPlace{1, 29398}, ObjectPlace{2, 29419}, ObjectPlace{3, 29438}));
    EXPECT_FALSE(map.complete);
    EXPECT_FALSE(map.checksumsHold);
}

TEST(ObjectMapChunks, HaveSignedSteps)
{
    // 64, then 63 bytes back, then one byte back.
    const std::string pairs("\x01\xC0\x00\x02\xBF\x40\x01\x41", 8);
    const ObjectMap map = ReadObjectMap(std::string("\x00\x0A", 2) + pairs, 1000);
    EXPECT_THAT(map.places, ElementsAre(ObjectPlace{1, 64}, ObjectPlace{3, 1}, ObjectPlace{4, 0}));
}

TEST(ObjectMapChunks, LeaveOutPlacesBehindTheEnd)
{
    const ObjectMap map = ReadObjectMap(MapOf({{1, 10}, {2, 99}, {3, 100}}), 100);
    EXPECT_THAT(map.places, ElementsAre(ObjectPlace{1, 10}, ObjectPlace{2, 99}));
    EXPECT_FALSE(map.complete);
    EXPECT_TRUE(map.checksumsHold);
}

TEST(Containers, OfR2000AreSectionsOfTheFile)
{
    const SectionFile file = FileOf2000({20, 300, 40000}, 1);
    FindingList findings;
    const Container container = Container::Open(file.bytes, "plan.dwg", findings);
    EXPECT_EQ(container.FileRelease(), Release::R2000);
    EXPECT_EQ(container.Facts().name, "release 2000");
    EXPECT_EQ(container.Facts().codePage, 30);
    EXPECT_EQ(container.Facts().maintenance, 15);
    EXPECT_FALSE(container.HasLongSizes());
    EXPECT_EQ(container.Header().substr(0, 20), Le32(16) + "header variables");
    EXPECT_EQ(container.Classes().substr(0, 11), Le32(7) + "classes");
    EXPECT_EQ(container.Objects(), file.bytes);
    EXPECT_THAT(PlacesOf(container),
                ElementsAre(IsPlace(file.places[0]), IsPlace(file.places[1]), IsPlace(file.places[2])));
    EXPECT_EQ(container.Measurement(), 1);
    EXPECT_FALSE(container.MapDamaged());
    EXPECT_THAT(Told(findings), ElementsAre());
}

struct ContainerCase {
    const char* name;
    const char* magic;
    std::uint32_t pageSize;
    Release release;
    bool longSize;
};

class PagedContainers : public ::testing::TestWithParam<ContainerCase> {};

TEST_P(PagedContainers, GiveTheirStreams)
{
    const ContainerCase& row = GetParam();
    const Objects objects = LinesOf2018({20, 300, 29000, 50});
    const auto sections = SectionsOf(objects, row.longSize);
    const PagedFile file = PagesOf(sections, {row.magic, row.pageSize});
    FindingList findings;
    const Container container = Container::Open(file.bytes, "plan.dwg", findings);
    EXPECT_EQ(container.FileRelease(), row.release);
    EXPECT_EQ(container.HasLongSizes(), row.longSize);
    EXPECT_EQ(container.Header(), std::string_view(sections.at("AcDb:Header")).substr(16));
    EXPECT_EQ(container.Classes(), std::string_view(sections.at("AcDb:Classes")).substr(16));
    EXPECT_EQ(container.Objects(), objects.bytes);
    EXPECT_EQ(container.Map().size(), 4U);
    EXPECT_EQ(container.Map()[3], (ObjectPlace{4, objects.places[3].offset}));
    EXPECT_EQ(container.Measurement(), row.longSize ? std::optional<std::int16_t>(1) : container.Measurement());
    EXPECT_THAT(Told(findings), ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(Releases, PagedContainers,
                         ::testing::Values(ContainerCase{"R2004", "AC1018", 0x7400, Release::R2004, false},
                                           ContainerCase{"R2004SmallPages", "AC1018", 96, Release::R2004, false},
                                           ContainerCase{"R2010", "AC1024", 0x7400, Release::R2010, true},
                                           ContainerCase{"R2013", "AC1027", 0x400, Release::R2013, true},
                                           ContainerCase{"R2018", "AC1032", 0x7400, Release::R2018, true}),
                         [](const auto& row) { return row.param.name; });

TEST(Containers, OfR2007AreCodedPages)
{
    const Objects objects = LinesOf2000({20, 300, 2900, 50}, 0);
    const auto sections = SectionsOf(objects, false);
    const std::string bytes = CodedFileOf(sections);
    FindingList findings;
    const Container container = Container::Open(bytes, "plan.dwg", findings);
    EXPECT_EQ(container.FileRelease(), Release::R2007);
    EXPECT_EQ(container.Header(), std::string_view(sections.at("AcDb:Header")).substr(16));
    EXPECT_EQ(container.Objects(), objects.bytes);
    EXPECT_EQ(container.Map().size(), 4U);
    EXPECT_EQ(container.Measurement(), 1);
    EXPECT_THAT(Told(findings), ElementsAre());
}

TEST(Containers, OfNewerReleasesAreReadAsR2018)
{
    const Objects objects = LinesOf2018({20, 300});
    const PagedFile file = PagesOf(SectionsOf(objects, true), {"AC1035", 0x7400});
    FindingList findings;
    const Container container = Container::Open(file.bytes, "plan.dwg", findings);
    EXPECT_EQ(container.FileRelease(), Release::R2018);
    EXPECT_EQ(container.Facts().name, "an unknown release (AC1035)");
    EXPECT_EQ(container.Objects(), objects.bytes);
    EXPECT_THAT(Told(findings), ElementsAre("803 x 1"));
}

TEST(Containers, UnderAPasswordAreRefused)
{
    PagedOptions options;
    options.encrypted = true;
    EXPECT_EQ(OpeningError(PagesOf(SectionsOf(LinesOf2018({20}), true), options).bytes),
              "plan.dwg: DWG of release 2018: it is encrypted under a password; open it in the CAD program and save it "
              "without one");
    options.magic = "AC1018";
    EXPECT_EQ(OpeningError(PagesOf(SectionsOf(LinesOf2000({20}, 0), false), options).bytes),
              "plan.dwg: DWG of release 2004: it is encrypted under a password; open it in the CAD program and save it "
              "without one");
    EXPECT_EQ(OpeningError(CodedFileOf(SectionsOf(LinesOf2000({20}, 0), false), true)),
              "plan.dwg: DWG of release 2007: it is encrypted under a password; open it in the CAD program and save it "
              "without one");
}

TEST(Containers, ThatEndInTheirHeadAreRefused)
{
    EXPECT_EQ(OpeningError("AC1015 and nothing else"),
              "plan.dwg: DWG of release 2000: the file is cut off in its head; save the drawing again");
    EXPECT_EQ(OpeningError("AC1018" + std::string(200, '\0')),
              "plan.dwg: DWG of release 2004: the file is cut off in its head; save the drawing again");
    EXPECT_EQ(OpeningError("AC1021" + std::string(900, '\0')),
              "plan.dwg: DWG of release 2007: the file is cut off in its head; save the drawing again");
    EXPECT_EQ(OpeningError("AC1032" + std::string(900, '\0')),
              "plan.dwg: DWG of release 2018: its objects are missing; save the drawing again");
}

} // namespace
} // namespace sm::drawing::dwg::testing
