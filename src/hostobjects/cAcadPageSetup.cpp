// SPDX-License-Identifier: GPL-3.0-or-later
#include "hostobjects/cAcadPageSetup.h"

#include "plugin/CarryPast.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IWindows.h"
#include "settings/mdlDataKegIO.h"

namespace sm {

cAcadPageSetup::cAcadPageSetup(CallContext& context) : m_context(context) {}

cAcadPageSetup::cAcadPageSetup(Surroundings& surroundings)
    : m_ownContext(new CallContext{surroundings, nullptr, nullptr, nullptr}), m_context(*m_ownContext)
{
}

bool cAcadPageSetup::ReadRecord(std::int32_t source, const std::shared_ptr<IAcadDocument>& document,
                                PageSetupRecord& record)
{
    if (source == kPageSetupCustom && document)
        return ReadCustomPageSetup(m_context, *document, record) != CustomPageSetup::HostError;
    if (source == kPageSetupGlobal) {
        record = ReadGlobalPageSetup(m_context.surroundings);
        return true;
    }
    return false;
}

VariantBool cAcadPageSetup::IAcadPageSetup_Initialize(std::int32_t source, std::shared_ptr<IAcadDocument>& document)
{
    PageSetupRecord record;
    if (!ReadRecord(source, document, record))
        return kFalse;
    m_record = record;
    m_saved = record;
    m_source = source;
    m_document = source == kPageSetupCustom ? document : nullptr;
    m_changed = false;
    return kTrue;
}

void cAcadPageSetup::IAcadPageSetup_Update()
{
    if (!m_changed)
        return;
    if (m_source == kPageSetupCustom)
        WriteCustomPageSetup(m_context, *m_document, m_record);
    else if (m_source == kPageSetupGlobal)
        WriteGlobalPageSetup(m_context.surroundings, m_record);
    // Still changed: a write may have been lost without a word, and an Update can be repeated.
}

void cAcadPageSetup::IAcadPageSetup_Restore()
{
    m_record = m_saved;
    m_changed = false;
}

void cAcadPageSetup::IAcadPageSetup_ShowPageSetup()
{
    IWindows& windows = m_context.surroundings.windows;
    if (m_source == kPageSetupGlobal)
        windows.ShowPageSetup(*this, "Global Page Setup");
    if (m_source != kPageSetupCustom)
        return;
    const auto app = CarryPast(m_context, "ShowPageSetup", [&] { return m_document->Application(); }).value_or(nullptr);
    if (ValidateHost(m_context, kFalse, app))
        windows.ShowPageSetup(*this, "Drawing Page Setup");
}

} // namespace sm
