// SPDX-License-Identifier: GPL-3.0-or-later
// The transfer settings object, as other programs see it.
#pragma once

#include "hostobjects/cAcadTransferSettings.h"
#include "windows/WindowsSurroundings.h"
#include "windows/objects/DualObject.h"
#include "windows/objects/Identities.h"

#include <TarnwickSmPubAcad.h>

namespace sm::windows {

class TransferSettingsObject final : public DualObject<::IAcadTransferSettings> {
public:
    STDMETHODIMP Restore() override;
    STDMETHODIMP Update() override;
    STDMETHODIMP get_TransferTextHlinks(VARIANT_BOOL* value) override;
    STDMETHODIMP put_TransferTextHlinks(VARIANT_BOOL value) override;
    STDMETHODIMP get_TransferDrawingHlinks(VARIANT_BOOL* value) override;
    STDMETHODIMP put_TransferDrawingHlinks(VARIANT_BOOL value) override;
    STDMETHODIMP get_TransferBlockHlinks(VARIANT_BOOL* value) override;
    STDMETHODIMP put_TransferBlockHlinks(VARIANT_BOOL value) override;
    STDMETHODIMP get_TransferVPortHlinks(VARIANT_BOOL* value) override;
    STDMETHODIMP put_TransferVPortHlinks(VARIANT_BOOL value) override;
    STDMETHODIMP get_TransferAttributes(VARIANT_BOOL* value) override;
    STDMETHODIMP put_TransferAttributes(VARIANT_BOOL value) override;

private:
    const char* SourceName() const override { return SM_TRANSFER_SETTINGS_PROG_ID; }

    WindowsSurroundings m_surroundings;
    sm::cAcadTransferSettings m_settings{m_surroundings.All()};
};

} // namespace sm::windows
