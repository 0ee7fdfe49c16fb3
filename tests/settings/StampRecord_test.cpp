// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/StoredRecords.h"
#include "settings/mdlDataKegIO.h"

namespace sm {
namespace {

class StampRecord : public StoredRecords {
protected:
    StampSettings Read()
    {
        StampSettings stamp{9, "x", 9, 9, "x", 9, 9, 9};
        EXPECT_TRUE(ReadStamp(context, *document, stamp));
        return stamp;
    }
};

const StampSettings kDefaults{255, "Helvetica", 0, 0, "", 0, 0, 24};
const StampSettings kOther{16711935, "Courier-Bold", 7, 2, "All Layouts", -12.75, 1234567.125, 36};

TEST_F(StampRecord, IsAbsentAndReadsAsItsDefaults)
{
    const StampSettings stamp = Read();
    EXPECT_EQ(stamp.StampIndex, 0);
    EXPECT_EQ(stamp.FontName, "Helvetica");
    EXPECT_EQ(stamp.FontSize, 24);
    EXPECT_EQ(stamp.Justification, 0);
    EXPECT_EQ(stamp.X, 0);
    EXPECT_EQ(stamp.Y, 0);
    EXPECT_EQ(stamp.Color, 255);
    EXPECT_EQ(stamp.LayoutName, "");
}

TEST_F(StampRecord, HoldsItsValuesInThisOrder)
{
    EXPECT_TRUE(WriteStamp(context, *document, kOther));
    const Texts expected = {
        "TWSI_Stamp",
        "7",            // 1 StampIndex
        "Courier-Bold", // 2 FontName
        "36",           // 3 FontSize
        "2",            // 4 Justification
        "-12.75",       // 5 X
        "1234567.125",  // 6 Y
        "16711935",     // 7 Color
        "All Layouts",  // 8 LayoutName
    };
    EXPECT_EQ(Stored("Stamp"), expected);
    EXPECT_EQ(Read(), kOther);
}

TEST_F(StampRecord, OfSevenOrNineValuesIsIgnoredAsAWhole)
{
    for (const std::size_t count : {7, 9}) {
        Store("Stamp", Texts(count, "5"));
        EXPECT_EQ(Read(), kDefaults) << count;
        EXPECT_EQ(Stored("Stamp").size(), count + 1) << count;
    }
}

TEST_F(StampRecord, TakesTheDefaultForAnEmptyValueAndKeepsAZero)
{
    Store("Stamp", {"1", "", "", "1", "2", "3", "", "Layout1"});
    EXPECT_EQ(Read(), (StampSettings{255, "Helvetica", 1, 1, "Layout1", 2, 3, 24}));
    Store("Stamp", {"1", "Symbol", "0", "1", "2", "3", "0", ""});
    EXPECT_EQ(Read(), (StampSettings{0, "Symbol", 1, 1, "", 2, 3, 0}));
}

TEST_F(StampRecord, ReadsNumbersLeniently)
{
    Store("Stamp", {"2.5", "Symbol", "3.5", "x", "8,5", "1 2.5", "1E2", "Layout1"});
    EXPECT_EQ(Read(), (StampSettings{100, "Symbol", 2, 0, "Layout1", 8, 12.5, 4}));
}

TEST_F(StampRecord, WritesTheLocalesNumbersAndTrimsTexts)
{
    locale.decimalSeparator = ',';
    WriteStamp(context, *document, {255, " Helvetica ", 1, 0, " Layout1 ", 8.5, 12.75, 24});
    EXPECT_EQ(Stored("Stamp"), Texts({"TWSI_Stamp", "1", "Helvetica", "24", "0", "8,5", "12,75", "255", "Layout1"}));
    EXPECT_EQ(Read().X, 8);
    EXPECT_EQ(Read().Y, 12);
}

TEST_F(StampRecord, ReadsAsDefaultsAfterAHostError)
{
    WriteStamp(context, *document, kOther);
    host.tape.FailCall("Dictionaries.GetXData", "Record is busy");
    EXPECT_EQ(Read(), kDefaults);
}

TEST_F(StampRecord, SurvivesEveryFault)
{
    const auto operation = [&] {
        StampSettings stamp;
        WriteStamp(context, *document, kOther);
        ReadStamp(context, *document, stamp);
    };
    SweepFaults(operation, [&] {
        WriteStamp(context, *document, kOther);
        EXPECT_EQ(Read(), kOther);
    });
}

} // namespace
} // namespace sm
