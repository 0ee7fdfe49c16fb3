// SPDX-License-Identifier: GPL-3.0-or-later
// What every publishing library promises: the embedded one and the one that stands in for it in other rooms' tests.

#include "doubles/RecordingLibrary.h"
#include "publisher/PublisherStand.h"

#include <set>

namespace sm::publisher {
namespace {

enum class Kind { Embedded, Recording };

class PublishingLibraryContract : public PublisherTest, public testing::WithParamInterface<Kind> {
protected:
    std::unique_ptr<IPublishingLibrary> Make()
    {
        if (GetParam() == Kind::Embedded) {
            return Library();
        }
        return std::make_unique<RecordingLibrary>();
    }
    /// Plots a page to a name that `doc` gave, where the library looks at files.
    std::int32_t AddPage(IPubDoc& doc)
    {
        const std::string path = doc.NewPsFileName();
        if (GetParam() == Kind::Embedded) {
            WriteFile(path, "%!\nshowpage\n");
        }
        return doc.AddPsFile(path, 595.3, 841.9, 600, 1, "");
    }
};

TEST_P(PublishingLibraryContract, EveryFileNameIsNew)
{
    const auto library = Make();
    const auto doc = library->CreatePubDoc();
    std::set<std::string> names;
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(names.insert(doc->NewPsFileName()).second);
    }
    EXPECT_FALSE(names.contains(""));
}

TEST_P(PublishingLibraryContract, MarksAreCountedForTheCurrentFile)
{
    const auto library = Make();
    const auto doc = library->CreatePubDoc();
    EXPECT_EQ(doc->PendingMarkCount(), 0);
    ASSERT_EQ(AddPage(*doc), 0);
    EXPECT_EQ(doc->PendingMarkCount(), 0);
    WriteFile(Out("file.txt"), "x");
    bool added = false;
    EXPECT_GE(doc->AddTextStampMark(0, 1, 2, "text", "Helvetica", 12, 0, 0), 0);
    EXPECT_GE(doc->AddSignatureFieldMark(0, 1, 2, 3, 4, "name", "label"), 0);
    EXPECT_GE(doc->AddAttachmentMark(0, 1, 2, Out("file.txt"), added), 0);
    EXPECT_TRUE(added);
    EXPECT_GE(doc->AddLinkMark(0, 1, 2, 3, 4, "url"), 0);
    EXPECT_GE(doc->AddPropertyMark(0, "name", "value"), 0);
    EXPECT_EQ(doc->PendingMarkCount(), 5);
    doc->DiscardPendingMarks();
    EXPECT_EQ(doc->PendingMarkCount(), 0);
    EXPECT_GE(doc->AddLinkMark(0, 1, 2, 3, 4, "url"), 0);
    EXPECT_EQ(doc->PendingMarkCount(), 1);
    ASSERT_EQ(AddPage(*doc), 0);
    EXPECT_EQ(doc->PendingMarkCount(), 0);
}

TEST_P(PublishingLibraryContract, SavesAndHasNoErrorToTell)
{
    const auto library = Make();
    const auto doc = library->CreatePubDoc();
    ASSERT_EQ(AddPage(*doc), 0);
    doc->SetDocSummary("title", "author", LocalDateTime{}, LocalDateTime{});
    doc->SetDocInfo("Creator", "creator");
    EXPECT_GE(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0);
    EXPECT_EQ(doc->LastErrorText(), "");
}

TEST_P(PublishingLibraryContract, ThereIsALogOnceOneWasOpened)
{
    const auto library = Make();
    EXPECT_FALSE(library->CreateConversionLog()->ShowLogFile("SmPdfAcad.log"));
    const auto log = library->CreateConversionLog();
    log->OpenLog("SmPdfAcad.log", "title");
    log->WriteLogLine("line");
    log->CloseLog();
    EXPECT_TRUE(library->CreateConversionLog()->ShowLogFile("SmPdfAcad.log"));
}

INSTANTIATE_TEST_SUITE_P(Libraries, PublishingLibraryContract, testing::Values(Kind::Embedded, Kind::Recording),
                         [](const auto& made) { return made.param == Kind::Embedded ? "Embedded" : "Recording"; });

} // namespace
} // namespace sm::publisher
