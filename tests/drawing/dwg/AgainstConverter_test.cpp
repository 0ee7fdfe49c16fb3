// SPDX-License-Identifier: GPL-3.0-or-later
// DWGs that have no DXF twin: whatever a DWG converter finds in a space is found natively too. The folder is named by
// the environment variable SM_SHARED_DRAWINGS, or lies beside the source tree; without it, or without the converter,
// this test is skipped.
#include "drawing/Drawing.h"
#include "drawing/DwgConverter.h"
#include "drawing/SharedDrawings.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iomanip>
#include <iostream>
#include <map>

namespace sm::drawing {

namespace {

namespace fs = std::filesystem;

bool IsSingle(const fs::path& path)
{
    const fs::path extension = path.extension();
    const std::string folder = path.parent_path().filename().string();
    return (extension == ".dwg" || extension == ".dwt") && path.string().find("twins") == std::string::npos &&
           folder != "broken";
}

/// R9 and later.
bool IsReadNatively(const fs::path& path)
{
    std::string magic(6, ' ');
    std::ifstream(path, std::ios::binary).read(magic.data(), static_cast<std::streamsize>(magic.size()));
    return magic >= "AC1004" && magic < "AC2";
}

DwgOptions Converter()
{
    const std::string folder = (fs::path(SM_SOURCE_DIR) / "share" / "sheetmaker-pdf" / "dwg").string();
    DwgOptions options;
    options.converter = "node";
    options.scriptFolder = folder;
    options.packageFolders = {folder};
    return options;
}

/// Kinds and their counts by space: that of each layout, and all other blocks together.
using Counts = std::map<std::string, std::map<std::string, std::size_t>>;

Counts Count(const Drawing& drawing)
{
    std::map<std::uint32_t, std::string> spaces;
    for (const Layout& layout : drawing.Layouts())
        spaces.emplace(layout.block, "layout " + layout.name);
    Counts counts;
    for (std::uint32_t i = 0; i < drawing.Blocks().size(); ++i)
        for (const EntityRecord& record : drawing.EntitiesOf(i))
            ++counts[spaces.contains(i) ? spaces.at(i) : "blocks"][std::string(drawing.EntityName(record))];
    return counts;
}

std::size_t CountOf(const Counts& counts, const std::string& space, const std::string& kind)
{
    const auto kinds = counts.find(space);
    if (kinds == counts.end() || !kinds->second.contains(kind))
        return 0;
    return kinds->second.at(kind);
}

std::size_t Total(const Counts& counts)
{
    std::size_t total = 0;
    for (const auto& [space, kinds] : counts)
        for (const auto& [kind, count] : kinds)
            total += count;
    return total;
}

void Compare(const fs::path& path)
{
    const std::string file = path.filename().string();
    const Counts native = Count(*Drawing::Open(path.string()));
    const Counts converted = Count(*Drawing::Open(path.string(), Converter()));
    std::cout << file << ": " << Total(native) << " entities, the converter " << Total(converted) << '\n';
    for (const auto& [space, kinds] : native)
        for (const auto& [kind, count] : kinds)
            if (const std::size_t other = CountOf(converted, space, kind); other < count)
                std::cout << "  " << std::left << std::setw(18) << space << std::setw(20) << kind << count
                          << ", the converter " << other << '\n';
    for (const auto& [space, kinds] : converted)
        for (const auto& [kind, count] : kinds)
            EXPECT_GE(CountOf(native, space, kind), count) << file << ", " << space << ", " << kind;
}

TEST(AgainstConverter, NoSpaceHasFewerEntitiesOfAKind)
{
    if (!fs::exists(SharedDrawings()))
        GTEST_SKIP() << "no shared drawings";
    if (!ExamineDwgConverter(Converter()).ready)
        GTEST_SKIP() << "no DWG converter is installed";
    for (const auto& entry : fs::recursive_directory_iterator(SharedDrawings()))
        if (IsSingle(entry.path()) && IsReadNatively(entry.path()))
            Compare(entry.path());
}

} // namespace

} // namespace sm::drawing
