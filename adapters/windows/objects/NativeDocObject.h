// SPDX-License-Identifier: GPL-3.0-or-later
// A native document, as other programs see it.
#pragma once

#include "hostobjects/cNativeDoc.h"
#include "windows/WindowsSurroundings.h"
#include "windows/objects/DualObject.h"
#include "windows/objects/Identities.h"

#include <TarnwickSmPubAcad.h>

namespace sm::windows {

class NativeDocObject final : public DualObject<::INativeDoc> {
public:
    STDMETHODIMP InitGetDoc(SHORT index, IDispatch* app, IDispatch* owner, IDispatch* doc,
                            VARIANT_BOOL* taken) override;
    STDMETHODIMP InitOpenDoc(SHORT index, IDispatch* app, IDispatch* owner, BSTR fileName,
                             VARIANT_BOOL* taken) override;
    STDMETHODIMP InitGetDocByName(SHORT index, IDispatch* app, IDispatch* owner, BSTR fullName,
                                  VARIANT_BOOL* taken) override;
    STDMETHODIMP AddToPubDoc(IDispatch** pubDoc, BSTR layoutName, VARIANT_BOOL quiet, LONG resolution,
                             BSTR jobOptionsFile, LONG* status) override;
    STDMETHODIMP CloseDoc(VARIANT_BOOL saveChanges) override;
    STDMETHODIMP ExeCmd(BSTR command, BSTR argument, VARIANT* result) override;
    STDMETHODIMP ReleaseDoc() override;
    STDMETHODIMP GetSheetName(LONG sheetIndex, VARIANT* name) override;

    STDMETHODIMP get_Index(SHORT* value) override;
    /// An object over the same page setup each time; null before the document is initialised.
    STDMETHODIMP get_CustomPageSetup(IDispatch** value) override;
    STDMETHODIMP get_PageSetupSelected(LONG* value) override;
    STDMETHODIMP put_PageSetupSelected(LONG value) override;
    STDMETHODIMP get_FullName(BSTR* value) override;
    STDMETHODIMP get_IsActive(VARIANT_BOOL* value) override;
    STDMETHODIMP get_Name(BSTR* value) override;
    STDMETHODIMP get_SheetCount(LONG* value) override;
    STDMETHODIMP get_WindowState(LONG* value) override;
    STDMETHODIMP put_WindowState(LONG value) override;

private:
    const char* SourceName() const override { return SM_NATIVE_DOC_PROG_ID; }

    WindowsSurroundings m_surroundings;
    sm::cNativeDoc m_document{m_surroundings.Context()};
};

} // namespace sm::windows
