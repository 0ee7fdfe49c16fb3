// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostobjects/cNativeDoc.h"

#include "plotting/mdlAcadPrinting.h"
#include "plugin/CallScope.h"
#include "plugin/CarryPast.h"
#include "plugin/Present.h"
#include "plugin/RunTurn.h"
#include "plugin/mdlAcadHelper.h"
#include "settings/mdlDataKegIO.h"
#include "settings/mdlUtilities.h"

namespace sm {

namespace {

/// The host can't be used: it isn't valid, or another conversion uses it.
constexpr std::int32_t kInvalidHost = -4;

} // namespace

IAcadDocument& cNativeDoc::Document()
{
    if (m_Doc == nullptr)
        throw HostError("Object variable not set");
    return *m_Doc;
}

template <class Call, class Value> Value cNativeDoc::Ask(Call&& call, Value otherwise)
{
    return CarryPast(m_context, "cNativeDoc", [&] { return Value(call(Document())); }).value_or(otherwise);
}

std::int32_t cNativeDoc::INativeDoc_AddToPubDoc(const std::shared_ptr<IPubDoc>& pubDoc, const std::string& layoutName,
                                                VariantBool quiet, std::int32_t resolution,
                                                const std::string& jobOptionsFile)
{
    const RunTurn turn(m_context, "AddToPubDoc");
    if (!turn)
        return kInvalidHost;
    const auto app = Ask([](IAcadDocument& doc) { return doc.Application(); }, std::shared_ptr<IAcadApplication>());
    if (!ValidateHost(m_context, quiet, app) || pubDoc == nullptr)
        return kInvalidHost;
    const CallScope call(m_context, app, m_Doc);
    const std::int32_t pageSetupSource = PageSetupSelected();
    return PlotLayoutToPubDoc(m_context, *pubDoc, layoutName, quiet, pageSetupSource, resolution, jobOptionsFile);
}

void cNativeDoc::INativeDoc_CloseDoc(VariantBool saveChanges)
{
    CarryPast(m_context, "CloseDoc", [&] { Document().Close(saveChanges != kFalse); });
    ReleaseDoc();
}

void cNativeDoc::INativeDoc_ReleaseDoc()
{
    CarryPast(m_context, "ReleaseDoc", [&] {
        const auto list = m_Owner == nullptr ? nullptr : m_Owner->Documents();
        if (list != nullptr)
            list->ReleaseEntry(m_Index);
    });
}

AcadVariant cNativeDoc::INativeDoc_ExeCmd(const std::string& command, const std::string& /*argument*/)
{
    if (SameAsciiText(command, "AUDIT"))
        CarryPast(m_context, "ExeCmd", [&] { Document().AuditInfo(true); });
    return {};
}

AcadVariant cNativeDoc::INativeDoc_GetSheetName(std::int32_t sheetIndex)
{
    const auto name = CarryPast(m_context, "GetSheetName", [&] {
        const auto layouts = Present(Document().Layouts(), "Layouts");
        return Present(layouts->Item(sheetIndex), "Layout")->Name();
    });
    return name ? AcadVariant(*name) : AcadVariant();
}

std::int32_t cNativeDoc::INativeDoc_GetPageSetupSelected()
{
    return m_Doc == nullptr ? kPageSetupNative : ReadPlotSelection(m_context, *m_Doc);
}

void cNativeDoc::INativeDoc_SetPageSetupSelected(std::int32_t value)
{
    if (m_Doc != nullptr)
        WritePlotSelection(m_context, *m_Doc, value);
}

std::string cNativeDoc::INativeDoc_GetFullName()
{
    return Ask([](IAcadDocument& doc) { return doc.FullName(); }, std::string());
}

VariantBool cNativeDoc::INativeDoc_GetIsActive()
{
    return Ask([](IAcadDocument& doc) { return doc.Active() ? kTrue : kFalse; }, kFalse);
}

std::string cNativeDoc::INativeDoc_GetName()
{
    return Ask([](IAcadDocument& doc) { return doc.Name(); }, std::string());
}

std::int32_t cNativeDoc::INativeDoc_GetSheetCount()
{
    return Ask([](IAcadDocument& doc) { return Present(doc.Layouts(), "Layouts")->Count(); }, std::int32_t{0});
}

std::int32_t cNativeDoc::INativeDoc_GetWindowState()
{
    return Ask([](IAcadDocument& doc) { return doc.WindowState(); }, std::int32_t{0});
}

void cNativeDoc::INativeDoc_SetWindowState(std::int32_t state)
{
    CarryPast(m_context, "WindowState", [&] { Document().SetWindowState(state); });
}

} // namespace sm
