// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/SettingsStand.h"
#include "settings/mdlDataKegIO.h"

namespace sm {
namespace {

using Texts = std::vector<std::string>;

class DrawingRecords : public SettingsStand {
protected:
    std::shared_ptr<DocumentFacts> facts = host.AddDocument(DocumentFacts());
    std::shared_ptr<IAcadDocument> document = host.Document(facts);

    void Store(const std::string& appName, const std::vector<AcadVariant>& values)
    {
        AcadXData data{{1001}, {appName}};
        data.codes.resize(values.size() + 1, 1000);
        data.values.insert(data.values.end(), values.begin(), values.end());
        facts->XData[appName] = data;
    }
    Texts Get(const std::string& recordName, std::int32_t expectedCount)
    {
        return GetDrawingData(context, recordName, expectedCount, *document);
    }
};

TEST_F(DrawingRecords, AMissingRecordOfFixedLengthComesBackAllEmpty)
{
    EXPECT_EQ(Get("Stamp", 8), Texts(9));
    EXPECT_EQ(Get("PltSel", 1), Texts(2));
    EXPECT_EQ(host.tape.CallsOf("Dictionaries.GetXData"),
              Texts({"Dictionaries.GetXData TWSI_Stamp", "Dictionaries.GetXData TWSI_PltSel"}));
}

TEST_F(DrawingRecords, AMissingRecordOfAnyLengthComesBackAsNoList)
{
    EXPECT_EQ(Get("Attachs", 0), Texts());
}

TEST_F(DrawingRecords, PositionZeroIsTheApplicationName)
{
    Store("TWSI_PltSel", {std::string("2")});
    EXPECT_EQ(Get("PltSel", 1), Texts({"TWSI_PltSel", "2"}));
    EXPECT_EQ(Get("PltSel", 0), Texts({"TWSI_PltSel", "2"}));
}

TEST_F(DrawingRecords, ARecordOfAnotherLengthIsDiscardedButLeftInTheDrawing)
{
    Store("TWSI_PltSel", {std::string("2"), std::string("3")});
    const AcadXData stored = facts->XData["TWSI_PltSel"];
    EXPECT_EQ(Get("PltSel", 1), Texts(2));
    EXPECT_EQ(Get("PltSel", 3), Texts(4));
    EXPECT_EQ(facts->XData["TWSI_PltSel"], stored);
}

TEST_F(DrawingRecords, ValuesThatTheHostHandsOverAsNumbersAreReadAsTheirText)
{
    Store("TWSI_Any", {std::int32_t(3), 8.5, true, AcadVariant(), std::string("x")});
    locale.decimalSeparator = ',';
    EXPECT_EQ(Get("Any", 0), Texts({"TWSI_Any", "3", "8.5", "1", "", "x"}));
}

TEST_F(DrawingRecords, AHostErrorEndsTheReadWithNothing)
{
    Store("TWSI_PltSel", {std::string("2")});
    for (const char* call : {"Document.Dictionaries", "Dictionaries.GetXData"}) {
        host.tape.FailCall(call, "Record is busy");
        bool failed = false;
        EXPECT_EQ(GetDrawingData(context, "PltSel", 1, *document, &failed), Texts()) << call;
        EXPECT_TRUE(failed) << call;
        EXPECT_EQ(ReadPlotSelection(context, *document), 0) << call;
        host.tape.StopFailing();
        EXPECT_EQ(GetDrawingData(context, "PltSel", 1, *document, &failed), Texts({"TWSI_PltSel", "2"})) << call;
        EXPECT_FALSE(failed) << call;
    }
    EXPECT_EQ(observer.carriedPast, Texts(4, "GetDrawingData: Record is busy"));
}

TEST_F(DrawingRecords, WritesTheNameAsItem1001AndEveryValueAsItem1000)
{
    SetDrawingData(context, "Any", {std::string("one"), 2.5, std::string()}, *document);
    const AcadXData expected{{1001, 1000, 1000, 1000},
                             {std::string("TWSI_Any"), std::string("one"), std::string("2.5"), std::string()}};
    EXPECT_EQ(facts->XData["TWSI_Any"], expected);
    EXPECT_EQ(host.tape.CallsWith("SetXData"), Texts({"Dictionaries.SetXData TWSI_Any"}));
}

TEST_F(DrawingRecords, ARefusedWriteIsLostWithoutAWord)
{
    Store("TWSI_PltSel", {std::string("2")});
    host.tape.FailCall("Dictionaries.SetXData", "Application name is not registered");
    EXPECT_TRUE(WritePlotSelection(context, *document, 1));
    EXPECT_EQ(ReadPlotSelection(context, *document), 2);
    EXPECT_EQ(observer.carriedPast, Texts({"SetDrawingData: Application name is not registered"}));
}

TEST_F(DrawingRecords, ThePlotSelectionIsOneInteger)
{
    EXPECT_EQ(ReadPlotSelection(context, *document), 0);
    EXPECT_TRUE(WritePlotSelection(context, *document, 2));
    const AcadXData expected{{1001, 1000}, {std::string("TWSI_PltSel"), std::string("2")}};
    EXPECT_EQ(facts->XData["TWSI_PltSel"], expected);
    EXPECT_EQ(ReadPlotSelection(context, *document), 2);
}

TEST_F(DrawingRecords, IntegersAreReadLenientlyAndRoundedHalvesToEven)
{
    const struct {
        const char* text;
        std::int32_t expected;
    } rows[] = {{"", 0}, {"2.5", 2}, {"3.5", 4}, {"x", 0}, {" 1 ", 1}, {"1,9", 1}, {"99999999999", 2147483647}};
    for (const auto& row : rows) {
        Store("TWSI_PltSel", {std::string(row.text)});
        EXPECT_EQ(ReadPlotSelection(context, *document), row.expected) << row.text;
    }
}

TEST_F(DrawingRecords, TheLoginNameIsTheHostsVariable)
{
    EXPECT_EQ(LoginName(context, *document), "R. Draughtsman");
    facts->Variables["LOGINNAME"] = std::int32_t(17);
    EXPECT_EQ(LoginName(context, *document), "17");
    host.tape.FailCall("Document.GetVariable", "Unknown variable");
    EXPECT_EQ(LoginName(context, *document), "");
}

} // namespace
} // namespace sm
