// SPDX-License-Identifier: GPL-3.0-or-later
// The sections of file attachments and signature fields.
#include "annotations/Attachments.h"
#include "annotations/MarkHouse.h"

namespace sm {
namespace {

class AttachmentsTest : public MarkHouse {
protected:
    MarkState With(const std::vector<AttachmentEntry>& attachments, bool quiet = false)
    {
        MarkState state = State();
        state.quietMode = quiet;
        state.keg.Layouts[0].Attachments = attachments;
        return state;
    }
    MarkState WithFields(const std::vector<SignatureFieldEntry>& fields)
    {
        MarkState state = State();
        state.keg.Layouts[0].SignatureFields = fields;
        return state;
    }
};

TEST_F(AttachmentsTest, WritesNoneForAnEmptyListOnly)
{
    MarkState empty = With({});
    EXPECT_TRUE(AddAttachments(empty));
    EXPECT_EQ(Log(), Lines{"  [None]"});
    EXPECT_TRUE(AddSignatureFields(empty));
    EXPECT_EQ(Log(), Lines{"  [None]"});
    MarkState others = With({{"C:\\a.pdf", 1, 2, "Upper"}});
    others.keg.Layouts[0].SignatureFields = {{"Sig1", "", 0, 0, 1, 1, "Upper"}};
    EXPECT_TRUE(AddAttachments(others));
    EXPECT_TRUE(AddSignatureFields(others));
    EXPECT_EQ(Log(), Lines{});
    EXPECT_EQ(Marks(), Lines{});
}

TEST_F(AttachmentsTest, PlacesEachIconOnAWholePoint)
{
    MarkState state = With({{"C:\\a.pdf", 100.5, 200.5, "Ground"}, {"C:\\b.xls", 3, 4, "Ground"}});
    EXPECT_TRUE(AddAttachments(state));
    EXPECT_EQ(Log(), (Lines{"  'C:\\a.pdf', [100 200]", "  'C:\\b.xls', [3 4]"}));
    EXPECT_EQ(Marks(), (Lines{"PubDoc.AddAttachmentMark 0 | 100 | 200 | C:\\a.pdf",
                              "PubDoc.AddAttachmentMark 0 | 3 | 4 | C:\\b.xls"}));
}

TEST_F(AttachmentsTest, AMissingFileIsToldUnlessQuiet)
{
    library.attachmentsAdded = false;
    MarkState loud = With({{"C:\\a.pdf", 1, 2, "Ground"}});
    EXPECT_TRUE(AddAttachments(loud));
    EXPECT_EQ(Messages(),
              (std::vector<Message>{ProductMessage(
                  "A file attachment could not be added because it was missing or locked by another application.",
                  MessageButtons::Ok, MessageIcon::Exclamation, 310)}));
    MarkState quiet = With({{"C:\\a.pdf", 1, 2, "Ground"}, {"C:\\b.pdf", 1, 2, "Ground"}}, true);
    EXPECT_TRUE(AddAttachments(quiet));
    EXPECT_EQ(Marks().size(), 3u);
    EXPECT_EQ(Log(), Lines{});
}

TEST_F(AttachmentsTest, AnErrorEndsTheSection)
{
    MarkState state = With({{"C:\\a.pdf", 1, 2, "Ground"}, {"C:\\b.pdf", 1, 2, "Ground"}});
    library.tape.FailCall("PubDoc.AddAttachmentMark", "Disk full");
    EXPECT_FALSE(AddAttachments(state));
    EXPECT_EQ(Log(), Lines{"RUNTIME ERROR: Disk full"});
}

TEST_F(AttachmentsTest, HandsFieldCornersOverAsEntered)
{
    MarkState state = WithFields({{"Sig1", "Approver", 100.5, 90, 20, 10.25, "Ground"}});
    EXPECT_TRUE(AddSignatureFields(state));
    EXPECT_EQ(Log(), Lines{"  'Sig1', 'Approver', [100 90 20 10]"});
    EXPECT_EQ(Marks(), Lines{"PubDoc.AddSignatureFieldMark 0 | 100 | 90 | 20 | 10 | Sig1 | Approver"});
}

TEST_F(AttachmentsTest, AFieldErrorHasItsOwnPrefix)
{
    MarkState state = WithFields({{"Sig1", "", 0, 0, 1, 1, "Ground"}});
    host.tape.FailCall("Utility.TranslateCoordinates", "No view");
    EXPECT_FALSE(AddSignatureFields(state));
    EXPECT_EQ(Log(), Lines{"ADDDIGSIG RUNTIME ERROR: No view"});
}

} // namespace
} // namespace sm
