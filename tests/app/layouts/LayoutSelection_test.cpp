// SPDX-License-Identifier: GPL-3.0-or-later
#include "layouts/LayoutNames.h"
#include "layouts/LayoutSelection.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

const cadhost::LayoutOutline kModel{"Model", true, true, true, false};
const cadhost::LayoutOutline kModelOfDisplay{"Model", true, true, true, true};
const cadhost::LayoutOutline kModelWithoutPaper{"Model", true, true, false, false};
const cadhost::LayoutOutline kFull1{"Sheet 1", false, true, true, false};
const cadhost::LayoutOutline kFull2{"Sheet 2", false, true, true, false};
const cadhost::LayoutOutline kEmpty{"Layout1", false, false, true, false};

struct LayoutSelectionRow {
    const char* name;
    ConvertOptions options;
    std::vector<cadhost::LayoutOutline> layouts;
    LayoutSelection selection;
};

ConvertOptions Choose(LayoutChoice choice)
{
    ConvertOptions options;
    options.layouts = choice;
    return options;
}

ConvertOptions Named(std::vector<std::string> names)
{
    ConvertOptions options;
    options.layoutNames = std::move(names);
    return options;
}

ConvertOptions WithSource(ConvertOptions options, std::int32_t source)
{
    options.pageSetupSource = source;
    return options;
}

ConvertOptions AsSet(ConvertOptions options)
{
    options.asSet = true;
    return options;
}

const LayoutSelectionRow kLayoutSelectionRows[] = {
    {"AutoTakesAllThatHoldSomething", {}, {kModel, kFull1, kFull2}, {{}, {}, 1, {}, ""}},
    {"AutoLeavesEmptyOnesOut", {}, {kModel, kEmpty, kFull2}, {{}, {"Sheet 2"}, 1, {}, ""}},
    {"AutoFallsBackToTheModel", {}, {kModel, kEmpty}, {"Model", {}, 0, {}, ""}},
    {"AutoModelOfDisplayIsGlobal", {}, {kModelOfDisplay, kEmpty}, {"Model", {}, 0, 2, ""}},
    {"AutoModelWithoutPaperIsGlobal", {}, {kModelWithoutPaper}, {"Model", {}, 0, 2, ""}},
    {"AutoModelKeepsTheGivenSource", WithSource({}, 0), {kModelOfDisplay}, {"Model", {}, 0, 0, ""}},
    {"AutoPaperKeepsTheGivenSource", WithSource({}, 1), {kModel, kFull1}, {{}, {}, 1, 1, ""}},
    {"All", Choose(LayoutChoice::All), {kModel, kEmpty, kFull2}, {{}, {}, 1, {}, ""}},
    {"Active", Choose(LayoutChoice::Active), {kModel, kFull1}, {{}, {}, 0, {}, ""}},
    {"Model", Choose(LayoutChoice::Model), {kModel, kFull1}, {"Model", {}, 0, {}, ""}},
    {"ModelOfDisplayIsGlobal", Choose(LayoutChoice::Model), {kModelOfDisplay, kFull1}, {"Model", {}, 0, 2, ""}},
    {"ModelKeepsTheGivenSource",
     WithSource(Choose(LayoutChoice::Model), 0),
     {kModelOfDisplay},
     {"Model", {}, 0, 0, ""}},
    {"ByName", Named({"sheet 2"}), {kModel, kFull1, kFull2}, {"Sheet 2", {}, 0, {}, ""}},
    {"ByWrongName",
     Named({"Shet 2"}),
     {kModel, kFull1, kFull2},
     {{}, {}, {}, {}, "has no layout \"Shet 2\"; did you mean \"Sheet 2\"?"}},
    {"ByUnknownName",
     Named({"Roof plan"}),
     {kModel, kFull1},
     {{}, {}, {}, {}, "has no layout \"Roof plan\"; it has \"Model\", \"Sheet 1\""}},
    {"TwoNames", Named({"Sheet 2", "sheet 1"}), {kModel, kFull1, kFull2}, {{}, {"Sheet 1", "Sheet 2"}, 1, {}, ""}},
    {"Pattern", Named({"sheet ?"}), {kModel, kFull1, kEmpty, kFull2}, {{}, {"Sheet 1", "Sheet 2"}, 1, {}, ""}},
    {"PatternOfOne", Named({"*2"}), {kModel, kFull1, kFull2}, {"Sheet 2", {}, 0, {}, ""}},
    {"PatternsMeanSheets", Named({"*"}), {kModel, kFull1}, {"Sheet 1", {}, 0, {}, ""}},
    {"PatternOfNone",
     Named({"A*"}),
     {kModel, kFull1},
     {{}, {}, {}, {}, "has no layout \"A*\"; it has \"Model\", \"Sheet 1\""}},
    {"Range", Named({"Sheet 1..Layout1"}), {kModel, kFull1, kEmpty, kFull2}, {{}, {"Sheet 1", "Layout1"}, 1, {}, ""}},
    {"RangeBackwards", Named({"3..2"}), {kModel, kFull1, kEmpty, kFull2}, {{}, {"Layout1", "Sheet 2"}, 1, {}, ""}},
    {"Number", Named({"2"}), {kFull1, kModel, kFull2}, {"Sheet 2", {}, 0, {}, ""}},
    {"NumberTooLarge",
     Named({"3"}),
     {kModel, kFull1, kFull2},
     {{}, {}, {}, {}, "has no layout \"3\"; it has \"Model\", \"Sheet 1\", \"Sheet 2\""}},
    {"RangeWithoutEnd",
     Named({"1..9"}),
     {kModel, kFull1},
     {{}, {}, {}, {}, "has no layout \"1..9\"; it has \"Model\", \"Sheet 1\""}},
    {"ModelBesideSheets",
     Named({"Model", "Sheet 1"}),
     {kModel, kFull1},
     {{}, {}, {}, {}, "can't give \"Model\" beside its sheets; convert that layout by itself"}},
    {"AsSetTakesTheSettings", AsSet({}), {kModel, kFull1}, {{}, {}, {}, {}, ""}},
    {"AsSetWithAnOption", AsSet(Choose(LayoutChoice::All)), {kModel, kFull1}, {{}, {}, 1, {}, ""}},
    {"NoModel", Choose(LayoutChoice::Model), {kFull1}, {{}, {}, 0, {}, "has no model layout"}},
};

TEST(LayoutSelection, FollowsTheOptionsAndTheDrawing)
{
    for (const LayoutSelectionRow& row : kLayoutSelectionRows) {
        const LayoutSelection selection = SelectLayouts(row.options, row.layouts);
        EXPECT_EQ(selection.activeLayout, row.selection.activeLayout) << row.name;
        EXPECT_EQ(selection.onlyLayouts, row.selection.onlyLayouts) << row.name;
        EXPECT_EQ(selection.whatToPlot, row.selection.whatToPlot) << row.name;
        EXPECT_EQ(selection.pageSetupSource, row.selection.pageSetupSource) << row.name;
        EXPECT_EQ(selection.error, row.selection.error) << row.name;
    }
}

TEST(LayoutNames, FitPatterns)
{
    struct Fit {
        const char* name;
        const char* pattern;
        bool fits;
    };
    const Fit rows[] = {
        {"A-101", "A-*", true},     {"A-101", "a-1?1", true},  {"A-101", "A-1", false}, {"A-101", "*1", true},
        {"A-101", "*0*", true},     {"A-101", "*2*", false},   {"", "*", true},         {"", "?", false},
        {"ПЛАН 1", "план ?", true}, {"Größe", "gr??e", true},  {"aab", "*ab", true},    {"A-101", "A-101?", false},
        {"A-101", "**", true},      {"abcabd", "a*abd", true},
    };
    for (const Fit& row : rows)
        EXPECT_EQ(FitsPattern(row.name, row.pattern), row.fits) << row.name << " " << row.pattern;
}

} // namespace
} // namespace sm::app
