// SPDX-License-Identifier: GPL-3.0-or-later
// Annotation scales: what an annotative entity looks like in a viewport, line types of the model tab.
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

namespace sm::render {
namespace {

constexpr const char* kScales =
    "0 SCALE | 5 E1 | 300 1:10 | 140 1 | 141 10 | 0 SCALE | 5 E2 | 300 1:20 | 140 1 | 141 20 |"
    "0 SCALE | 5 E3 | 300 1:50 | 140 1 | 141 50 | 0 SCALE | 5 E4 | 300 1:10_old | 140 2 | 141 20 |";

/// Entity D0's forms for 1:10, its own, and for 1:20.
std::string Forms(const std::string& kind, const std::string& own, const std::string& other)
{
    const std::string name = "ACDB_" + kind + "OBJECTCONTEXTDATA_CLASS";
    return "0 DICTIONARY | 5 C | 330 0 | 0 DICTIONARY | 5 D1 | 330 D0 | 3 AcDbContextDataManager | 360 D2 |"
           "0 DICTIONARY | 5 D2 | 330 D1 | 3 ACDB_ANNOTATIONSCALES | 360 D3 |"
           "0 DICTIONARY | 5 D3 | 330 D2 | 3 *A1 | 360 D4 | 3 *A2 | 360 D5 |"
           "0 " +
           name + " | 5 D4 | 330 D3 | 290 1 | 340 E1 |" + own + "| 0 " + name + " | 5 D5 | 330 D3 | 290 0 | 340 E2 |" +
           other + "|";
}

constexpr const char* kExtension = "5 D0 | 102 {ACAD_XDICTIONARY | 360 D1 | 102 } | 100 AcDbEntity | 8 0 |";

struct AnnotationRow {
    const char* name;
    std::string entity, forms;
    const char* scale; ///< of the viewport
    Lines lines;
};

class AnnotativeTest : public testing::TestWithParam<AnnotationRow> {};

TEST_P(AnnotativeTest, LooksAsTheViewportAsks)
{
    SmallDrawing drawing;
    drawing.blocks =
        "0 BLOCK | 8 0 | 2 B | 70 0 | 10 0 | 20 0 | 30 0 | 0 LINE | 8 0 | 10 0 | 20 0 | 11 1 | 21 0 | 0 ENDBLK";
    drawing.objects = GetParam().forms + kScales +
                      "0 DICTIONARY | 5 F2 | 330 F1 | 3 ASDK_XREC_ANNOTATION_SCALE_INFO | 360 "
                      "F3 | 0 XRECORD | 5 F3 | 330 F2 | 100 AcDbXrecord | 280 1 | 90 1 | 340 " +
                      GetParam().scale;
    drawing.entities =
        GetParam().entity +
        "| 0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 100 | 41 100 | 68 1 | 69 1 | 12 50 | 22 50 | 45 100 |"
        "0 VIEWPORT | 5 F1 | 102 {ACAD_XDICTIONARY | 360 F2 | 102 } | 100 AcDbEntity | 8 0 | 67 1 | 10 50 | "
        "20 50 | 40 60 | 41 40 | 68 2 | 69 2 | 12 105 | 22 105 | 45 20";
    SmallScene look;
    look.paper = true;
    Lines lines = LinesOf(drawing, look);
    if (!lines.empty()) { // the viewport's clip and its pop
        lines = Lines(lines.begin() + 1, lines.end() - 1);
    }
    EXPECT_EQ(lines, GetParam().lines);
}

const std::string kScaledText = std::string("0 TEXT |") + kExtension + "10 100 | 20 100 | 40 1 | 1 A";
const std::string kTextForms =
    Forms("TEXT", "70 0 | 50 0 | 10 100 | 20 100 | 11 0 | 21 0", "70 0 | 50 90 | 10 102 | 20 104 | 11 0 | 21 0");
const std::string kMText = std::string("0 MTEXT |") + kExtension + "10 100 | 20 100 | 40 1 | 1 A";
const std::string kInsert = std::string("0 INSERT |") + kExtension + "2 B | 10 100 | 20 100 | 41 1 | 42 1 | 43 1";

const std::string kLeader =
    std::string("0 LEADER |") + kExtension + "71 0 | 76 2 | 10 100 | 20 100 | 30 0 | 10 102 | 20 100 | 30 0";

/// The variable that says whether entities show at scales they don't have.
std::string ShowAll(const std::string& value)
{
    return "0 DICTIONARY | 5 61 | 330 C | 3 ANNOALLVISIBLE | 350 62 | 0 DICTIONARYVAR | 5 62 | 330 61 | 280 0 | 1 " +
           value + "|";
}

const AnnotationRow kAnnotationRows[] = {
    {"TextAtItsOwnScale", kScaledText, kTextForms, "E1", {"text 000000 [2 0 0 2 40 40] A"}},
    {"TextAtAnotherScale", kScaledText, kTextForms, "E2", {"text 000000 [0 4 -4 0 44 48] A"}},
    {"TextWithoutTheScaleIsLeftOut", kScaledText, kTextForms, "E3", {}},
    {"TextWithoutTheScaleKeepsItsFormWhereAllAreShown",
     kScaledText,
     kTextForms + ShowAll("1"),
     "E3",
     {"text 000000 [2 0 0 2 40 40] A"}},
    {"TextWithoutTheScaleIsLeftOutWhereTheDrawingSaysSo", kScaledText, kTextForms + ShowAll("0"), "E3", {}},
    {"AScaleOfTheSameRatioIsTheSame", kScaledText, kTextForms, "E4", {"text 000000 [2 0 0 2 40 40] A"}},
    {"LeaderWithoutTheScaleIsLeftOut", kLeader, Forms("LEADER", "70 1", "70 1"), "E3", {}},
    {"LeaderAtAScaleThatItHas", kLeader, Forms("LEADER", "70 1", "70 1"), "E2", {"stroke 000000 0.25 m 40 40 l 44 40"}},
    {"ParagraphAtAnotherScale",
     kMText,
     Forms("MTEXT", "70 1 | 10 1 | 20 0 | 30 0 | 11 100 | 21 100 | 31 0 | 40 5",
           "70 1 | 10 1 | 20 0 | 30 0 | 11 103 | 21 104 | 31 0 | 40 5"),
     "E2",
     {"text 000000 [4 0 0 4 46 48] A"}},
    {"BlockAtAnotherScale",
     kInsert,
     Forms("BLKREF", "50 0 | 10 100 | 20 100 | 30 0 | 41 1 | 42 1 | 43 1",
           "50 0 | 10 101 | 20 102 | 30 0 | 41 2 | 42 2 | 43 2"),
     "E2",
     {"stroke 000000 0.25 m 42 44 l 46 44"}},
};

INSTANTIATE_TEST_SUITE_P(Scales, AnnotativeTest, testing::ValuesIn(kAnnotationRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Annotative, WhatLacksAViewportsScaleIsTold)
{
    for (const bool says : {false, true}) {
        SmallDrawing drawing;
        drawing.objects = kTextForms + (says ? ShowAll("0") : "") + kScales +
                          "0 DICTIONARY | 5 F2 | 330 F1 | 3 ASDK_XREC_ANNOTATION_SCALE_INFO | 360 F3 |"
                          "0 XRECORD | 5 F3 | 330 F2 | 100 AcDbXrecord | 280 1 | 90 1 | 340 E3";
        drawing.entities =
            kScaledText +
            "| 0 VIEWPORT | 8 0 | 67 1 | 10 50 | 20 50 | 40 100 | 41 100 | 68 1 | 69 1 | 12 50 | 22 50 | 45 100 |"
            "0 VIEWPORT | 5 F1 | 102 {ACAD_XDICTIONARY | 360 F2 | 102 } | 100 AcDbEntity | 8 0 | 67 1 | 10 50 | "
            "20 50 | 40 60 | 41 40 | 68 2 | 69 2 | 12 105 | 22 105 | 45 20";
        SmallScene look;
        look.paper = true;
        const Lines told{"an annotative object left out of a viewport whose scale it doesn't have 1"};
        EXPECT_EQ(Render(drawing, look).remarks, says ? Lines{} : told);
    }
}

struct ModelRow {
    const char* name;
    const char* showAll;
    Lines lines;
};

class ModelAnnotationTest : public testing::TestWithParam<ModelRow> {};

TEST_P(ModelAnnotationTest, LooksAsItsScaleAsks)
{
    SmallDrawing drawing;
    drawing.entities = kScaledText + "| 0 TEXT | 8 0 | 10 1 | 20 2 | 40 1 | 1 B";
    drawing.objects =
        kTextForms + kScales +
        "0 DICTIONARY | 5 61 | 330 C | 3 ANNOALLVISIBLE | 350 62 | 3 CANNOSCALE | 350 63 |"
        "0 DICTIONARYVAR | 5 63 | 330 61 | 280 0 | 1 1:50 | 0 DICTIONARYVAR | 5 62 | 330 61 | 280 0 | 1 " +
        GetParam().showAll;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

const ModelRow kModelRows[] = {
    {"All", "1", {"text 000000 [1 0 0 1 100 100] A", "text 000000 [1 0 0 1 1 2] B"}},
    {"OfItsScale", "0", {"text 000000 [1 0 0 1 1 2] B"}},
};

INSTANTIATE_TEST_SUITE_P(Switch, ModelAnnotationTest, testing::ValuesIn(kModelRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct LinetypeRow {
    const char* name;
    const char* follows; ///< MSLTSCALE
    Lines lines;
};

class ModelLinetypesTest : public testing::TestWithParam<LinetypeRow> {};

TEST_P(ModelLinetypesTest, FollowTheAnnotationScale)
{
    SmallDrawing drawing;
    drawing.linetypes = "0 LTYPE | 2 DASHED | 70 0 | 3 d | 72 65 | 73 2 | 40 0.5 | 49 0.3 | 74 0 | 49 -0.2 | 74 0";
    drawing.entities = "0 LINE | 8 0 | 6 DASHED | 10 0 | 20 0 | 11 8 | 21 0";
    drawing.objects = std::string(kScales) +
                      "0 DICTIONARY | 5 C | 330 0 | 0 DICTIONARY | 5 61 | 330 C | 3 CANNOSCALE | 350 "
                      "62 | 3 MSLTSCALE | 350 63 | 0 DICTIONARYVAR | 5 62 | 330 61 | 280 0 | 1 1:10 |"
                      "0 DICTIONARYVAR | 5 63 | 330 61 | 280 0 | 1 " +
                      GetParam().follows;
    EXPECT_EQ(LinesOf(drawing), GetParam().lines);
}

const LinetypeRow kLinetypeRows[] = {
    {"On", "1", {"stroke 000000 0.25 m 0 0 l 3 0 m 5 0 l 8 0"}}, // ten times as long
    {"Off",
     "0",
     {"stroke 000000 0.25 m 0 0 l 0.15 0 m 0.35 0 l 0.65 0 m 0.85 0 l 1.15 0 m 1.35 0 l 1.65 0 m 1.85 0 l 2.15 0 m "
      "2.35 "
      "0 l 2.65 0 m 2.85 0 l 3.15 0 m 3.35 0 l 3.65 0 m 3.85 0 l 4.15 0 m 4.35 0 l 4.65 0 m 4.85 0 l 5.15 0 m 5.35 0 l "
      "5.65 0 m 5.85 0 l 6.15 0 m 6.35 0 l 6.65 0 m 6.85 0 l 7.15 0 m 7.35 0 l 7.65 0 m 7.85 0 l 8 0"}},
};

INSTANTIATE_TEST_SUITE_P(Switch, ModelLinetypesTest, testing::ValuesIn(kLinetypeRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace sm::render
