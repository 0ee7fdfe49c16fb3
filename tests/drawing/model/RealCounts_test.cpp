// SPDX-License-Identifier: GPL-3.0-or-later
// Hyperlinks and attributes of the shared drawings against the numbers that another scanner found (MANIFEST.md beside
// them). Without the drawings there is nothing to test.
#include "drawing/DxfText.h"
#include "drawing/EntityKinds.h"
#include "drawing/SharedDrawings.h"
#include "drawing/entities/Hyperlinks.h"
#include "drawing/entities/Inserts.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

namespace sm::drawing::testing {
namespace {

namespace fs = std::filesystem;

struct Counts {
    std::size_t attributes = 0, links = 0;
    friend bool operator==(const Counts&, const Counts&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Counts& counts)
    {
        return out << counts.attributes << " attributes, " << counts.links << " entities with links";
    }
};

Counts CountsOf(const Drawing& drawing)
{
    Counts counts;
    InsertData insert;
    std::vector<Hyperlink> links;
    for (std::uint32_t block = 0; block < drawing.Blocks().size(); ++block) {
        for (const EntityRecord& record : drawing.EntitiesOf(block)) {
            ReadHyperlinks(drawing, record, links);
            counts.links += links.empty() ? 0 : 1;
            if (record.kind != EntityKind::Insert)
                continue;
            Read(drawing, record, insert);
            counts.attributes += insert.attributes.size();
        }
    }
    return counts;
}

std::vector<std::string> CellsOf(const std::string& line)
{
    std::vector<std::string> cells;
    std::size_t at = line.find('|');
    for (std::size_t next; at != std::string::npos && (next = line.find('|', at + 1)) != std::string::npos; at = next) {
        const std::string cell = line.substr(at + 1, next - at - 1);
        const auto first = cell.find_first_not_of(' '), last = cell.find_last_not_of(' ');
        cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
    }
    return cells;
}

/// The DXF files of the list with their numbers; columns "attribs" and "url".
std::map<fs::path, Counts> Listed()
{
    constexpr std::size_t kName = 0, kAttributes = 8, kLinks = 9;
    std::map<fs::path, Counts> listed;
    std::ifstream list(SharedDrawings() / "MANIFEST.md");
    fs::path folder;
    for (std::string line; std::getline(list, line);) {
        if (line.starts_with("## "))
            folder = SharedDrawings() / line.substr(3);
        const std::vector<std::string> cells = CellsOf(line);
        if (cells.size() <= kLinks || !cells[kName].ends_with(".dxf"))
            continue;
        char* end = nullptr;
        const Counts counts{std::strtoul(cells[kAttributes].c_str(), &end, 10),
                            std::strtoul(cells[kLinks].c_str(), &end, 10)};
        if (fs::exists(folder / cells[kName]))
            listed[folder / cells[kName]] = counts;
    }
    return listed;
}

TEST(RealCounts, OfAttributesAndLinksAreThoseOfAnotherScanner)
{
    const auto listed = Listed();
    if (listed.empty())
        GTEST_SKIP() << "no shared drawings";
    for (const auto& [path, counts] : listed) {
        SCOPED_TRACE(path.string());
        const Counts found = CountsOf(*Drawing::Open(path.string()));
        EXPECT_EQ(found, counts);
        std::printf("%-46.46s %5zu attributes %3zu links\n", path.filename().string().c_str(), found.attributes,
                    found.links);
    }
}

} // namespace
} // namespace sm::drawing::testing
