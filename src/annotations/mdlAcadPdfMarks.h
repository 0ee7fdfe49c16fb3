// SPDX-License-Identifier: GPL-3.0-or-later
// The annotation pass of one sheet: stamp, attachments, signature fields, hyperlinks and block attributes.
#pragma once

#include "plugin/CallContext.h"
#include "settings/TransferFlags.h"

namespace sm {

class IPubDoc;

/// Queues the active layout's marks on `pubDoc`, section by section, and logs them. True when all sections ran; false
/// when the mapping, the load or the walk failed. The run's observer hears of what is lost, a section's marks too.
/// Never throws.
bool AddPdfMarks(CallContext& context, IPubDoc& pubDoc, IAcadDocument& document, const TransferFlags& transfer,
                 bool quietMode);

} // namespace sm
