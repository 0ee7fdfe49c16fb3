// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/objects/TransferSettingsObject.h"

namespace sm::windows {

STDMETHODIMP TransferSettingsObject::Restore()
{
    return Guard([&] { m_settings.Restore(); });
}

STDMETHODIMP TransferSettingsObject::Update()
{
    return Guard([&] { m_settings.Update(); });
}

STDMETHODIMP TransferSettingsObject::get_TransferTextHlinks(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_settings.TransferTextHlinks(); });
}

STDMETHODIMP TransferSettingsObject::put_TransferTextHlinks(VARIANT_BOOL value)
{
    return Guard([&] { m_settings.SetTransferTextHlinks(value); });
}

STDMETHODIMP TransferSettingsObject::get_TransferDrawingHlinks(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_settings.TransferDrawingHlinks(); });
}

STDMETHODIMP TransferSettingsObject::put_TransferDrawingHlinks(VARIANT_BOOL value)
{
    return Guard([&] { m_settings.SetTransferDrawingHlinks(value); });
}

STDMETHODIMP TransferSettingsObject::get_TransferBlockHlinks(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_settings.TransferBlockHlinks(); });
}

STDMETHODIMP TransferSettingsObject::put_TransferBlockHlinks(VARIANT_BOOL value)
{
    return Guard([&] { m_settings.SetTransferBlockHlinks(value); });
}

STDMETHODIMP TransferSettingsObject::get_TransferVPortHlinks(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_settings.TransferVPortHlinks(); });
}

STDMETHODIMP TransferSettingsObject::put_TransferVPortHlinks(VARIANT_BOOL value)
{
    return Guard([&] { m_settings.SetTransferVPortHlinks(value); });
}

STDMETHODIMP TransferSettingsObject::get_TransferAttributes(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_settings.TransferAttributes(); });
}

STDMETHODIMP TransferSettingsObject::put_TransferAttributes(VARIANT_BOOL value)
{
    return Guard([&] { m_settings.SetTransferAttributes(value); });
}

} // namespace sm::windows
