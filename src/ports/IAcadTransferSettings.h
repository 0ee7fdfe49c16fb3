// SPDX-License-Identifier: GPL-3.0-or-later
// The interface by which the front end edits the five transfer switches. No operation throws.
#pragma once

#include "ports/Variant.h"

namespace sm {

class IAcadTransferSettings {
public:
    virtual ~IAcadTransferSettings() = default;
    /// Writes the switches as they were when the object was made.
    void Restore() { IAcadTransferSettings_Restore(); }
    /// Writes the switches as edited.
    void Update() { IAcadTransferSettings_Update(); }

    virtual VariantBool TransferTextHlinks() = 0;
    virtual void SetTransferTextHlinks(VariantBool value) = 0;
    virtual VariantBool TransferDrawingHlinks() = 0;
    virtual void SetTransferDrawingHlinks(VariantBool value) = 0;
    virtual VariantBool TransferBlockHlinks() = 0;
    virtual void SetTransferBlockHlinks(VariantBool value) = 0;
    virtual VariantBool TransferVPortHlinks() = 0;
    virtual void SetTransferVPortHlinks(VariantBool value) = 0;
    virtual VariantBool TransferAttributes() = 0;
    virtual void SetTransferAttributes(VariantBool value) = 0;

private:
    virtual void IAcadTransferSettings_Restore() = 0;
    virtual void IAcadTransferSettings_Update() = 0;
};

} // namespace sm
