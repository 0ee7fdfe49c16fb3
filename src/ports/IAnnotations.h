// The annotation pass, as the plot loop asks for it.
#pragma once

#include "ports/IAcadDocument.h"
#include "ports/IPubDoc.h"
#include "ports/Variant.h"

namespace sm {

struct TransferFlags {
    VariantBool TransferTextHlinks = kFalse;
    VariantBool TransferDrawingHlinks = kFalse;
    VariantBool TransferBlockHlinks = kFalse;
    VariantBool TransferVPortHlinks = kFalse;
    VariantBool TransferAttributes = kFalse;
    friend bool operator==(const TransferFlags&, const TransferFlags&) = default;
};

class IAnnotations {
public:
    virtual ~IAnnotations() = default;
    /// Queues the active layout's marks on `pubDoc`. True when every section ran. Never throws.
    virtual bool AddPdfMarks(IPubDoc& pubDoc, IAcadDocument& document, const TransferFlags& transfer, bool quiet) = 0;
};

} // namespace sm
