// SPDX-License-Identifier: GPL-3.0-or-later
// The plug-in object, as other programs see it.
#pragma once

#include "plugin/cPlugin.h"
#include "windows/WindowsSurroundings.h"
#include "windows/objects/DualObject.h"
#include "windows/objects/Identities.h"

#include <TarnwickSmPubAcad.h>

namespace sm::windows {

class PluginObject final : public DualObject<::IPlugin> {
public:
    STDMETHODIMP Initialize(IDispatch* app, VARIANT_BOOL* taken) override;
    STDMETHODIMP ConvertToPDF(LONG hostValue) override;
    STDMETHODIMP ShowSettings(LONG hostValue, LONG second, LONG third, VARIANT_BOOL* result) override;
    STDMETHODIMP ShowLog() override;
    STDMETHODIMP Version(BSTR* version) override;

    STDMETHODIMP get_PromptForFileName(VARIANT_BOOL* value) override;
    STDMETHODIMP put_PromptForFileName(VARIANT_BOOL value) override;
    STDMETHODIMP get_DeletePs(VARIANT_BOOL* value) override;
    STDMETHODIMP put_DeletePs(VARIANT_BOOL value) override;
    STDMETHODIMP get_OpenInViewer(VARIANT_BOOL* value) override;
    STDMETHODIMP put_OpenInViewer(VARIANT_BOOL value) override;
    STDMETHODIMP get_WhatToPlot(LONG* value) override;
    STDMETHODIMP put_WhatToPlot(LONG value) override;
    STDMETHODIMP get_Optimization(LONG* value) override;
    STDMETHODIMP put_Optimization(LONG value) override;
    STDMETHODIMP get_JobOptionsFile(BSTR* value) override;
    STDMETHODIMP put_JobOptionsFile(BSTR value) override;

private:
    const char* SourceName() const override { return SM_PLUGIN_PROG_ID; }

    WindowsSurroundings m_surroundings;
    sm::cPlugin m_plugin{m_surroundings.Context()};
};

} // namespace sm::windows
