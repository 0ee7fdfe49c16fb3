// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/HostFixture.h"
#include "drawing/DrawingError.h"

namespace sm::cadhost {
namespace {

class HostApplicationTest : public HostTest {};

TEST_F(HostApplicationTest, HasPreferencesThatLiveInTheRun)
{
    const auto preferences = host->Application()->Preferences();
    EXPECT_EQ(preferences->DriversPath(), kShare + "/Drivers");
    EXPECT_EQ(preferences->PrinterConfigPath(), kShare + "/Plotters");
    EXPECT_EQ(preferences->ActiveProfile(), "<<Unnamed Profile>>");
    preferences->SetPrinterConfigPath(folder.string());
    EXPECT_EQ(host->Application()->Preferences()->PrinterConfigPath(), folder.string());
    EXPECT_EQ(CadHost::Create({kShare, ""})->Application()->Preferences()->PrinterConfigPath(), kShare + "/Plotters");
}

TEST_F(HostApplicationTest, RefusesAPlotterFolderThatIsNotThere)
{
    const auto preferences = host->Application()->Preferences();
    EXPECT_EQ(ErrorOf([&] { preferences->SetPrinterConfigPath("nowhere/at/all"); }),
              "PrinterConfigPath: the folder 'nowhere/at/all' doesn't exist");
    EXPECT_EQ(preferences->PrinterConfigPath(), kShare + "/Plotters");
}

TEST_F(HostApplicationTest, OnlyTheNewestDriverIsThere)
{
    EXPECT_FALSE(std::filesystem::exists(kShare + "/Drivers/ps6.hdi"));
    EXPECT_FALSE(std::filesystem::exists(kShare + "/Drivers/ps7.hdi"));
    EXPECT_TRUE(std::filesystem::exists(kShare + "/Drivers/ps8.hdi"));
}

TEST_F(HostApplicationTest, HoldsSeveralDocuments)
{
    const auto application = host->Application();
    EXPECT_EQ(application->ActiveDocument(), nullptr);
    EXPECT_EQ(application->Documents()->Count(), 0);
    const auto first = Open(OneSheet()), second = Open(OneSheet());
    EXPECT_EQ(application->Documents()->Count(), 2);
    EXPECT_EQ(application->Documents()->Item(0)->Name(), "plan1.dxf");
    EXPECT_EQ(application->Documents()->Item(1)->Name(), "plan2.dxf");
    EXPECT_EQ(application->ActiveDocument()->Name(), "plan2.dxf");
    EXPECT_FALSE(first->Active());
    EXPECT_TRUE(second->Active());
    EXPECT_EQ(first->Application()->Documents()->Count(), 2);
    EXPECT_EQ(ErrorOf([&] { application->Documents()->Item(2); }), "Documents: there is no item 2");
}

TEST_F(HostApplicationTest, OpensFilesAndTakesOpenOnesAgain)
{
    const auto documents = host->Application()->Documents();
    const std::string path = Write("a.dxf", OneSheet().Text());
    const auto first = documents->Open(path);
    first->SetActiveSpace(1);
    Write("b.dxf", OneSheet().Text());
    documents->Open((folder / "b.dxf").string());
    const auto again = documents->Open((folder / "." / "a.dxf").string());
    EXPECT_EQ(documents->Count(), 2);
    EXPECT_TRUE(first->Active());
    EXPECT_EQ(again->FullName(), path);
}

TEST_F(HostApplicationTest, ReadsADrawingOnceHoweverOftenItIsOpened)
{
    const std::string path = Write("a.dxf", OneSheet().Text());
    const auto first = host->Open(path);
    const drawing::Drawing* const read = &host->DrawingOf(first);
    first->SetWindowState(1);
    first->Layouts()->Item("Sheet 1")->SetPlotRotation(2);
    DocumentOverlay overlay;
    overlay.activeLayout = "Sheet 1";
    const auto again = host->Open(path, overlay);
    EXPECT_EQ(&host->DrawingOf(again), read);
    EXPECT_EQ(again->WindowState(), 1);
    EXPECT_EQ(again->ActiveLayout()->Name(), "Sheet 1");
    EXPECT_EQ(again->ActiveLayout()->PlotRotation(), 2);
    std::filesystem::create_symlink(path, folder / "link.dxf");
    EXPECT_EQ(&host->DrawingOf(host->Open((folder / "link.dxf").string())), read);
    EXPECT_EQ(host->Application()->Documents()->Count(), 1);
}

TEST_F(HostApplicationTest, KeepsTheWindowStatesOfItsDocumentsApart)
{
    const auto first = Open(OneSheet()), second = Open(OneSheet());
    EXPECT_EQ(first->WindowState(), 3);
    first->SetWindowState(1);
    EXPECT_EQ(second->WindowState(), 3);
    EXPECT_EQ(host->Application()->Documents()->Item(0)->WindowState(), 1);
}

TEST_F(HostApplicationTest, ReportsAFileThatCannotBeOpened)
{
    const auto documents = host->Application()->Documents();
    const std::string path = (folder / "missing.dxf").string();
    EXPECT_THAT(ErrorOf([&] { documents->Open(path); }), ::testing::HasSubstr(path));
    EXPECT_THROW(host->Open(path), drawing::DrawingError);
    EXPECT_EQ(documents->Count(), 0);
}

TEST_F(HostApplicationTest, ClosesDocumentsForGood)
{
    const auto first = Open(OneSheet()), second = Open(OneSheet());
    const auto layout = second->ActiveLayout();
    const auto entities = layout->Block();
    second->Close(false);
    EXPECT_EQ(host->Application()->Documents()->Count(), 1);
    EXPECT_TRUE(first->Active());
    for (const auto& use :
         {std::function<void()>([&] { second->Name(); }), std::function<void()>([&] { layout->Name(); }),
          std::function<void()>([&] { layout->SetPlotRotation(1); }), std::function<void()>([&] { entities->Count(); }),
          std::function<void()>([&] { second->Plot()->PlotToFile("x.ps"); }),
          std::function<void()>([&] { second->Close(false); })})
        EXPECT_EQ(ErrorOf(use), "the drawing 'plan2.dxf' is closed");
}

TEST_F(HostApplicationTest, OutlivesItsMaker)
{
    const auto document = Open(OneSheet());
    host.reset();
    EXPECT_EQ(document->Application()->Documents()->Item(0)->Name(), "plan1.dxf");
}

} // namespace
} // namespace sm::cadhost
