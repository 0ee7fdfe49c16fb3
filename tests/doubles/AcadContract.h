// SPDX-License-Identifier: GPL-3.0-or-later
// What every CAD host keeps of the automation ports, written once: the embedded host, the scripted one, and any other
// run the same tests.
//
//     INSTANTIATE_TYPED_TEST_SUITE_P(Embedded, AcadContract, EmbeddedContractHost);
//
// A contract host has these members:
//     std::shared_ptr<IAcadApplication> Application();   with one drawing open, see below
//     std::string MissingFile(), MissingFolder(), Folder();
//     std::string OtherFile();                           another drawing, not open yet
//     std::string OtherDevice();                         a second plot device that a layout may choose
// The drawing has the layouts "Model", "Sheet 1" (active) and "Sheet 2", the view "Plan" with centre (50, 40), width
// 100 and height 80, and the block "DOOR". "Sheet 1" holds a line, and a reference of DOOR at (7, 8) with the attribute
// NUMBER = D-17. Its own device is "office", its own medium "A3", 420 by 297 mm.
#pragma once

#include "ports/HostError.h"
#include "ports/IAcadApplication.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace sm {

template <class Host> class AcadContract : public ::testing::Test {
protected:
    std::shared_ptr<IAcadApplication> Application() { return m_host.Application(); }
    std::shared_ptr<IAcadDocument> Document() { return Application()->ActiveDocument(); }
    std::shared_ptr<IAcadLayout> Sheet() { return Document()->Layouts()->Item("Sheet 1"); }
    Host m_host;
};
TYPED_TEST_SUITE_P(AcadContract);

TYPED_TEST_P(AcadContract, ListsOpenDocuments)
{
    const auto documents = this->Application()->Documents();
    ASSERT_EQ(documents->Count(), 1);
    EXPECT_EQ(documents->Item(0)->FullName(), this->Document()->FullName());
    EXPECT_THROW(documents->Item(-1), HostError);
    EXPECT_THROW(documents->Item(1), HostError);
    EXPECT_THROW(documents->Open(this->m_host.MissingFile()), HostError);
    EXPECT_EQ(documents->Count(), 1);
}

TYPED_TEST_P(AcadContract, OpensAndClosesASecondDrawing)
{
    const auto documents = this->Application()->Documents();
    const auto first = documents->Item(0);
    for (const bool saveChanges : {false, true}) {
        const auto second = documents->Open(this->m_host.OtherFile());
        ASSERT_EQ(documents->Count(), 2);
        EXPECT_EQ(documents->Item(1)->FullName(), second->FullName());
        EXPECT_NE(second->FullName(), first->FullName());
        second->Close(saveChanges);
        ASSERT_EQ(documents->Count(), 1);
        EXPECT_EQ(documents->Item(0)->FullName(), first->FullName());
    }
    EXPECT_EQ(first->Layouts()->Count(), 3);
}

TYPED_TEST_P(AcadContract, KeepsTheWindowState)
{
    for (const std::int32_t state : {1, 2, 3}) {
        this->Document()->SetWindowState(state);
        EXPECT_EQ(this->Document()->WindowState(), state);
    }
}

TYPED_TEST_P(AcadContract, AuditsWithoutHarm)
{
    const std::string name = "TWSI_Stamp", text = "DRAFT";
    const AcadXData record{{1001, 1000}, {name, text}};
    this->Document()->Dictionaries()->SetXData(record);
    for (const bool fixErrors : {true, false}) {
        EXPECT_NO_THROW(this->Document()->AuditInfo(fixErrors));
        EXPECT_EQ(this->Document()->Dictionaries()->GetXData(name), record);
        EXPECT_EQ(this->Sheet()->Block()->Count(), 2);
    }
}

TYPED_TEST_P(AcadContract, SwitchesThePlotterFolder)
{
    const auto preferences = this->Application()->Preferences();
    const std::string before = preferences->PrinterConfigPath();
    EXPECT_THROW(preferences->SetPrinterConfigPath(this->m_host.MissingFolder()), HostError);
    EXPECT_EQ(preferences->PrinterConfigPath(), before);
    preferences->SetPrinterConfigPath(this->m_host.Folder());
    EXPECT_EQ(this->Application()->Preferences()->PrinterConfigPath(), this->m_host.Folder());
    EXPECT_FALSE(preferences->DriversPath().empty());
    EXPECT_FALSE(preferences->ActiveProfile().empty());
}

TYPED_TEST_P(AcadContract, FindsLayoutsByPositionAndName)
{
    const auto layouts = this->Document()->Layouts();
    ASSERT_EQ(layouts->Count(), 3);
    for (std::int32_t i = 0; i < 3; ++i)
        EXPECT_EQ(layouts->Item(layouts->Item(i)->Name())->TabOrder(), layouts->Item(i)->TabOrder());
    EXPECT_EQ(layouts->Item("Model")->TabOrder(), 0);
    EXPECT_TRUE(layouts->Item("Model")->ModelType());
    EXPECT_EQ(layouts->Item("Sheet 1")->TabOrder(), 1);
    EXPECT_EQ(layouts->Item("Sheet 2")->TabOrder(), 2);
    EXPECT_FALSE(layouts->Item("Sheet 2")->ModelType());
    EXPECT_THROW(layouts->Item("Sheet 3"), HostError);
    EXPECT_THROW(layouts->Item(-1), HostError);
    EXPECT_THROW(layouts->Item(3), HostError);
}

TYPED_TEST_P(AcadContract, SwitchesTheActiveLayout)
{
    const auto document = this->Document();
    EXPECT_EQ(document->ActiveLayout()->Name(), "Sheet 1");
    document->SetActiveLayout(document->Layouts()->Item("Sheet 2"));
    EXPECT_EQ(document->ActiveLayout()->Name(), "Sheet 2");
    EXPECT_THROW(document->SetActiveLayout(nullptr), HostError);
    EXPECT_EQ(document->ActiveLayout()->Name(), "Sheet 2");
}

TYPED_TEST_P(AcadContract, ChoosesFromTheListsOnly)
{
    const auto sheet = this->Sheet();
    sheet->RefreshPlotDeviceInfo();
    const auto devices = sheet->GetPlotDeviceNames();
    for (const std::string& device : {std::string("office"), this->m_host.OtherDevice()})
        EXPECT_NE(std::find(devices.begin(), devices.end(), device), devices.end()) << device;
    EXPECT_THROW(sheet->SetConfigName("nobody's"), HostError);
    EXPECT_EQ(sheet->ConfigName(), "office");
    sheet->SetConfigName(this->m_host.OtherDevice());
    EXPECT_EQ(sheet->ConfigName(), this->m_host.OtherDevice());
    sheet->SetConfigName("office");
    sheet->RefreshPlotDeviceInfo();
    const auto media = sheet->GetCanonicalMediaNames();
    EXPECT_NE(std::find(media.begin(), media.end(), "A3"), media.end());
    EXPECT_THROW(sheet->SetCanonicalMediaName("no such sheet"), HostError);
    EXPECT_EQ(sheet->CanonicalMediaName(), "A3");
    sheet->SetCanonicalMediaName("A3");
}

TYPED_TEST_P(AcadContract, KeepsEveryNumberOfALayout)
{
    const auto sheet = this->Sheet();
    for (const std::int32_t rotation : {1, 2, 3, 0}) {
        sheet->SetPlotRotation(rotation);
        EXPECT_EQ(sheet->PlotRotation(), rotation);
        double width = 0, height = 0;
        sheet->GetPaperSize(width, height);
        EXPECT_EQ(width, 420);
        EXPECT_EQ(height, 297);
    }
    for (const std::int32_t units : {0, 1}) {
        sheet->SetPaperUnits(units);
        EXPECT_EQ(sheet->PaperUnits(), units);
    }
    for (const std::int32_t type : {0, 1, 2, 4, 5}) {
        sheet->SetPlotType(type);
        EXPECT_EQ(sheet->PlotType(), type);
    }
    sheet->SetStandardScale(25);
    EXPECT_EQ(sheet->StandardScale(), 25);
    sheet->SetUseStandardScale(false);
    sheet->SetCustomScale(3, 8);
    double numerator = 0, denominator = 0;
    sheet->GetCustomScale(numerator, denominator);
    EXPECT_EQ(numerator, 3);
    EXPECT_EQ(denominator, 8);
    sheet->SetPlotOrigin({3, 4, 0});
    EXPECT_EQ(sheet->PlotOrigin(), (AcadPoint{3, 4, 0}));
    sheet->SetWindowToPlot({1, 2, 0}, {3, 4, 0});
    AcadPoint low, high;
    sheet->GetWindowToPlot(low, high);
    EXPECT_EQ(low, (AcadPoint{1, 2, 0}));
    EXPECT_EQ(high, (AcadPoint{3, 4, 0}));
}

TYPED_TEST_P(AcadContract, KeepsEverySwitchOfALayout)
{
    using Get = bool (IAcadLayout::*)();
    using Set = void (IAcadLayout::*)(bool);
    const std::pair<Get, Set> switches[] = {
        {&IAcadLayout::CenterPlot, &IAcadLayout::SetCenterPlot},
        {&IAcadLayout::UseStandardScale, &IAcadLayout::SetUseStandardScale},
        {&IAcadLayout::PlotWithPlotStyles, &IAcadLayout::SetPlotWithPlotStyles},
        {&IAcadLayout::ShowPlotStyles, &IAcadLayout::SetShowPlotStyles},
        {&IAcadLayout::PlotHidden, &IAcadLayout::SetPlotHidden},
        {&IAcadLayout::PlotViewportBorders, &IAcadLayout::SetPlotViewportBorders},
        {&IAcadLayout::PlotWithLineweights, &IAcadLayout::SetPlotWithLineweights},
        {&IAcadLayout::ScaleLineweights, &IAcadLayout::SetScaleLineweights},
        {&IAcadLayout::PlotViewportsFirst, &IAcadLayout::SetPlotViewportsFirst},
    };
    const auto sheet = this->Sheet();
    for (const auto& [get, set] : switches) {
        for (const bool value : {true, false, true}) {
            (*sheet.*set)(value);
            EXPECT_EQ((*sheet.*get)(), value);
        }
    }
}

TYPED_TEST_P(AcadContract, SharesALayoutsConfigurationBetweenItsObjects)
{
    this->Sheet()->SetPlotRotation(2);
    EXPECT_EQ(this->Sheet()->PlotRotation(), 2);
    EXPECT_EQ(this->Document()->ActiveLayout()->PlotRotation(), 2);
    EXPECT_EQ(this->Document()->Layouts()->Item("Sheet 2")->PlotRotation(), 0);
}

TYPED_TEST_P(AcadContract, StoresRecordsByApplication)
{
    const auto dictionaries = this->Document()->Dictionaries();
    EXPECT_EQ(dictionaries->GetXData("TWSI_Stamp"), AcadXData{});
    const std::string name = "TWSI_Stamp", text = "DRAFT";
    dictionaries->SetXData({{1001, 1000, 1000}, {name, text, 12.5}});
    EXPECT_EQ(this->Document()->Dictionaries()->GetXData("TWSI_Stamp"),
              (AcadXData{{1001, 1000, 1000}, {name, text, std::string("12.5")}}));
    EXPECT_THROW(dictionaries->SetXData({{1000}, {text}}), HostError);
    EXPECT_THROW(dictionaries->SetXData({{1001, 1000}, {name}}), HostError);
    EXPECT_EQ(dictionaries->GetXData("TWSI_Plots"), AcadXData{});
}

TYPED_TEST_P(AcadContract, FindsViews)
{
    const auto views = this->Document()->Views();
    ASSERT_EQ(views->Count(), 1);
    EXPECT_EQ(views->Item(0)->Name(), "Plan");
    const auto view = views->Item("Plan");
    EXPECT_EQ(view->Center(), (AcadPoint{50, 40, 0}));
    EXPECT_EQ(view->Width(), 100);
    EXPECT_EQ(view->Height(), 80);
    EXPECT_THROW(views->Item("Section"), HostError);
    EXPECT_THROW(views->Item(1), HostError);
}

TYPED_TEST_P(AcadContract, AnswersForVariablesItKnows)
{
    const auto document = this->Document();
    EXPECT_EQ(document->GetVariable("LOGINNAME"), AcadVariant(std::string("R. Draughtsman")));
    EXPECT_THROW(document->GetVariable("NO SUCH VARIABLE"), HostError);
}

TYPED_TEST_P(AcadContract, TranslatesWithinOneSystemAsTheIdentity)
{
    const auto utility = this->Document()->Utility();
    EXPECT_EQ(utility->TranslateCoordinates({1, 2, 3}, 0, 0, 0), (AcadPoint{1, 2, 3}));
    EXPECT_THROW(utility->GetPoint("Where?"), HostError);
    EXPECT_THROW(utility->GetCorner({}, "Where?"), HostError);
}

TYPED_TEST_P(AcadContract, WalksEntitiesByPosition)
{
    const auto space = this->Sheet()->Block();
    ASSERT_EQ(space->Count(), 2);
    EXPECT_THROW(space->Item(-1), HostError);
    EXPECT_THROW(space->Item(2), HostError);
    const auto line = space->Item(0);
    EXPECT_EQ(line->ObjectName(), "AcDbLine");
    EXPECT_EQ(line->AsBlockReference(), nullptr);
    EXPECT_EQ(line->Hyperlinks()->Count(), 0);
    EXPECT_THROW(line->Hyperlinks()->Item(0), HostError);
    AcadPoint low, high;
    line->GetBoundingBox(low, high);
    EXPECT_EQ(low, (AcadPoint{0, 0, 0}));
    EXPECT_EQ(high, (AcadPoint{100, 50, 0}));
}

TYPED_TEST_P(AcadContract, ReadsBlockReferences)
{
    const auto entity = this->Sheet()->Block()->Item(1);
    EXPECT_EQ(entity->ObjectName(), "AcDbBlockReference");
    IAcadBlockReference* const reference = entity->AsBlockReference();
    ASSERT_NE(reference, nullptr);
    EXPECT_EQ(reference->Name(), "DOOR");
    EXPECT_EQ(reference->InsertionPoint(), (AcadPoint{7, 8, 0}));
    ASSERT_TRUE(reference->HasAttributes());
    const auto attributes = reference->GetAttributes();
    ASSERT_EQ(attributes.size(), 1U);
    EXPECT_EQ(attributes[0]->TagString(), "NUMBER");
    EXPECT_EQ(attributes[0]->TextString(), "D-17");
    EXPECT_TRUE(reference->GetConstantAttributes().empty());
    EXPECT_EQ(this->Document()->Blocks()->Item("door")->Name(), "DOOR");
    EXPECT_THROW(this->Document()->Blocks()->Item("WINDOW"), HostError);
}

REGISTER_TYPED_TEST_SUITE_P(AcadContract, ListsOpenDocuments, OpensAndClosesASecondDrawing, KeepsTheWindowState,
                            AuditsWithoutHarm, SwitchesThePlotterFolder, FindsLayoutsByPositionAndName,
                            SwitchesTheActiveLayout, ChoosesFromTheListsOnly, KeepsEveryNumberOfALayout,
                            KeepsEverySwitchOfALayout, SharesALayoutsConfigurationBetweenItsObjects,
                            StoresRecordsByApplication, FindsViews, AnswersForVariablesItKnows,
                            TranslatesWithinOneSystemAsTheIdentity, WalksEntitiesByPosition, ReadsBlockReferences);

} // namespace sm
