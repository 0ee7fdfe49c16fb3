// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/mdlAcadHelper.h"

#include "plugin/CarryPast.h"
#include "plugin/Present.h"
#include "ports/IAcadApplication.h"
#include "ports/IPubDoc.h"
#include "settings/mdlWinReg.h"

namespace sm {
namespace {

constexpr const char* kHostCorruptedText =
    "Certain AutoCAD functionality, which allows 3rd party plugins to operate, has been corrupted.\r\n"
    "This is typically caused by uninstalling AutoCAD 14 after installing AutoCAD 2000. The problem\r\n"
    "can be corrected by reinstalling AutoCAD 2000.";

constexpr const char* kUnknownErrorText =
    "An unknown error occurred during Sheetmaker PDF execution. It is suggested that you send an email\r\n"
    "to Tarnwick Technical Support at support@tarnwick.example and attach the Log File that was created. \r\n"
    "\r\n"
    "Would you like to view the log file now?";

/// The log line of the first host object that can't be reached; empty when all can.
std::string UnreachableObject(CallContext& context, const std::shared_ptr<IAcadApplication>& app)
{
    if (app == nullptr)
        return "  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX Application object.";
    const auto document = CarryPast(context, "ValidateHost", [&] { return app->ActiveDocument(); });
    if (!document || *document == nullptr)
        return "  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX ActiveDrawing object.";
    const auto layout = CarryPast(context, "ValidateHost", [&] { return (*document)->ActiveLayout(); });
    if (!layout || *layout == nullptr)
        return "  VALIDATION ERROR: Could Not Validate AutoCAD ActiveX ActiveLayout object.";
    return {};
}

} // namespace

void LogLine(CallContext& context, const std::string& text)
{
    if (context.g_Log != nullptr)
        context.g_Log->WriteLogLine(text);
}

void TryLogLine(CallContext& context, const std::string& text) noexcept
{
    CarryPast(context, "LogLine", [&] { LogLine(context, text); });
}

bool ValidateHost(CallContext& context, VariantBool quiet, const std::shared_ptr<IAcadApplication>& app)
{
    const std::string failure = UnreachableObject(context, app);
    if (failure.empty())
        return true;
    TryLogLine(context, failure);
    if (quiet == kFalse)
        ShowProductMessage(context, kHostCorruptedText, MessageButtons::Ok, MessageIcon::Critical, 390);
    return false;
}

MessageAnswer ShowProductMessage(CallContext& context, const std::string& text, MessageButtons buttons,
                                 MessageIcon icon, std::int32_t helpContext)
{
    Surroundings& surroundings = context.surroundings;
    return surroundings.desktop.ShowMessage(
        Message{text, kProductTitle, buttons, icon, HelpFilePath(surroundings), helpContext});
}

void OfferConversionLog(CallContext& context)
{
    const MessageAnswer answer =
        ShowProductMessage(context, kUnknownErrorText, MessageButtons::OkCancel, MessageIcon::Critical, 170);
    if (answer != MessageAnswer::Ok || context.g_Log == nullptr)
        return;
    CarryPast(context, "ShowLogFile", [&] { context.g_Log->ShowLogFile(kLogFileName); });
}

void TellOfFailedDocument(CallContext& context, IPubDoc& pubDoc)
{
    const auto remedy = CarryPast(context, "RemedyText", [&] { return pubDoc.RemedyText(); }).value_or("");
    if (remedy.empty())
        OfferConversionLog(context);
    else
        ShowProductMessage(context, remedy, MessageButtons::Ok, MessageIcon::Exclamation, 170);
}

IAcadApplication& HostApplication(const CallContext& context)
{
    if (context.g_AcadApp == nullptr)
        throw HostError("The host application is not available.");
    return *context.g_AcadApp;
}

IAcadDocument& ActiveDrawing(const CallContext& context)
{
    if (context.g_AcadDoc == nullptr)
        throw HostError("The drawing is not available.");
    return *context.g_AcadDoc;
}

std::shared_ptr<IAcadPreferences> HostPreferences(const CallContext& context)
{
    return Present(HostApplication(context).Preferences(), "Preferences");
}

} // namespace sm
