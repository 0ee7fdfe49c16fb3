// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/TestHouse.h"
#include "plotting/mdlAcadPrinting.h"

namespace sm {
namespace {

class LayoutList : public TestHouse {
protected:
    LayoutList() { BeginCall(); }
};

TEST_F(LayoutList, TheActiveLayoutAlone)
{
    EXPECT_EQ(AcadGetPlotLayoutList(context, false), (Lines{"Ground"}));
    drawing->ActiveLayout = model;
    EXPECT_EQ(AcadGetPlotLayoutList(context, false), (Lines{"Model"}));
}

TEST_F(LayoutList, AllPaperLayoutsInTabOrder)
{
    drawing->Layouts = {upper, model, ground};
    EXPECT_EQ(AcadGetPlotLayoutList(context, true), (Lines{"Ground", "Upper"}));
}

TEST_F(LayoutList, ADrawingWithOnlyTheModelTabHasNone)
{
    drawing->Layouts = {model};
    EXPECT_EQ(AcadGetPlotLayoutList(context, true), Lines{});
}

TEST_F(LayoutList, ATabPositionThatNobodyHasLeavesAnEmptyName)
{
    upper->TabOrder = 1;
    EXPECT_EQ(AcadGetPlotLayoutList(context, true), (Lines{"Upper", ""}));
}

TEST_F(LayoutList, ATabPositionBeyondTheCountEndsTheList)
{
    drawing->Layouts = {model, ground, upper};
    upper->TabOrder = 7;
    EXPECT_EQ(AcadGetPlotLayoutList(context, true), (Lines{"Ground", ""}));
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: AcadGetPlotLayoutList : Subscript out of range"}));
    upper->TabOrder = -1;
    EXPECT_EQ(AcadGetPlotLayoutList(context, true), (Lines{"Ground", ""}));
    EXPECT_EQ(Log().size(), 1U);
}

TEST_F(LayoutList, AnErrorIsLoggedAndKeepsWhatWasFound)
{
    host.tape.FailCall("Layouts.Item", "Layout is being edited", 1, 2);
    EXPECT_EQ(AcadGetPlotLayoutList(context, true), (Lines{"Ground", ""}));
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: AcadGetPlotLayoutList : Layout is being edited"}));
}

TEST_F(LayoutList, AnUnreadableActiveLayoutHasAnEmptyName)
{
    host.tape.FailCall("Document.ActiveLayout", "busy");
    EXPECT_EQ(AcadGetPlotLayoutList(context, false), (Lines{""}));
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: AcadGetPlotLayoutList : busy"}));
}

TEST_F(LayoutList, WithoutADrawingTheListIsEmpty)
{
    context.g_AcadDoc = nullptr;
    EXPECT_EQ(AcadGetPlotLayoutList(context, true), Lines{});
    EXPECT_EQ(Log(), (Lines{"RUNTIME ERROR: AcadGetPlotLayoutList : The drawing is not available."}));
}

} // namespace
} // namespace sm
