// The annotation pass of one sheet: stamp, attachments, signature fields, hyperlinks and block attributes.
#pragma once

#include "annotations/BlockNames.h"
#include "annotations/MarkState.h"

namespace sm {

/// Queues the active layout's marks on `pubDoc`, section by section, and logs them. `names` runs on over the sheets of
/// one conversion. True when all sections ran; false when the mapping, the load or the walk failed. Never throws.
bool AddPdfMarks(CallContext& context, BlockNames& names, IPubDoc& pubDoc, IAcadDocument& document,
                 const TransferFlags& transfer, bool quietMode);

} // namespace sm
