#include "hostobjects/cAcadTransferSettings.h"

#include "settings/GeneralSettingsIO.h"

namespace sm {

cAcadTransferSettings::cAcadTransferSettings(Surroundings& surroundings)
    : m_Surroundings(surroundings), m_Current(ReadTransferFlags(surroundings)), m_Saved(m_Current)
{
}

void cAcadTransferSettings::IAcadTransferSettings_Restore()
{
    WriteTransferFlags(m_Surroundings, m_Saved);
}

void cAcadTransferSettings::IAcadTransferSettings_Update()
{
    WriteTransferFlags(m_Surroundings, m_Current);
}

} // namespace sm
