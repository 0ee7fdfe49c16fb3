// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/mdlAcadHelper.h"

#include "doubles/TestHouse.h"
#include "plugin/CallScope.h"
#include "ports/HostError.h"
#include "ports/IPubDoc.h"

#include <utility>

namespace sm {
namespace {

const char* const kHostIsCorrupted =
    "Certain AutoCAD functionality, which allows 3rd party plugins to operate, has been corrupted.\r\nThis is "
    "typically caused by uninstalling AutoCAD 14 after installing AutoCAD 2000. The problem\r\ncan be corrected by "
    "reinstalling AutoCAD 2000.";

class HostValidation : public TestHouse {
protected:
    HostValidation() { BeginCall(); }
    void ExpectInvalid(const std::string& line)
    {
        EXPECT_FALSE(ValidateHost(context, kFalse, host.Application()));
        EXPECT_EQ(Log(), (Lines{line}));
        EXPECT_EQ(Messages(), (std::vector<Message>{
                                  ProductMessage(kHostIsCorrupted, MessageButtons::Ok, MessageIcon::Critical, 390)}));
    }
};

TEST_F(HostValidation, AcceptsAHostWithDrawingAndActiveLayout)
{
    EXPECT_TRUE(ValidateHost(context, kFalse, host.Application()));
}

TEST_F(HostValidation, NoApplication)
{
    EXPECT_FALSE(ValidateHost(context, kFalse, nullptr));
    EXPECT_EQ(Log(), (Lines{"  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX Application object."}));
    EXPECT_EQ(Messages(),
              (std::vector<Message>{ProductMessage(kHostIsCorrupted, MessageButtons::Ok, MessageIcon::Critical, 390)}));
}

TEST_F(HostValidation, NoOpenDrawing)
{
    host.facts.ActiveDocument = nullptr;
    ExpectInvalid("  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX ActiveDrawing object.");
}

TEST_F(HostValidation, UnreadableDrawing)
{
    host.tape.FailCall("Application.ActiveDocument", "busy");
    ExpectInvalid("  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX ActiveDrawing object.");
}

TEST_F(HostValidation, NoActiveLayout)
{
    drawing->ActiveLayout = nullptr;
    ExpectInvalid("  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX ActiveLayout object.");
}

TEST_F(HostValidation, UnreadableActiveLayout)
{
    host.tape.FailCall("Document.ActiveLayout", "busy");
    ExpectInvalid("  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX ActiveLayout object.");
}

TEST_F(HostValidation, QuietLogsAndShowsNothing)
{
    drawing->ActiveLayout = nullptr;
    EXPECT_FALSE(ValidateHost(context, kTrue, host.Application()));
    EXPECT_EQ(Log(), (Lines{"  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX ActiveLayout object."}));
}

TEST_F(HostValidation, WithoutALogTheLineIsDropped)
{
    context.g_Log = nullptr;
    EXPECT_FALSE(ValidateHost(context, kTrue, nullptr));
    EXPECT_EQ(Log(), Lines{});
}

TEST_F(HostValidation, ALogThatFailsDoesNotHideTheMessage)
{
    library.tape.FailCall("Log.WriteLogLine", "disk full");
    EXPECT_FALSE(ValidateHost(context, kFalse, nullptr));
    EXPECT_EQ(Messages().size(), 1U);
    EXPECT_EQ(observer.carriedPast, (Lines{"LogLine: disk full"}));
}

class ConversionLog : public TestHouse {};

TEST_F(ConversionLog, ALineGoesWholeToTheOpenLog)
{
    BeginCall();
    LogLine(context, "  Layout Tab:  two blanks ");
    EXPECT_EQ(Log(), (Lines{"  Layout Tab:  two blanks "}));
}

TEST_F(ConversionLog, BeforeOpeningAndAfterClosingALineIsDropped)
{
    EXPECT_NO_THROW(LogLine(context, "too early"));
    {
        const CallScope call(context, host.Application(), CallScope::ClearFirst::Log);
    }
    EXPECT_NO_THROW(LogLine(context, "too late"));
    EXPECT_EQ(Log(), Lines{});
}

TEST_F(ConversionLog, AFailingWriteReachesTheCaller)
{
    BeginCall();
    library.tape.FailCall("Log.WriteLogLine", "disk full");
    EXPECT_THROW(LogLine(context, "text"), HostError);
    TryLogLine(context, "text");
    EXPECT_EQ(observer.carriedPast, (Lines{"LogLine: disk full"}));
}

/// A document that knows a remedy, and does nothing else.
class RemediedDoc final : public IPubDoc {
public:
    explicit RemediedDoc(std::string remedy) : m_remedy(std::move(remedy)) {}
    using Text = const std::string&;
    std::int32_t AddPsFile(Text, double, double, std::int32_t, std::int32_t, Text) override { return -1; }
    std::string NewPsFileName() override { return {}; }
    std::int32_t AddTextStampMark(std::int32_t, double, double, Text, Text, std::int32_t, std::int32_t,
                                  std::int32_t) override
    {
        return -1;
    }
    std::int32_t AddSignatureFieldMark(std::int32_t, double, double, double, double, Text, Text) override { return -1; }
    std::int32_t AddAttachmentMark(std::int32_t, double, double, Text, bool&) override { return -1; }
    std::int32_t AddLinkMark(std::int32_t, double, double, double, double, Text) override { return -1; }
    std::int32_t AddPropertyMark(std::int32_t, Text, Text) override { return -1; }
    std::int32_t PendingMarkCount() override { return 0; }
    void DiscardPendingMarks() override {}
    void SetDocInfo(Text, Text) override {}
    std::string PromptForPdfName(Text, std::int32_t, Text) override { return {}; }
    std::int32_t SaveToPdf(Text, std::int32_t, bool, bool, std::int32_t) override { return -1; }
    void SetDocSummary(Text, Text, LocalDateTime, LocalDateTime) override {}
    std::string LastErrorText() override { return {}; }
    std::string RemedyText() override
    {
        if (m_remedy == "fail")
            throw HostError("no remedy can be told");
        return m_remedy;
    }

private:
    std::string m_remedy;
};

TEST_F(HostValidation, TheRemedyOfAFailedDocumentIsTheOneMessage)
{
    RemediedDoc doc("Install what is missing.");
    TellOfFailedDocument(context, doc);
    EXPECT_EQ(Messages(), (std::vector<Message>{ProductMessage("Install what is missing.", MessageButtons::Ok,
                                                               MessageIcon::Exclamation, 170)}));
}

TEST_F(HostValidation, WithoutARemedyTheLogIsOffered)
{
    for (const char* const remedy : {"", "fail"}) {
        RemediedDoc doc(remedy);
        TellOfFailedDocument(context, doc);
        const std::vector<Message> shown = Messages();
        ASSERT_EQ(shown.size(), 1U) << remedy;
        EXPECT_EQ(shown[0].buttons, MessageButtons::OkCancel) << remedy;
        EXPECT_EQ(shown[0].helpContext, 170) << remedy;
    }
}

} // namespace
} // namespace sm
