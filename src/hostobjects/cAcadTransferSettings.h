// SPDX-License-Identifier: GPL-3.0-or-later
// The five transfer switches as an edit buffer over the per-user settings.
#pragma once

#include "ports/IAcadTransferSettings.h"
#include "ports/Surroundings.h"
#include "settings/TransferFlags.h"

namespace sm {

/// Loads the stored switches when made; `surroundings` must outlive it. A written switch keeps its 16-bit value in the
/// buffer; what `Update` stores for any value but True is "0".
class cAcadTransferSettings : public IAcadTransferSettings {
public:
    explicit cAcadTransferSettings(Surroundings& surroundings);

    VariantBool TransferTextHlinks() override { return m_Current.TransferTextHlinks; }
    void SetTransferTextHlinks(VariantBool value) override { m_Current.TransferTextHlinks = value; }
    VariantBool TransferDrawingHlinks() override { return m_Current.TransferDrawingHlinks; }
    void SetTransferDrawingHlinks(VariantBool value) override { m_Current.TransferDrawingHlinks = value; }
    VariantBool TransferBlockHlinks() override { return m_Current.TransferBlockHlinks; }
    void SetTransferBlockHlinks(VariantBool value) override { m_Current.TransferBlockHlinks = value; }
    VariantBool TransferVPortHlinks() override { return m_Current.TransferVPortHlinks; }
    void SetTransferVPortHlinks(VariantBool value) override { m_Current.TransferVPortHlinks = value; }
    VariantBool TransferAttributes() override { return m_Current.TransferAttributes; }
    void SetTransferAttributes(VariantBool value) override { m_Current.TransferAttributes = value; }

private:
    void IAcadTransferSettings_Restore() override;
    void IAcadTransferSettings_Update() override;

    Surroundings& m_surroundings;
    TransferFlags m_Current;
    const TransferFlags m_Saved; ///< as loaded
};

} // namespace sm
