// SPDX-License-Identifier: GPL-3.0-or-later
// The five switches that say which annotations of a drawing go into the PDF.
#pragma once

#include "ports/Variant.h"

namespace sm {

/// Any value but False counts as on.
struct TransferFlags {
    VariantBool TransferTextHlinks = kFalse;
    VariantBool TransferDrawingHlinks = kFalse;
    VariantBool TransferBlockHlinks = kFalse;
    VariantBool TransferVPortHlinks = kFalse;
    VariantBool TransferAttributes = kFalse;
    friend bool operator==(const TransferFlags&, const TransferFlags&) = default;
};

} // namespace sm
