// Host validation and the conversion log: the two services that every module leans on.
#pragma once

#include "plugin/CallContext.h"

namespace sm {

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

} // namespace sm
