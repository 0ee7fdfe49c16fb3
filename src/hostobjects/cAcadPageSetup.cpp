#include "hostobjects/cAcadPageSetup.h"

#include "plugin/Attempt.h"
#include "plugin/mdlAcadHelper.h"
#include "settings/DrawingValues.h"
#include "settings/mdlDataKegIO.h"

namespace sm {

cAcadPageSetup::cAcadPageSetup(CallContext& context) : m_Context(context) {}

cAcadPageSetup::cAcadPageSetup(Surroundings& surroundings)
    : m_OwnContext(new CallContext{surroundings, nullptr, nullptr, nullptr}), m_Context(*m_OwnContext)
{
}

bool cAcadPageSetup::ReadRecord(std::int32_t source, const std::shared_ptr<IAcadDocument>& document,
                                PageSetupRecord& record)
{
    if (source == kPageSetupCustom && document)
        return ReadCustomPageSetup(m_Context, *document, record) != CustomPageSetup::HostError;
    if (source == kPageSetupGlobal) {
        record = ReadGlobalPageSetup(m_Context.surroundings);
        return true;
    }
    return false;
}

VariantBool cAcadPageSetup::IAcadPageSetup_Initialize(std::int32_t source, std::shared_ptr<IAcadDocument>& document)
{
    PageSetupRecord record;
    if (!ReadRecord(source, document, record))
        return kFalse;
    m_Record = record;
    m_Saved = record;
    m_Source = source;
    m_Document = source == kPageSetupCustom ? document : nullptr;
    m_Changed = false;
    return kTrue;
}

void cAcadPageSetup::IAcadPageSetup_Update()
{
    if (!m_Changed)
        return;
    if (m_Source == kPageSetupCustom)
        WriteCustomPageSetup(m_Context, *m_Document, m_Record);
    else if (m_Source == kPageSetupGlobal)
        WriteGlobalPageSetup(m_Context.surroundings, m_Record);
    else
        return;
    m_Changed = false;
}

void cAcadPageSetup::IAcadPageSetup_Restore()
{
    m_Record = m_Saved;
    m_Changed = false;
}

void cAcadPageSetup::IAcadPageSetup_ShowPageSetup()
{
    IWindows& windows = m_Context.surroundings.windows;
    if (m_Source == kPageSetupGlobal)
        windows.ShowPageSetup(*this, "Global Page Setup");
    if (m_Source != kPageSetupCustom)
        return;
    const auto app = CarryOn([&] { return m_Document->Application(); }, NoteCarriedPast(m_Context, "ShowPageSetup"))
                         .value_or(nullptr);
    if (ValidateHost(m_Context, kFalse, app))
        windows.ShowPageSetup(*this, "Drawing Page Setup");
}

} // namespace sm
