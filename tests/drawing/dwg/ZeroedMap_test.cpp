// SPDX-License-Identifier: GPL-3.0-or-later
// Real drawings without their list of objects. Their folder is named by SM_SHARED_DRAWINGS, or lies beside the source
// tree; without it this test is skipped.
#include "drawing/Drawing.h"
#include "drawing/SharedDrawings.h"
#include "dwg/file/ContainerBuilder.h"
#include "dwg/read/DwgReading.h"
#include "tags/FileKind.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace sm::drawing::dwg::testing {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

struct ObjectCounts {
    std::size_t entities = 0, objects = 0;
    bool told = false; ///< that the list of objects is damaged
};

ObjectCounts ReadWith(const std::string& file, bool zeroed)
{
    FindingList findings;
    const std::string path = "plan.dwg";
    ContainerBuilder builder(file, path, findings);
    const Release release = builder.Facts().release;
    if (release <= Release::R2000)
        OpenSections(builder);
    else if (release == Release::R2007)
        OpenCodedPages(builder);
    else
        OpenPages(builder);
    const std::string zeros(builder.Get(Stream::Map).size(), '\0');
    if (zeroed)
        builder.Put(Stream::Map, zeros);
    const Container container = builder.Finish();
    const DecodedTags tags = DwgReading(container, file.size(), findings).Run();
    const Structure& found = tags.structure;
    return {found.modelEntities.size() + found.paperEntities.size() + found.blockEntities.size(), found.objects.size(),
            findings.Has(Damage::MapDamaged)};
}

TEST(ZeroedMap, LeavesNearlyAllEntitiesOfRealDrawings)
{
    const fs::path folder = SharedDrawings();
    if (!fs::is_directory(folder))
        GTEST_SKIP() << "no drawings in " << folder;
    std::size_t drawings = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".dwg" && entry.path().extension() != ".dwt")
            continue;
        const std::string file = BytesOf(entry.path());
        if (FormOfDwg(file) != DwgForm::Objects)
            continue;
        SCOPED_TRACE(entry.path().filename());
        const ObjectCounts whole = ReadWith(file, false), searched = ReadWith(file, true);
        EXPECT_GE(static_cast<double>(searched.entities), 0.95 * static_cast<double>(whole.entities))
            << searched.entities << " of " << whole.entities;
        EXPECT_GE(static_cast<double>(searched.objects), 0.95 * static_cast<double>(whole.objects))
            << searched.objects << " of " << whole.objects;
        EXPECT_FALSE(whole.told);
        EXPECT_TRUE(searched.told);
        ++drawings;
    }
    EXPECT_GE(drawings, 30U);
}

} // namespace
} // namespace sm::drawing::dwg::testing
