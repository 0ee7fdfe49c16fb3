// SPDX-License-Identifier: GPL-3.0-or-later
// Host validation and the conversion log: the services that every module leans on.
#pragma once

#include "plugin/CallContext.h"
#include "ports/IDesktop.h"
#include "ports/Variant.h"

namespace sm {

class IAcadPreferences;
class IPubDoc;

inline constexpr const char* kProductTitle = "Tarnwick Sheetmaker PDF";
inline constexpr const char* kLogFileName = "SmPdfAcad.log";

/// Writes `text` as one line to the open log; nothing when none is open. Throws what the log throws.
void LogLine(CallContext& context, const std::string& text);

/// LogLine for callers that carry on past a log that fails.
void TryLogLine(CallContext& context, const std::string& text) noexcept;

/// True when the application, its active drawing and that drawing's active layout can be reached. Otherwise logs
/// which one failed and, unless `quiet`, shows the corrupted-host message. Never throws.
bool ValidateHost(CallContext& context, VariantBool quiet, const std::shared_ptr<IAcadApplication>& app);

/// A message of the product: title and help file filled in. Returns the answer.
MessageAnswer ShowProductMessage(CallContext& context, const std::string& text, MessageButtons buttons,
                                 MessageIcon icon, std::int32_t helpContext);

/// The message of an unknown failure; shows the conversion log when the user asks for it. Never throws.
void OfferConversionLog(CallContext& context);

/// The document's own message of how its last failure is mended, where it knows one; else as OfferConversionLog. Never
/// throws.
void TellOfFailedDocument(CallContext& context, IPubDoc& pubDoc);

/// The call's application and drawing. Throw HostError outside a call, or when the host gave none.
IAcadApplication& HostApplication(const CallContext& context);
IAcadDocument& ActiveDrawing(const CallContext& context);
/// The application's preferences, never null. Throws HostError likewise.
std::shared_ptr<IAcadPreferences> HostPreferences(const CallContext& context);

} // namespace sm
