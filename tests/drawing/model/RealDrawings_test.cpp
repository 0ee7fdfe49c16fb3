// SPDX-License-Identifier: GPL-3.0-or-later
// Drawings that people made with many programs. They are not part of this tree: the folder is named by the environment
// variable SM_SHARED_DRAWINGS, or lies beside the source tree; without it these tests are skipped.
#include "drawing/DxfText.h"
#include "drawing/EntityKinds.h"
#include "drawing/SharedDrawings.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/Hatches.h"
#include "drawing/entities/Hyperlinks.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/Polylines.h"
#include "drawing/entities/Texts.h"
#include "drawing/entities/Viewports.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

namespace sm::drawing::testing {
namespace {

namespace fs = std::filesystem;

/// "name: entities/viewports/attributes" of each layout, then the entities of all other blocks.
std::string Summary(const Drawing& drawing)
{
    std::string text;
    InsertData insert;
    std::uint64_t inLayouts = 0;
    for (const Layout& layout : drawing.Layouts()) {
        const auto records = drawing.EntitiesOf(layout.block);
        std::size_t viewports = 0, attributes = 0;
        for (const EntityRecord& record : records) {
            viewports += record.kind == EntityKind::Viewport;
            if (record.kind == EntityKind::Insert) {
                Read(drawing, record, insert);
                attributes += insert.attributes.size();
            }
        }
        inLayouts += records.size();
        text += layout.name + ": " + std::to_string(records.size()) + "/" + std::to_string(viewports) + "/" +
                std::to_string(attributes) + "; ";
    }
    return text + "blocks: " + std::to_string(drawing.EntityCount() - inLayouts);
}

struct RealRow {
    const char* path;
    const char* summary;
};

class RealDrawings : public ::testing::TestWithParam<RealRow> {};

TEST_P(RealDrawings, HoldWhatAnotherReaderFindsInThem)
{
    const fs::path path = SharedDrawings() / GetParam().path;
    if (!fs::exists(path))
        GTEST_SKIP() << "no shared drawings";
    EXPECT_EQ(Summary(*Drawing::Open(path.string())), GetParam().summary);
}

INSTANTIATE_TEST_SUITE_P(
    Files, RealDrawings,
    ::testing::Values(
        RealRow{"broken/recover01.dxf", "Model: 1504/0/0; Layout1: 0/0/0; blocks: 0"},
        RealRow{"broken/recover02.dxf", "Model: 95/0/0; ISO A4 Size: 2/2/0; Letter Size: 2/2/0; blocks: 0"},
        RealRow{"converted/Building_A_Floor_0_Mapwize.dwg2dxf.dxf",
                "Model: 245/0/92; Layout1: 1/1/0; Layout2: 2/2/0; blocks: 1147"},
        RealRow{"entities/uncommon.dxf", "Model: 82/0/1; Layout1: 2/2/0; Layout2: 0/0/0; blocks: 242"},
        RealRow{"entities/ocs2wcs1.dxf", "Model: 52/0/0; Layout1: 2/2/0; blocks: 0"},
        RealRow{"large/Hummingboard.2 WITH Connectors_rev.1.dxf", "Model: 20208/0/0; Layout1: 0/0/0; blocks: 203"},
        RealRow{"large/draft1.dxf", "Model: 713/0/0; Layout1: 1/1/0; blocks: 11055"},
        RealRow{"large/unsupported_entities_convert_to_polylines.dxf",
                "Model: 5290/0/2; Layout1: 0/0/0; Layout2: 0/0/0; blocks: 350"},
        RealRow{"layouts/VP4.dxf", "Model: 6/0/0; Layout1: 21/5/0; Layout2: 0/0/0; blocks: 0"},
        RealRow{"layouts/acadsharp/sample_AC1032_ascii.dxf",
                "Model: 157/0/4; Layout1: 2/2/0; Layout2: 2/2/0; MyLayout: 2/2/0; blocks: 172"},
        RealRow{"layouts/api-cw750-details.dxf",
                "Model: 1372/0/43; Sheet 1: 12/3/9; Sheet 2: 6/2/15; Sheet 3: 7/3/15; Sheet 4: 12/4/9; blocks: 3091"},
        RealRow{"layouts/flange.dxf", "Model: 223/0/0; Layout: 6/4/0; Layout2: 2/2/0; blocks: 188"},
        RealRow{"layouts/floorplan.dxf", "Model: 967/0/0; Layout1: 3/3/0; blocks: 2678"},
        RealRow{"layouts/testHatch.dxf", "Model: 1/0/0; Presentació: 0/0/0; blocks: 4"},
        RealRow{"layouts/tray-easy1.dxf", "Model: 0/0/0; Sheet2: 470/1/0; blocks: 2702"},
        RealRow{"layouts/viewport_frozen_layers.dxf", "Model: 4/0/0; Layout1: 7/4/0; blocks: 0"},
        RealRow{"layouts/viewports.dxf", "Model: 17/0/0; Layout1: 19/12/0; blocks: 4"},
        RealRow{"legacy/Turbocad_12.5.dxf", "Model: 11/0/84; Layout1: 0/0/0; blocks: 80"},
        RealRow{"legacy/AC1003_LINE_Example.dxf", "Model: 22/0/0; Layout1: 0/0/0; blocks: 0"},
        RealRow{"legacy/bin_dxf_r13.dxf", "Model: 3/0/0; Layout1: 0/0/0; blocks: 0"},
        RealRow{"legacy/sample_AC1009_binary.dxf", "Model: 151/0/4; Layout1: 2/2/0; blocks: 2235"},
        RealRow{"text/arc_ansi932.dxf", "Model: 1/0/0; レイアウト1: 0/0/0; レイアウト2: 0/0/0; blocks: 0"},
        RealRow{"text/em.dxf", "Model: 312/0/0; Layout1: 0/0/0; Layout2: 0/0/0; blocks: 111"}));

/// Reads every entity in every way, as a plot would.
void ReadAll(const Drawing& drawing)
{
    Entity entity;
    PolylineData polyline;
    HatchData hatch;
    TextData text;
    MTextData lines;
    SplineData spline;
    ViewportData viewport;
    InsertData insert;
    std::vector<Hyperlink> links;
    for (std::uint32_t block = 0; block < drawing.Blocks().size(); ++block) {
        for (const EntityRecord& record : drawing.EntitiesOf(block)) {
            Read(drawing, record, entity);
            Read(drawing, record, polyline);
            Read(drawing, record, hatch);
            Read(drawing, record, text);
            Read(drawing, record, lines);
            Read(drawing, record, spline);
            Read(drawing, record, viewport);
            Read(drawing, record, insert);
            ReadHyperlinks(drawing, record, links);
            EXPECT_LT(drawing.RecordIndex(record), drawing.EntityCount());
        }
    }
}

TEST(RealDrawings, AllOpenOrSayWhyNotInOneLine)
{
    if (!fs::exists(SharedDrawings()))
        GTEST_SKIP() << "no shared drawings";
    for (const auto& entry : fs::recursive_directory_iterator(SharedDrawings())) {
        const std::string path = entry.path().string();
        const std::string kind = entry.path().extension().string();
        if (kind != ".dxf" && kind != ".dwg" && kind != ".dwt")
            continue;
        try {
            ReadAll(*Drawing::Open(path));
        } catch (const DrawingError& error) {
            const std::string line = error.what();
            EXPECT_NE(kind, ".dxf") << line;
            EXPECT_TRUE(line.starts_with(path + ": ")) << line;
            EXPECT_EQ(line.find('\n'), std::string::npos) << line;
        }
    }
}

struct LinkRow {
    const char* path;
    std::vector<std::string> links;
};

class RealLinks : public ::testing::TestWithParam<LinkRow> {};

TEST_P(RealLinks, AreFound)
{
    const fs::path path = SharedDrawings() / GetParam().path;
    if (!fs::exists(path))
        GTEST_SKIP() << "no shared drawings";
    const auto drawing = Drawing::Open(path.string());
    std::vector<std::string> found;
    std::vector<Hyperlink> links;
    for (const EntityRecord& record : ModelEntities(*drawing)) {
        ReadHyperlinks(*drawing, record, links);
        for (const Hyperlink& link : links)
            found.push_back(link.url + "|" + link.description + "|" + link.subLocation);
    }
    EXPECT_EQ(found, GetParam().links);
}

INSTANTIATE_TEST_SUITE_P(Files, RealLinks,
                         ::testing::Values(LinkRow{"hyperlinks/bin_dxf_r2000.dxf", {"http://ezdxf.mozman.at||"}},
                                           LinkRow{"hyperlinks/grid.dxf",
                                                   {"http://www.adobe.com/|http://www.adobe.com/|", "|#stay|stay",
                                                    "|#stay|stay", "|#stay|stay", "|some text|stay"}}));

} // namespace
} // namespace sm::drawing::testing
