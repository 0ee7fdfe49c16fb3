// SPDX-License-Identifier: GPL-3.0-or-later
// Drawings shown in place of blocks: layers, base points, units, nesting, circles.
#include "render/PictureFiles.h"
#include "render/SmallDrawing.h"

#include "drawing/Finding.h"
#include "render/References.h"

#include <gtest/gtest.h>

namespace sm::render {
namespace {

/// A block for another drawing; `flags` 4, or 12 for an overlay.
std::string Xref(const std::string& name, const std::string& path, int flags = 4)
{
    return "0 BLOCK | 8 0 | 2 " + name + " | 70 " + std::to_string(flags) + " | 10 0 | 20 0 | 3 " + name + " | 1 " +
           path + " | 0 ENDBLK | 8 0 |";
}

std::string Insert(const std::string& name, const std::string& more = "10 10 | 20 20")
{
    return "0 INSERT | 8 Site | 2 " + name + " | " + more + " |";
}

constexpr const char* kWall = "0 LINE | 8 Walls | 10 1 | 20 1 | 11 3 | 21 1 |";
constexpr const char* kZeroLine = "0 LINE | 8 0 | 10 1 | 20 1 | 11 3 | 21 1 |";

class XrefsTest : public testing::Test {
protected:
    /// Writes a drawing whose layer Walls is red.
    void HaveXref(const std::string& name, const std::string& entities, const std::string& header = "",
                  const std::string& blocks = "")
    {
        std::string text = Tags("0 SECTION | 2 HEADER | 9 $ACADVER | 1 AC1015 |" + header + "| 0 ENDSEC");
        text += Tags("0 SECTION | 2 TABLES | 0 TABLE | 2 LAYER | 0 LAYER | 2 0 | 70 0 | 62 7 | 6 Continuous |"
                     "0 LAYER | 2 Walls | 70 0 | 62 1 | 6 Continuous | 0 ENDTAB | 0 ENDSEC");
        text += Tags("0 SECTION | 2 BLOCKS |" + blocks + "| 0 ENDSEC");
        text += Tags("0 SECTION | 2 ENTITIES |" + entities + "| 0 ENDSEC | 0 EOF");
        folder.Write(name, text);
    }

    void Show(const SmallDrawing& small)
    {
        const auto drawing = small.Open();
        References references(*drawing, {{folder.Path()}, nullptr, {}});
        Scene scene{*drawing, SpaceOf(*drawing, false), {}, {}, {{0, 0}, {100, 100}}};
        scene.references = &references;
        RecordingCanvas canvas(true);
        FakeTextEngine text;
        RenderReport report(*drawing);
        RenderScene(scene, canvas, text, report);
        lines.assign(canvas.lines.begin() + 1, canvas.lines.end() - 1);
        std::erase(lines, "end");
        counts = CountsOf(report);
        for (const drawing::Finding& finding : references.Findings()) {
            findings.push_back((finding.contentLost ? "lost: " : "") + finding.text);
        }
        for (const References::XrefReport& xref : references.Xrefs()) {
            xrefs.push_back(xref.prefix + ": " + CountsOf(*xref.report));
        }
        extents = ExtentsOf(*drawing, SpaceOf(*drawing, false), {}, text, &references);
    }

    PictureFolder folder;
    Lines lines;
    std::string counts;
    std::vector<std::string> findings, xrefs;
    Box2 extents;
};

TEST_F(XrefsTest, AreSeenAsTheDrawingThatShowsThemWantsIt)
{
    HaveXref("survey.dxf",
             "0 POINT | 8 0 | 10 1 | 20 1 | 0 SOLID | 8 0 | 10 1 | 20 1 | 11 5 | 21 1 | 12 1 | 22 5 | 13 5 | 23 5",
             "9 $PDMODE | 70 3 | 9 $PDSIZE | 40 4 | 9 $FILLMODE | 70 1");
    SmallDrawing host;
    host.header = "9 $PDMODE | 70 34 | 9 $PDSIZE | 40 2 | 9 $FILLMODE | 70 0";
    host.blocks = Xref("SURVEY", "survey.dxf");
    host.entities = Insert("SURVEY", "5 2A | 10 10 | 20 20");
    Show(host);
    EXPECT_EQ(lines, (Lines{"begin 2a POINT 0",
                            "stroke 000000 0.25 m 9 21 l 13 21 m 11 19 l 11 23 m 12 21 c 12 21.552 11.552 22 11 22 c "
                            "10.448 22 10 21.552 10 21 c 10 20.448 10.448 20 11 20 c 11.552 20 12 20.448 12 21 h",
                            "begin 2a SOLID 0", "stroke 000000 0.25 box 11 21 15 25"}));
}

TEST_F(XrefsTest, AreDrawnInPlaceOfTheirBlocks)
{
    HaveXref("plans/House.dxf", kWall);
    SmallDrawing host;
    host.blocks = Xref("HOUSE", "C:\\jobs\\plans\\house.dxf");
    host.entities = Insert("HOUSE", "5 2A | 10 10 | 20 20 | 50 90");
    Show(host);
    EXPECT_EQ(lines, (Lines{"begin 2a LINE HOUSE|Walls", "stroke FF0000 0.25 m 9 21 l 9 23"}));
    EXPECT_EQ(counts, "drawn 1");
    EXPECT_EQ(xrefs, std::vector<std::string>{"HOUSE: drawn 1"});
    EXPECT_EQ(findings, std::vector<std::string>());
    EXPECT_NEAR(extents.min.y, 21, 1e-9);
    EXPECT_NEAR(extents.max.y, 23, 1e-9);
}

TEST_F(XrefsTest, LayersAreShownAsTheHostHasThem)
{
    HaveXref("house.dxf", std::string(kWall) + kZeroLine);
    SmallDrawing host;
    host.blocks = Xref("HOUSE", "house.dxf");
    host.entities = Insert("HOUSE");
    host.layers =
        "0 LAYER | 2 house~walls | 70 0 | 62 3 | 6 Continuous | 0 LAYER | 2 Site | 70 0 | 62 5 | 6 Continuous";
    Show(host);
    EXPECT_EQ(lines, (Lines{"begin 0 LINE house|walls by 1", "stroke 00FF00 0.25 m 11 21 l 13 21",
                            "begin 0 LINE Site by 2", "stroke 0000FF 0.25 m 11 21 l 13 21"}));
    host.layers =
        "0 LAYER | 2 HOUSE~Walls | 70 1 | 62 3 | 6 Continuous | 0 LAYER | 2 Site | 70 0 | 62 5 | 6 Continuous";
    Show(host);
    EXPECT_EQ(lines, (Lines{"begin 0 LINE Site by 2", "stroke 0000FF 0.25 m 11 21 l 13 21"}));
}

TEST_F(XrefsTest, BasePointAndUnitsCount)
{
    HaveXref("house.dxf", kZeroLine, "9 $INSBASE | 10 1 | 20 1 | 30 0 | 9 $INSUNITS | 70 5");
    const struct {
        const char *name, *header, *insert, *stroke;
    } rows[] = {
        {"no units", "", "10 10 | 20 20", "stroke 000000 0.25 m 10 20 l 12 20"},
        {"centimetres in millimetres", "9 $INSUNITS | 70 4", "10 10 | 20 20", "stroke 000000 0.25 m 10 20 l 30 20"},
        {"a scale that holds the factor already", "9 $INSUNITS | 70 4", "10 10 | 20 20 | 41 5 | 42 5",
         "stroke 000000 0.25 m 10 20 l 20 20"},
    };
    for (const auto& row : rows) {
        SmallDrawing host;
        host.header = row.header;
        host.blocks = Xref("HOUSE", "house.dxf");
        host.entities = Insert("HOUSE", row.insert);
        Show(host);
        ASSERT_EQ(lines.size(), 2U) << row.name;
        EXPECT_EQ(lines[1], row.stroke) << row.name;
    }
}

TEST_F(XrefsTest, NestWhereAttachedAndNotWhereOverlaid)
{
    HaveXref("inner.dxf", kWall);
    HaveXref("outer.dxf", Insert("ATTACHED", "10 1 | 20 0") + Insert("OVERLAID", "10 50 | 20 50"), "",
             Xref("ATTACHED", "inner.dxf") + Xref("OVERLAID", "inner.dxf", 12));
    SmallDrawing host;
    host.blocks = Xref("OUTER", "outer.dxf", 12);
    host.entities = Insert("OUTER", "5 7 | 10 10 | 20 20");
    Show(host);
    EXPECT_EQ(lines, (Lines{"begin 7 LINE ATTACHED|Walls", "stroke FF0000 0.25 m 12 21 l 14 21"}));
    EXPECT_EQ(xrefs, (std::vector<std::string>{"OUTER: drawn 1 hidden 1", "OUTER|ATTACHED: drawn 1"}));
    EXPECT_EQ(findings, std::vector<std::string>());
}

TEST_F(XrefsTest, CirclesAreCutAndMissingOnesNamedOnce)
{
    HaveXref("ping.dxf", std::string(kWall) + Insert("PONG"), "", Xref("PONG", "pong.dxf"));
    HaveXref("pong.dxf", Insert("PING"), "", Xref("PING", "ping.dxf"));
    folder.Write("text.dxf", "This is no drawing.");
    SmallDrawing host;
    host.blocks = Xref("PING", "ping.dxf") + Xref("GONE", "gone.dwg") + Xref("TEXT", "text.dxf");
    host.entities = Insert("PING") + Insert("GONE") + Insert("GONE") + Insert("TEXT");
    Show(host);
    EXPECT_EQ(lines, (Lines{"begin 0 LINE PING|Walls", "stroke FF0000 0.25 m 11 21 l 13 21"}));
    EXPECT_EQ(counts, "drawn 1 not drawn 3");
    ASSERT_EQ(findings.size(), 3U);
    EXPECT_EQ(findings[0], "lost: the drawing \"gone.dwg\" is not found; put it beside the drawing");
    EXPECT_EQ(findings[1].substr(0, 44), "lost: the drawing \"text.dxf\" can't be read: ");
    EXPECT_EQ(findings[2], "the drawing \"ping.dxf\" refers back to itself; it is shown once");
}

} // namespace
} // namespace sm::render
