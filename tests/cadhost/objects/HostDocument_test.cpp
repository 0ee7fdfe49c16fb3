// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/HostFixture.h"

namespace sm::cadhost {
namespace {

using ::testing::ElementsAre;

DxfDrawing ThreeSheets()
{
    DxfDrawing drawing;
    drawing.AddSheet("Ground").tabOrder = 5;
    drawing.AddSheet("Roof").tabOrder = 9;
    drawing.AddSheet("Cellar").tabOrder = 2;
    drawing.active = 2;
    return drawing;
}

std::vector<std::string> TabsOf(IAcadDocument& document)
{
    std::vector<std::string> tabs;
    const auto layouts = document.Layouts();
    for (std::int32_t i = 0; i < layouts->Count(); ++i)
        tabs.push_back(std::to_string(layouts->Item(i)->TabOrder()) + " " + layouts->Item(i)->Name());
    return tabs;
}

class HostDocumentTest : public HostTest {};

TEST_F(HostDocumentTest, HasTheFilesNames)
{
    const auto document = Open(ThreeSheets());
    EXPECT_EQ(document->Name(), "plan1.dxf");
    EXPECT_EQ(document->FullName(), (folder / "plan1.dxf").string());
    EXPECT_TRUE(document->Active());
    EXPECT_EQ(document->HWND(), 0);
    document->SetWindowState(2);
    EXPECT_EQ(document->WindowState(), 2);
}

TEST_F(HostDocumentTest, GivesAnAbsolutePathForARelativeOne)
{
    Write("plan.dxf", ThreeSheets().Text());
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    const auto document = host->Open("./plan.dxf");
    std::filesystem::current_path(before);
    EXPECT_EQ(document->FullName(), (folder / "plan.dxf").string());
}

TEST_F(HostDocumentTest, ShowsLayoutsInTabOrderWithModelFirst)
{
    const auto document = Open(ThreeSheets());
    EXPECT_THAT(TabsOf(*document), ElementsAre("0 Model", "1 Cellar", "2 Ground", "3 Roof"));
    EXPECT_EQ(document->Layouts()->Item("roof")->Name(), "Roof");
    EXPECT_TRUE(document->Layouts()->Item(0)->ModelType());
    EXPECT_EQ(document->ActiveLayout()->Name(), "Roof");
}

TEST_F(HostDocumentTest, ShowsTheLayoutsOfTheRunOnly)
{
    DocumentOverlay overlay;
    overlay.layouts = {"roof", "Cellar"};
    overlay.activeLayout = "CELLAR";
    const auto document = Open(ThreeSheets(), overlay);
    EXPECT_THAT(TabsOf(*document), ElementsAre("0 Model", "1 Cellar", "2 Roof"));
    EXPECT_EQ(document->ActiveLayout()->Name(), "Cellar");
    EXPECT_EQ(ErrorOf([&] { document->Layouts()->Item("Ground"); }), "Layouts: there is no layout 'Ground'");
    EXPECT_EQ(ErrorOf([&] { document->Layouts()->Item(3); }), "Layouts: there is no item 3");
}

TEST_F(HostDocumentTest, ActivatesLayoutsAndSpaces)
{
    const auto document = Open(ThreeSheets());
    document->SetActiveLayout(document->Layouts()->Item("Ground"));
    EXPECT_EQ(document->ActiveLayout()->Name(), "Ground");
    document->SetActiveSpace(1);
    EXPECT_EQ(document->ActiveLayout()->Name(), "Model");
    document->SetActiveSpace(0);
    EXPECT_EQ(document->ActiveLayout()->Name(), "Ground");
    EXPECT_EQ(ErrorOf([&] { document->SetActiveSpace(2); }), "ActiveSpace: 2 is neither 0 (paper) nor 1 (model)");
}

TEST_F(HostDocumentTest, LeavesTheModelTabForTheFirstSheetWhenNoneWasActive)
{
    DxfDrawing drawing = ThreeSheets();
    drawing.active = 0;
    const auto document = Open(drawing);
    EXPECT_EQ(document->ActiveLayout()->Name(), "Model");
    document->SetActiveSpace(0);
    EXPECT_EQ(document->ActiveLayout()->Name(), "Cellar");
}

TEST_F(HostDocumentTest, RefusesLayoutsOfOthers)
{
    const auto first = Open(ThreeSheets()), second = Open(ThreeSheets());
    EXPECT_EQ(ErrorOf([&] { first->SetActiveLayout(second->Layouts()->Item("Ground")); }),
              "ActiveLayout: this is no layout of 'plan1.dxf'");
    EXPECT_EQ(ErrorOf([&] { first->SetActiveLayout(nullptr); }), "ActiveLayout: this is no layout of 'plan1.dxf'");
    EXPECT_EQ(first->ActiveLayout()->Name(), "Roof");
}

TEST_F(HostDocumentTest, FindsBlocksAndViewsByName)
{
    DxfDrawing drawing = ThreeSheets();
    drawing.views = ViewTags("Plan", 50, 40, 100, 80);
    const auto document = Open(drawing);
    EXPECT_EQ(document->Blocks()->Item("*MODEL_SPACE")->Name(), "*Model_Space");
    EXPECT_EQ(ErrorOf([&] { document->Blocks()->Item("door"); }), "Blocks: there is no block 'door'");
    EXPECT_EQ(document->Views()->Count(), 1);
    const auto view = document->Views()->Item("plan");
    EXPECT_EQ(view->Name(), "Plan");
    EXPECT_EQ(view->Center(), (AcadPoint{50, 40, 0}));
    EXPECT_EQ(view->Width(), 100);
    EXPECT_EQ(view->Height(), 80);
    EXPECT_EQ(document->Views()->Item(0)->Name(), "Plan");
    EXPECT_EQ(ErrorOf([&] { document->Views()->Item("roof"); }), "Views: there is no view 'roof'");
    EXPECT_EQ(ErrorOf([&] { document->Views()->Item(1); }), "Views: there is no item 1");
}

TEST_F(HostDocumentTest, GivesTheCentreOfAPlanViewInTheWorld)
{
    DxfDrawing drawing = ThreeSheets();
    drawing.views = ViewTags("Moved", 1, 2, 10, 10, Tag(12, 1000) + Tag(22, 2000)) +
                    ViewTags("Twisted", 1, 2, 10, 10, Tag(12, 1000) + Tag(22, 2000) + Tag(50, 30));
    const auto views = Open(drawing)->Views();
    EXPECT_EQ(views->Item("Moved")->Center(), (AcadPoint{1001, 2002, 0}));
    EXPECT_EQ(views->Item("Twisted")->Center(), (AcadPoint{1, 2, 0}));
}

struct VariableRow {
    const char* name;
    AcadVariant expected;
};
class VariableTest : public HostTest, public ::testing::WithParamInterface<VariableRow> {};

TEST_P(VariableTest, IsKnown)
{
    DxfDrawing drawing = ThreeSheets();
    drawing.sheets[1].limits = {0, 0, 420, 297};
    drawing.sheets[1].extents = {1, 2, 30, 40};
    drawing.header = Tag(9, "$MEASUREMENT") + Tag(70, 1);
    EXPECT_EQ(Open(drawing)->GetVariable(GetParam().name), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Variables, VariableTest,
    ::testing::Values(VariableRow{"LOGINNAME", std::string("R. Draughtsman")},
                      VariableRow{"loginname", std::string("R. Draughtsman")},
                      VariableRow{"EXTMIN", AcadPoint{1, 2, 0}}, VariableRow{"EXTMAX", AcadPoint{30, 40, 0}},
                      VariableRow{"LIMMIN", AcadPoint{0, 0, 0}}, VariableRow{"LIMMAX", AcadPoint{420, 297, 0}},
                      VariableRow{"CTAB", std::string("Roof")}, VariableRow{"TILEMODE", std::int32_t{0}},
                      VariableRow{"DWGNAME", std::string("plan1.dxf")}, VariableRow{"MEASUREMENT", std::int32_t{1}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(HostDocumentTest, NamesItsFolderWithTheSeparatorBehind)
{
    EXPECT_EQ(Open(ThreeSheets())->GetVariable("DWGPREFIX"), AcadVariant((folder / "").string()));
}

TEST_F(HostDocumentTest, RefusesUnknownVariables)
{
    const auto document = Open(ThreeSheets());
    EXPECT_EQ(ErrorOf([&] { document->GetVariable("NOSUCH"); }), "GetVariable: there is no system variable 'NOSUCH'");
}

TEST_F(HostDocumentTest, ComputesExtentsWhereTheFileHasNone)
{
    DxfDrawing drawing = ThreeSheets();
    drawing.sheets[1].extents = {1e20, 1e20, -1e20, -1e20};
    drawing.sheets[1].entities = LineTags(5, 6, 70, 80, Tag(67, 1));
    const auto document = Open(drawing);
    EXPECT_EQ(document->GetVariable("EXTMIN"), AcadVariant(AcadPoint{5, 6, 0}));
    EXPECT_EQ(document->GetVariable("EXTMAX"), AcadVariant(AcadPoint{70, 80, 0}));
}

TEST_F(HostDocumentTest, ComputesExtentsWhereTheyArePlotted)
{
    DxfDrawing drawing = ThreeSheets();
    drawing.sheets[1].extents = {-900, -900, 900, 900};
    drawing.sheets[1].entities = LineTags(5, 6, 70, 80, Tag(67, 1));
    const auto document = Open(drawing);
    EXPECT_EQ(document->GetVariable("EXTMIN"), AcadVariant(AcadPoint{-900, -900, 0}));
    document->ActiveLayout()->SetPlotType(1);
    EXPECT_EQ(document->GetVariable("EXTMIN"), AcadVariant(AcadPoint{5, 6, 0}));
}

TEST_F(HostDocumentTest, HasNoExtentsWithoutContents)
{
    const auto document = Open(ThreeSheets());
    EXPECT_EQ(document->GetVariable("EXTMIN"), AcadVariant(AcadPoint{1e20, 1e20, 0}));
    EXPECT_EQ(document->GetVariable("EXTMAX"), AcadVariant(AcadPoint{-1e20, -1e20, 0}));
    document->ActiveLayout()->SetPlotType(1);
    EXPECT_EQ(document->GetVariable("EXTMIN"), AcadVariant(AcadPoint{0, 0, 0}));
    EXPECT_EQ(document->GetVariable("EXTMAX"), AcadVariant(AcadPoint{0, 0, 0}));
}

TEST_F(HostDocumentTest, AssumesLimitsWhereTheFileHasNone)
{
    DxfDrawing drawing = ThreeSheets();
    EXPECT_THAT(Open(drawing)->Limits(), ElementsAre(0, 0, 12, 9));
    drawing.header = Tag(9, "$MEASUREMENT") + Tag(70, 1);
    EXPECT_THAT(Open(drawing)->Limits(), ElementsAre(0, 0, 420, 297));
    drawing.header += Tag(9, "$PLIMMIN") + Tag(10, 1) + Tag(20, 2) + Tag(9, "$PLIMMAX") + Tag(10, 3) + Tag(20, 4);
    EXPECT_THAT(Open(drawing)->Limits(), ElementsAre(1, 2, 3, 4));
}

TEST_F(HostDocumentTest, TranslatesByTheViewUnlessItIsAPlan)
{
    DxfDrawing drawing = ThreeSheets();
    const auto viewport = [](double dx, double dy, double dz, double twist) {
        return Tag(0, "VPORT") + Tag(2, "*Active") + Tag(70, 0) + Tag(10, 0) + Tag(20, 0) + Tag(11, 1) + Tag(21, 1) +
               Tag(12, 0) + Tag(22, 0) + Tag(16, dx) + Tag(26, dy) + Tag(36, dz) + Tag(17, 100) + Tag(27, 0) +
               Tag(37, 0) + Tag(40, 10) + Tag(41, 1) + Tag(51, twist);
    };
    drawing.active = 0;
    drawing.viewport = viewport(0, 0, 1, 0);
    const auto plan = Open(drawing)->Utility();
    EXPECT_EQ(plan->TranslateCoordinates({1, 2, 3}, 0, 2, 0), (AcadPoint{1, 2, 3}));
    EXPECT_EQ(plan->TranslateCoordinates({1, 2, 3}, 0, 0, 0), (AcadPoint{1, 2, 3}));
    drawing.viewport = viewport(0, -1, 0, 0); // from the front: z is up
    const auto front = Open(drawing)->Utility();
    const AcadPoint seen = front->TranslateCoordinates({101, 2, 3}, 0, 2, 0);
    EXPECT_NEAR(seen.x, 1, 1e-12);
    EXPECT_NEAR(seen.y, 3, 1e-12);
    const AcadPoint back = front->TranslateCoordinates(seen, 2, 0, 0);
    EXPECT_NEAR(back.x, 101, 1e-12);
    EXPECT_NEAR(back.y, 2, 1e-12);
    EXPECT_NEAR(back.z, 3, 1e-12);
    const AcadPoint vector = front->TranslateCoordinates({1, 0, 0}, 0, 2, 1);
    EXPECT_NEAR(vector.x, 1, 1e-12);
    EXPECT_EQ(ErrorOf([&] { front->TranslateCoordinates({}, 0, 4, 0); }),
              "TranslateCoordinates: only world (0) and display (2) coordinates are known");
}

TEST_F(HostDocumentTest, HasNoWindowToPickIn)
{
    const auto utility = Open(ThreeSheets())->Utility();
    EXPECT_EQ(ErrorOf([&] { utility->GetPoint("Where?"); }), "there is no window to pick in");
    EXPECT_EQ(ErrorOf([&] { utility->GetCorner({}, "Where?"); }), "there is no window to pick in");
}

} // namespace
} // namespace sm::cadhost
