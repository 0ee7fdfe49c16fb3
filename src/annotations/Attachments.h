// SPDX-License-Identifier: GPL-3.0-or-later
// File attachments and signature fields of a sheet.
#pragma once

#include "annotations/MarkState.h"

namespace sm {

/// The attachment section. False after a host error, which it logs.
bool AddAttachments(MarkState& state);

/// The signature-field section; corners are handed over as entered. False after a host error, which it logs.
bool AddSignatureFields(MarkState& state);

} // namespace sm
