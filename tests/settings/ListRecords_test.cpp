// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/StoredRecords.h"
#include "settings/mdlDataKegIO.h"

namespace sm {
namespace {

class ListRecords : public StoredRecords {
protected:
    using Attachments = std::vector<AttachmentEntry>;
    using Fields = std::vector<SignatureFieldEntry>;

    Attachments ReadAttachmentList()
    {
        Attachments attachments(3);
        EXPECT_TRUE(ReadAttachments(context, *document, attachments));
        return attachments;
    }
    Fields ReadFieldList()
    {
        Fields fields(3);
        EXPECT_TRUE(ReadSignatureFields(context, *document, fields));
        return fields;
    }
    const Attachments kTwoAttachments = {{"C:\\Jobs\\Notes.txt", 10.5, -20.25, "Layout1"},
                                         {"Plain.doc", 0, 1234567.125, "Model"}};
    const Fields kTwoFields = {{"Sig1", "Approver", 1.5, 2.5, -3.5, 4.5, "Layout1"},
                               {"Sig2", "", 0, 0, 100, 50, "Layout2"}};
};

TEST_F(ListRecords, AreEmptyInADrawingWithoutThem)
{
    EXPECT_EQ(ReadAttachmentList(), Attachments());
    EXPECT_EQ(ReadFieldList(), Fields());
}

TEST_F(ListRecords, AttachmentsTakeFivePositionsEach)
{
    EXPECT_TRUE(WriteAttachments(context, *document, kTwoAttachments));
    const Texts expected = {
        "TWSI_Attachs",
        "Notes.txt",           // 1 file name, derived
        "C:\\Jobs\\Notes.txt", // 2 FilePath
        "10.5",                // 3 X
        "-20.25",              // 4 Y
        "Layout1",             // 5 LayoutName
        "Plain.doc",           // 6
        "Plain.doc",           // 7
        "0",                   // 8
        "1234567.125",         // 9
        "Model",               // 10
    };
    EXPECT_EQ(Stored("Attachs"), expected);
    EXPECT_EQ(ReadAttachmentList(), kTwoAttachments);
}

TEST_F(ListRecords, SignatureFieldsTakeSevenPositionsEach)
{
    EXPECT_TRUE(WriteSignatureFields(context, *document, kTwoFields));
    const Texts expected = {
        "TWSI_DigSigs",
        "Sig1",     // 1 FieldName
        "Approver", // 2 FieldLabel
        "1.5",      // 3 X1
        "2.5",      // 4 Y1
        "-3.5",     // 5 X2
        "4.5",      // 6 Y2
        "Layout1",  // 7 LayoutName
        "Sig2",     // 8
        "",         // 9
        "0",        // 10
        "0",        // 11
        "100",      // 12
        "50",       // 13
        "Layout2",  // 14
    };
    EXPECT_EQ(Stored("DigSigs"), expected);
    EXPECT_EQ(ReadFieldList(), kTwoFields);
}

TEST_F(ListRecords, CoordinatesGoToTheHostAsNumbersWhateverTheLocale)
{
    locale.decimalSeparator = ',';
    WriteAttachments(context, *document, {{"A.txt", 8.5, 12.75, "Layout1"}});
    EXPECT_EQ(Stored("Attachs"), Texts({"TWSI_Attachs", "A.txt", "A.txt", "8.5", "12.75", "Layout1"}));
    WriteSignatureFields(context, *document, {{"S", "L", 1.5, 2.5, 3.5, 4.5, "Layout1"}});
    EXPECT_EQ(Stored("DigSigs"), Texts({"TWSI_DigSigs", "S", "L", "1.5", "2.5", "3.5", "4.5", "Layout1"}));
    EXPECT_EQ(ReadAttachmentList()[0].X, 8.5);
    EXPECT_EQ(ReadFieldList()[0].Y2, 4.5);
}

TEST_F(ListRecords, AnEmptyListLeavesTheApplicationNameAlone)
{
    WriteAttachments(context, *document, kTwoAttachments);
    WriteAttachments(context, *document, {});
    WriteSignatureFields(context, *document, {});
    EXPECT_EQ(Stored("Attachs"), Texts({"TWSI_Attachs"}));
    EXPECT_EQ(Stored("DigSigs"), Texts({"TWSI_DigSigs"}));
    EXPECT_EQ(ReadAttachmentList(), Attachments());
    EXPECT_EQ(ReadFieldList(), Fields());
}

TEST_F(ListRecords, AGroupCutShortEndsTheList)
{
    const Texts group = {"n", "p", "1", "2", "L"};
    for (const std::size_t stray : {0, 1, 2, 3, 4}) {
        Texts values = group;
        values.insert(values.end(), group.begin(), group.end());
        values.insert(values.end(), group.begin(), group.begin() + static_cast<std::ptrdiff_t>(stray));
        Store("Attachs", values);
        EXPECT_EQ(ReadAttachmentList(), Attachments(2, {"p", 1, 2, "L"})) << stray;
    }
    for (const std::size_t count : {6, 7, 13, 14}) {
        Store("DigSigs", Texts(count, "1"));
        EXPECT_EQ(ReadFieldList(), Fields(count / 7, {"1", "1", 1, 1, 1, 1, "1"})) << count;
    }
}

TEST_F(ListRecords, TheStoredFileNameIsIgnored)
{
    Store("Attachs", {"Other.txt", "C:\\Jobs\\Notes.txt", "1", "2", "Layout1"});
    EXPECT_EQ(ReadAttachmentList(), Attachments({{"C:\\Jobs\\Notes.txt", 1, 2, "Layout1"}}));
}

TEST_F(ListRecords, EmptyPositionsReadAsEmptyTextAndZero)
{
    facts->XData["TWSI_Attachs"] = {{1001, 1000, 1000, 1000, 1000, 1000},
                                    {std::string("TWSI_Attachs"), AcadVariant(), std::string("A.txt"), AcadVariant(),
                                     std::string(), AcadVariant()}};
    EXPECT_EQ(ReadAttachmentList(), Attachments({{"A.txt", 0, 0, ""}}));
}

TEST_F(ListRecords, AttachmentTextsAreStoredAsTheyAreAndFieldTextsTrimmed)
{
    WriteAttachments(context, *document, {{" A.txt ", 0, 0, " Layout1 "}});
    EXPECT_EQ(Stored("Attachs"), Texts({"TWSI_Attachs", " A.txt ", " A.txt ", "0", "0", " Layout1 "}));
    WriteSignatureFields(context, *document, {{" S ", " L ", 0, 0, 0, 0, " Layout1 "}});
    EXPECT_EQ(Stored("DigSigs"), Texts({"TWSI_DigSigs", "S", "L", "0", "0", "0", "0", "Layout1"}));
}

TEST_F(ListRecords, TheFileNameIsSplitOffByTheSeparatorsOfThePlace)
{
    WriteAttachments(context, *document, {{"/srv/notes.txt", 0, 0, ""}});
    EXPECT_EQ(Stored("Attachs")[1], "/srv/notes.txt");
    locale.UseSlashes();
    WriteAttachments(context, *document, {{"/srv/notes.txt", 0, 0, ""}, {"C:\\Jobs\\Notes.txt", 0, 0, ""}});
    EXPECT_EQ(Stored("Attachs")[1], "notes.txt");
    EXPECT_EQ(Stored("Attachs")[6], "Notes.txt");
}

TEST_F(ListRecords, SurviveEveryFault)
{
    const auto operation = [&] {
        Attachments attachments;
        Fields fields;
        WriteAttachments(context, *document, kTwoAttachments);
        WriteSignatureFields(context, *document, kTwoFields);
        ReadAttachments(context, *document, attachments);
        ReadSignatureFields(context, *document, fields);
    };
    SweepFaults(operation, [&] {
        WriteAttachments(context, *document, kTwoAttachments);
        WriteSignatureFields(context, *document, kTwoFields);
        EXPECT_EQ(ReadAttachmentList(), kTwoAttachments);
        EXPECT_EQ(ReadFieldList(), kTwoFields);
    });
}

} // namespace
} // namespace sm
