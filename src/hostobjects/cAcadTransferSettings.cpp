// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostobjects/cAcadTransferSettings.h"

#include "settings/GeneralSettingsIO.h"

namespace sm {

cAcadTransferSettings::cAcadTransferSettings(Surroundings& surroundings)
    : m_surroundings(surroundings), m_Current(ReadTransferFlags(surroundings)), m_Saved(m_Current)
{
}

void cAcadTransferSettings::IAcadTransferSettings_Restore()
{
    WriteTransferFlags(m_surroundings, m_Saved);
}

void cAcadTransferSettings::IAcadTransferSettings_Update()
{
    WriteTransferFlags(m_surroundings, m_Current);
}

} // namespace sm
