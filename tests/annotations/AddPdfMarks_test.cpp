// SPDX-License-Identifier: GPL-3.0-or-later
// The whole pass over one sheet: order, log, error exits, and every call failing once and onwards.
#include "annotations/MarkHouse.h"
#include "doubles/LaidDownTexts.h"
#include "settings/mdlDataKegIO.h"

namespace sm {
namespace {

const bool kLaidDown = RequireLaidDownTexts({
    {"TEXT STAMP"},
    {"FILE ATTACHMENTS"},
    {"DIGITAL SIGNATURE FIELDS"},
    {"HYPERLINKS"},
    {"BLOCK ATTRIBUTES"},
    {"  [None]"},
    {"  '", false, "]"},
    {"  ", false, "'"},
    {"RUNTIME ERROR: ", false},
    {"ADDPDFMARK RUNTIME ERROR: ", false},
    {"ADDTEXTSTAMP RUNTIME ERROR: ", false},
    {"ADDDIGSIG RUNTIME ERROR: ", false},
    {"A file attachment could not be added because it was missing or locked by another application."},
});

class AddPdfMarksTest : public MarkHouse {
protected:
    void Furnish()
    {
        StampSettings stamp;
        stamp.StampIndex = 2;
        stamp.LayoutName = "Ground";
        stamp.X = 10;
        stamp.Y = 20;
        WriteStamp(context, *context.g_AcadDoc, stamp);
        WriteAttachments(context, *context.g_AcadDoc, {{"C:\\a.pdf", 1, 2, "Ground"}});
        WriteSignatureFields(context, *context.g_AcadDoc, {{"Sig1", "Approver", 1, 2, 3, 4, "Ground"}});
        drawing->Blocks.push_back({"TITLE", {}});
        ground->Block.Entities = {Linked("AcDbText", {{"https://one.example", ""}}),
                                  Reference({"TITLE", {}, {{"DRAWN_BY", "JS"}}, {}})};
    }
};

TEST_F(AddPdfMarksTest, ASheetWithoutMarksLogsItsHeadings)
{
    EXPECT_TRUE(AddMarks(kEverySwitch));
    EXPECT_EQ(observer.annotationsLost, Lines{});
    EXPECT_EQ(Log(), (Lines{"TEXT STAMP", "  [None]", "FILE ATTACHMENTS", "  [None]", "DIGITAL SIGNATURE FIELDS",
                            "  [None]", "HYPERLINKS", "BLOCK ATTRIBUTES", "  [None]"}));
}

TEST_F(AddPdfMarksTest, RunsItsSectionsInOrder)
{
    Furnish();
    EXPECT_TRUE(AddMarks(kEverySwitch));
    EXPECT_EQ(Log(),
              (Lines{"TEXT STAMP", "  'FOR REVIEW', Helvetica, 24, [10 20]", "FILE ATTACHMENTS", "  'C:\\a.pdf', [1 2]",
                     "DIGITAL SIGNATURE FIELDS", "  'Sig1', 'Approver', [1 2 3 4]", "HYPERLINKS",
                     "  'https://one.example', [10 20 30 40]", "BLOCK ATTRIBUTES", "  TITLE_1/DRAWN_BY = 'JS'"}));
    EXPECT_EQ(Marks(), (Lines{"PubDoc.AddTextStampMark 0 | 10 | 20 | FOR REVIEW | Helvetica | 24 | 255 | 0",
                              "PubDoc.AddAttachmentMark 0 | 1 | 2 | C:\\a.pdf",
                              "PubDoc.AddSignatureFieldMark 0 | 1 | 2 | 3 | 4 | Sig1 | Approver",
                              "PubDoc.AddLinkMark 0 | 10 | 20 | 30 | 40 | https://one.example",
                              "PubDoc.AddPropertyMark 0 | TITLE_1/DRAWN_BY | JS"}));
    EXPECT_EQ(windows.calls, Lines{});
}

TEST_F(AddPdfMarksTest, WalksInsideTheProgressWindowUnlessQuiet)
{
    Furnish();
    EXPECT_TRUE(AddMarks(kEverySwitch, false));
    EXPECT_EQ(windows.calls, Lines{"RunProgress"});
    EXPECT_EQ(Marks().size(), 5u);
    Log();
}

TEST_F(AddPdfMarksTest, AFailingWalkTakesTheErrorExitInBothModes)
{
    Furnish();
    host.tape.FailCall("Entity.Hyperlinks", "Bad entity");
    for (const bool quiet : {true, false}) {
        EXPECT_FALSE(AddMarks(kEverySwitch, quiet));
        const Lines log = Log();
        ASSERT_EQ(log.size(), 8u);
        EXPECT_EQ(log[6], "HYPERLINKS");
        EXPECT_EQ(log[7], "ADDPDFMARK RUNTIME ERROR: Bad entity");
    }
    EXPECT_EQ(observer.annotationsLost, (Lines{"Bad entity", "Bad entity"}));
}

TEST_F(AddPdfMarksTest, AnObjectThatIsNotThereTakesTheErrorExit)
{
    const struct {
        const char* call;
        int answersBefore;
        const char* lastLine;
    } rows[] = {
        {"Document.ActiveLayout", 0, "ADDPDFMARK RUNTIME ERROR: There is no ActiveLayout."},
        {"Document.ActiveLayout", 1, "ADDPDFMARK RUNTIME ERROR: There is no ActiveLayout."},
        {"Document.ActiveLayout", 2, "ADDPDFMARK RUNTIME ERROR: The drawing's settings could not be loaded"},
        {"Document.ActiveLayout", 3, "ADDPDFMARK RUNTIME ERROR: There is no ActiveLayout."},
        {"Layout.Block", 1, "ADDPDFMARK RUNTIME ERROR: There is no Block."},
        {"Block.Item", 0, "ADDPDFMARK RUNTIME ERROR: There is no Entity."},
        {"Entity.Hyperlinks", 0, "ADDPDFMARK RUNTIME ERROR: There is no Hyperlinks."},
        {"Hyperlinks.Item", 0, "ADDPDFMARK RUNTIME ERROR: There is no Hyperlink."},
        {"Document.Utility", 4, "ADDPDFMARK RUNTIME ERROR: There is no Utility."},
        {"Document.Blocks", 0, "ADDPDFMARK RUNTIME ERROR: There is no Blocks."},
        {"Blocks.Item", 0, "ADDPDFMARK RUNTIME ERROR: There is no Block."},
    };
    Furnish();
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.call) + " after " + std::to_string(row.answersBefore));
        host.tape.StopFailing();
        host.tape.AnswerNothing(row.call, row.answersBefore);
        EXPECT_FALSE(AddMarks(kEverySwitch));
        EXPECT_EQ(Log().back(), row.lastLine);
    }
}

TEST_F(AddPdfMarksTest, AFailingSectionDoesNotEndThePass)
{
    Furnish();
    library.tape.FailCall("PubDoc.AddTextStampMark", "No font");
    library.tape.FailCall("PubDoc.AddSignatureFieldMark", "No field");
    EXPECT_TRUE(AddMarks(kEverySwitch));
    EXPECT_EQ(observer.annotationsLost, (Lines{"No font", "No field"}));
    EXPECT_EQ(Log(),
              (Lines{"TEXT STAMP", "  'FOR REVIEW', Helvetica, 24, [10 20]", "ADDTEXTSTAMP RUNTIME ERROR: No font",
                     "FILE ATTACHMENTS", "  'C:\\a.pdf', [1 2]", "DIGITAL SIGNATURE FIELDS",
                     "  'Sig1', 'Approver', [1 2 3 4]", "ADDDIGSIG RUNTIME ERROR: No field", "HYPERLINKS",
                     "  'https://one.example', [10 20 30 40]", "BLOCK ATTRIBUTES", "  TITLE_1/DRAWN_BY = 'JS'"}));
}

/// Runs the pass with call 1 failing, then call 2, and so on until none was made to fail. Gives how many were.
int Sweep(FaultPlan::Mode mode, FaultPlan::Kind kind = FaultPlan::Kind::Throws)
{
    int injected = 0;
    for (int countdown = 1;; ++countdown) {
        HouseParts house;
        house.BeginCall();
        const auto pubDoc = house.library.CreatePubDoc();
        house.drawing->Blocks.push_back({"TITLE", {}});
        house.ground->Block.Entities = {
            {"AcDbText", {1, 2, 0}, {3, 4, 0}, {{"u", ""}}, {}},
            {"AcDbBlockReference", {}, {}, {}, BlockReferenceFacts{"TITLE", {}, {{"A", "1"}}, {{"B", "2"}}}}};
        FaultPlan plan{mode, countdown, kind};
        house.host.tape.faults = house.library.tape.faults = &plan;
        AddPdfMarks(house.context, *pubDoc, *house.context.g_AcadDoc, kEverySwitch, countdown % 2 == 0);
        plan.mode = FaultPlan::Mode::None;
        (void)house.library.TakeLog();
        EXPECT_TRUE(AddPdfMarks(house.context, *pubDoc, *house.context.g_AcadDoc, kEverySwitch, true))
            << "after call " << countdown << " failed";
        if (plan.injected == 0)
            return injected;
        injected += plan.injected;
    }
}

TEST(AddPdfMarksFaults, NothingEscapesAndTheNextPassSucceeds)
{
    EXPECT_GT(Sweep(FaultPlan::Mode::Once), 30);
    EXPECT_GT(Sweep(FaultPlan::Mode::Once, FaultPlan::Kind::AnswersNothing), 20);
    EXPECT_GT(Sweep(FaultPlan::Mode::Onwards), 30);
}

} // namespace
} // namespace sm
