// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/mdlAcadHelper.h"

#include "doubles/TestHouse.h"
#include "plugin/CallScope.h"

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

} // namespace
} // namespace sm
