// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/objects/PluginObject.h"

#include "windows/objects/Handed.h"

namespace sm::windows {

STDMETHODIMP PluginObject::Initialize(IDispatch* app, VARIANT_BOOL* taken)
{
    return Give(taken, [&] { return m_plugin.Initialize(HandedApplication(app)); });
}

STDMETHODIMP PluginObject::ConvertToPDF(LONG hostValue)
{
    return Guard([&] { m_plugin.ConvertToPDF(hostValue); });
}

STDMETHODIMP PluginObject::ShowSettings(LONG hostValue, LONG second, LONG third, VARIANT_BOOL* result)
{
    return Give(result, [&] { return m_plugin.ShowSettings(hostValue, second, third); });
}

STDMETHODIMP PluginObject::ShowLog()
{
    return Guard([&] { m_plugin.ShowLog(); });
}

STDMETHODIMP PluginObject::Version(BSTR* version)
{
    return Give(version, [&] { return m_plugin.Version(); });
}

STDMETHODIMP PluginObject::get_PromptForFileName(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_plugin.PromptForFileName(); });
}

STDMETHODIMP PluginObject::put_PromptForFileName(VARIANT_BOOL value)
{
    return Guard([&] { m_plugin.SetPromptForFileName(value); });
}

STDMETHODIMP PluginObject::get_DeletePs(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_plugin.DeletePs(); });
}

STDMETHODIMP PluginObject::put_DeletePs(VARIANT_BOOL value)
{
    return Guard([&] { m_plugin.SetDeletePs(value); });
}

STDMETHODIMP PluginObject::get_OpenInViewer(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_plugin.OpenInViewer(); });
}

STDMETHODIMP PluginObject::put_OpenInViewer(VARIANT_BOOL value)
{
    return Guard([&] { m_plugin.SetOpenInViewer(value); });
}

STDMETHODIMP PluginObject::get_WhatToPlot(LONG* value)
{
    return Give(value, [&] { return m_plugin.WhatToPlot(); });
}

STDMETHODIMP PluginObject::put_WhatToPlot(LONG value)
{
    return Guard([&] { m_plugin.SetWhatToPlot(value); });
}

STDMETHODIMP PluginObject::get_Optimization(LONG* value)
{
    return Give(value, [&] { return m_plugin.Optimization(); });
}

STDMETHODIMP PluginObject::put_Optimization(LONG value)
{
    return Guard([&] { m_plugin.SetOptimization(value); });
}

STDMETHODIMP PluginObject::get_JobOptionsFile(BSTR* value)
{
    return Give(value, [&] { return m_plugin.JobOptionsFile(); });
}

STDMETHODIMP PluginObject::put_JobOptionsFile(BSTR value)
{
    return Guard([&] { m_plugin.SetJobOptionsFile(TextOf(value)); });
}

} // namespace sm::windows
