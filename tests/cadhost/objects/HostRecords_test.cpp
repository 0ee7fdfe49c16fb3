// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/HostFixture.h"

namespace sm::cadhost {
namespace {

using ::testing::ElementsAre;

class HostRecordsTest : public HostTest {};

AcadXData Record(const std::string& name, std::vector<AcadVariant> values)
{
    AcadXData data{{1001}, {name}};
    for (AcadVariant& value : values) {
        data.codes.push_back(1000);
        data.values.push_back(std::move(value));
    }
    return data;
}

std::string ReadAll(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(HostRecordsTest, GivesAnEmptyRecordWhereThereIsNone)
{
    EXPECT_EQ(Open(OneSheet())->Dictionaries()->GetXData("TWSI_Stamp"), AcadXData{});
}

TEST_F(HostRecordsTest, KeepsNumbersInTextItemsAsTheirText)
{
    const auto dictionaries = Open(OneSheet())->Dictionaries();
    dictionaries->SetXData(Record("TWSI_Attachs", {std::string("note.txt"), 12.5, 1e20, 0.1 + 0.2, std::int32_t{-7},
                                                   true, std::monostate{}, std::string("Büro")}));
    EXPECT_EQ(
        dictionaries->GetXData("TWSI_Attachs"),
        Record("TWSI_Attachs", {std::string("note.txt"), std::string("12.5"), std::string("1E+20"), std::string("0.3"),
                                std::string("-7"), std::string("1"), std::string(""), std::string("Büro")}));
}

TEST_F(HostRecordsTest, ReplacesTheWholeRecordOfOneApplication)
{
    const auto dictionaries = Open(OneSheet())->Dictionaries();
    dictionaries->SetXData(Record("TWSI_A", {std::string("1"), std::string("2")}));
    dictionaries->SetXData(Record("TWSI_B", {std::string("3")}));
    dictionaries->SetXData(Record("TWSI_A", {std::string("4")}));
    EXPECT_EQ(dictionaries->GetXData("TWSI_A"), Record("TWSI_A", {std::string("4")}));
    EXPECT_EQ(dictionaries->GetXData("TWSI_B"), Record("TWSI_B", {std::string("3")}));
}

TEST_F(HostRecordsTest, RefusesRecordsWithoutAnApplication)
{
    const auto dictionaries = Open(OneSheet())->Dictionaries();
    const std::string noName = "SetXData: a record begins with the name of its application";
    EXPECT_EQ(ErrorOf([&] { dictionaries->SetXData({}); }), noName);
    EXPECT_EQ(ErrorOf([&] { dictionaries->SetXData({{1000}, {std::string("x")}}); }), noName);
    EXPECT_EQ(ErrorOf([&] { dictionaries->SetXData({{1001}, {1.5}}); }), noName);
    EXPECT_EQ(ErrorOf([&] { dictionaries->SetXData({{1001}, {std::string()}}); }), noName);
    EXPECT_EQ(ErrorOf([&] {
                  dictionaries->SetXData({{1001, 1000}, {std::string("x")}});
              }),
              "SetXData: there are 2 codes and 1 values");
}

TEST_F(HostRecordsTest, SavesOnCloseWhenAskedTo)
{
    const auto document = Open(OneSheet());
    const std::string before = ReadAll(folder / "plan1.dxf");
    document->Dictionaries()->SetXData(Record("TWSI_Stamp", {std::string("hello")}));
    document->Close(true);
    EXPECT_EQ(ReadAll(folder / "plan1.dxf.bak"), before);
    const auto again = host->Open((folder / "plan1.dxf").string());
    EXPECT_EQ(again->Dictionaries()->GetXData("TWSI_Stamp"), Record("TWSI_Stamp", {std::string("hello")}));
}

TEST_F(HostRecordsTest, LeavesTheFileAloneOtherwise)
{
    const std::string before = OneSheet().Text();
    const auto document = Open(OneSheet());
    document->Dictionaries()->SetXData(Record("TWSI_Stamp", {std::string("hello")}));
    document->ActiveLayout()->SetPlotRotation(1);
    document->AuditInfo(true);
    document->Close(false);
    EXPECT_EQ(ReadAll(folder / "plan1.dxf"), before);
    const auto untouched = Open(OneSheet());
    untouched->ActiveLayout()->SetPlotRotation(1);
    untouched->Close(true);
    EXPECT_EQ(ReadAll(folder / "plan2.dxf"), before);
    EXPECT_FALSE(std::filesystem::exists(folder / "plan2.dxf.bak"));
}

TEST_F(HostRecordsTest, SavesTheOneOfSeveralDrawingsThatIsClosed)
{
    const std::string before = OneSheet().Text();
    const auto first = Open(OneSheet()), second = Open(OneSheet());
    for (const auto& document : {first, second})
        document->Dictionaries()->SetXData(Record("TWSI_Stamp", {std::string("hello")}));
    second->Close(true);
    EXPECT_EQ(ReadAll(folder / "plan1.dxf"), before);
    EXPECT_EQ(ReadAll(folder / "plan2.dxf.bak"), before);
    EXPECT_EQ(first->Dictionaries()->GetXData("TWSI_Stamp"), Record("TWSI_Stamp", {std::string("hello")}));
    first->Close(false);
    EXPECT_EQ(ReadAll(folder / "plan1.dxf"), before);
    EXPECT_EQ(host->Application()->Documents()->Count(), 0);
}

TEST_F(HostRecordsTest, StaysOpenWhenItCannotBeSaved)
{
    const auto document = Open(OneSheet());
    document->Dictionaries()->SetXData(Record("TWSI_Stamp", {std::string("hello")}));
    const std::string foreign = OneSheet().Text() + "0\nEOF\n";
    Write("plan1.dxf", foreign); // somebody else saves it
    EXPECT_THAT(ErrorOf([&] { document->Close(true); }), ::testing::HasSubstr("plan1.dxf"));
    EXPECT_EQ(ReadAll(folder / "plan1.dxf"), foreign);
    EXPECT_EQ(document->Dictionaries()->GetXData("TWSI_Stamp"), Record("TWSI_Stamp", {std::string("hello")}));
    EXPECT_EQ(host->Application()->Documents()->Count(), 1);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST_F(HostRecordsTest, ShowsTheRunsPageSetupSourceAndSavesItNever)
{
    DocumentOverlay overlay;
    overlay.pageSetupSource = 2;
    const auto document = Open(OneSheet(), overlay);
    EXPECT_EQ(document->Dictionaries()->GetXData("TWSI_PltSel"), Record("TWSI_PltSel", {std::string("2")}));
    EXPECT_EQ(document->Dictionaries()->GetXData("TWSI_Plots"), AcadXData{});
    document->Dictionaries()->SetXData(Record("TWSI_Stamp", {std::string("hello")}));
    document->Close(true);
    const auto again = host->Open((folder / "plan1.dxf").string());
    EXPECT_EQ(again->Dictionaries()->GetXData("TWSI_PltSel"), AcadXData{});
}

TEST_F(HostRecordsTest, LetsAWrittenPageSetupSourceCount)
{
    DocumentOverlay overlay;
    overlay.pageSetupSource = 2;
    const auto dictionaries = Open(OneSheet(), overlay)->Dictionaries();
    dictionaries->SetXData(Record("TWSI_PltSel", {std::string("1")}));
    EXPECT_EQ(dictionaries->GetXData("TWSI_PltSel"), Record("TWSI_PltSel", {std::string("1")}));
}

} // namespace
} // namespace sm::cadhost
