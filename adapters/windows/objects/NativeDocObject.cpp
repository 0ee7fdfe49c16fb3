// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/objects/NativeDocObject.h"

#include "windows/objects/Handed.h"
#include "windows/objects/PageSetupObject.h"

namespace sm::windows {

STDMETHODIMP NativeDocObject::InitGetDoc(SHORT index, IDispatch* app, IDispatch* owner, IDispatch* doc,
                                         VARIANT_BOOL* taken)
{
    return Give(taken, [&] {
        return m_document.InitGetDoc(index, HandedApplication(app), HandedOwner(owner), HandedDocument(doc));
    });
}

STDMETHODIMP NativeDocObject::InitOpenDoc(SHORT index, IDispatch* app, IDispatch* owner, BSTR fileName,
                                          VARIANT_BOOL* taken)
{
    return Give(taken, [&] {
        return m_document.InitOpenDoc(index, HandedApplication(app), HandedOwner(owner), TextOf(fileName));
    });
}

STDMETHODIMP NativeDocObject::InitGetDocByName(SHORT index, IDispatch* app, IDispatch* owner, BSTR fullName,
                                               VARIANT_BOOL* taken)
{
    return Give(taken, [&] {
        return m_document.InitGetDocByName(index, HandedApplication(app), HandedOwner(owner), TextOf(fullName));
    });
}

STDMETHODIMP NativeDocObject::AddToPubDoc(IDispatch** pubDoc, BSTR layoutName, VARIANT_BOOL quiet, LONG resolution,
                                          BSTR jobOptionsFile, LONG* status)
{
    return Give(status, [&] {
        const auto handed = HandedPubDoc(pubDoc == nullptr ? nullptr : *pubDoc);
        return m_document.AddToPubDoc(handed, TextOf(layoutName), quiet, resolution, TextOf(jobOptionsFile));
    });
}

STDMETHODIMP NativeDocObject::CloseDoc(VARIANT_BOOL saveChanges)
{
    return Guard([&] { m_document.CloseDoc(saveChanges); });
}

STDMETHODIMP NativeDocObject::ExeCmd(BSTR command, BSTR argument, VARIANT* result)
{
    return Give(result, [&] { return m_document.ExeCmd(TextOf(command), TextOf(argument)); });
}

STDMETHODIMP NativeDocObject::ReleaseDoc()
{
    return Guard([&] { m_document.ReleaseDoc(); });
}

STDMETHODIMP NativeDocObject::GetSheetName(LONG sheetIndex, VARIANT* name)
{
    return Give(name, [&] { return m_document.GetSheetName(sheetIndex); });
}

STDMETHODIMP NativeDocObject::get_Index(SHORT* value)
{
    return Give(value, [&] { return m_document.Index(); });
}

STDMETHODIMP NativeDocObject::get_CustomPageSetup(IDispatch** value)
{
    return Guard([&] {
        Place(value) = nullptr;
        if (auto setup = m_document.CustomPageSetup())
            *value = new PageSetupObject(std::move(setup), static_cast<::INativeDoc*>(this));
    });
}

STDMETHODIMP NativeDocObject::get_PageSetupSelected(LONG* value)
{
    return Give(value, [&] { return m_document.PageSetupSelected(); });
}

STDMETHODIMP NativeDocObject::put_PageSetupSelected(LONG value)
{
    return Guard([&] { m_document.SetPageSetupSelected(value); });
}

STDMETHODIMP NativeDocObject::get_FullName(BSTR* value)
{
    return Give(value, [&] { return m_document.FullName(); });
}

STDMETHODIMP NativeDocObject::get_IsActive(VARIANT_BOOL* value)
{
    return Give(value, [&] { return m_document.IsActive(); });
}

STDMETHODIMP NativeDocObject::get_Name(BSTR* value)
{
    return Give(value, [&] { return m_document.Name(); });
}

STDMETHODIMP NativeDocObject::get_SheetCount(LONG* value)
{
    return Give(value, [&] { return m_document.SheetCount(); });
}

STDMETHODIMP NativeDocObject::get_WindowState(LONG* value)
{
    return Give(value, [&] { return m_document.WindowState(); });
}

STDMETHODIMP NativeDocObject::put_WindowState(LONG value)
{
    return Guard([&] { m_document.SetWindowState(value); });
}

} // namespace sm::windows
