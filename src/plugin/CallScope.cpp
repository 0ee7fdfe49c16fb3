// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/CallScope.h"

#include "plugin/CarryPast.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IAcadApplication.h"
#include "ports/IPubDoc.h"

namespace sm {

CallScope::CallScope(CallContext& context, const std::shared_ptr<IAcadApplication>& app, ClearFirst clearFirst)
    : m_context(context), m_clearFirst(clearFirst)
{
    m_context.g_AcadApp = app;
    m_context.g_AcadDoc =
        CarryPast(context, "CallScope", [&] { return HostApplication(m_context).ActiveDocument(); }).value_or(nullptr);
    Begin();
}

CallScope::CallScope(CallContext& context, const std::shared_ptr<IAcadApplication>& app,
                     const std::shared_ptr<IAcadDocument>& document)
    : m_context(context), m_clearFirst(ClearFirst::Log)
{
    m_context.g_AcadApp = app;
    m_context.g_AcadDoc = document;
    Begin();
}

void CallScope::Begin() noexcept
{
    m_context.blockNames = BlockNames();
    m_context.g_Log = CarryPast(m_context, "CallScope", [&] {
                          return m_context.surroundings.library.CreateConversionLog();
                      }).value_or(nullptr);
    if (m_context.g_Log != nullptr)
        CarryPast(m_context, "CallScope", [&] { m_context.g_Log->OpenLog(kLogFileName, kProductTitle); });
}

CallScope::~CallScope()
{
    if (m_context.g_Log != nullptr)
        CarryPast(m_context, "CallScope", [&] { m_context.g_Log->CloseLog(); });
    if (m_clearFirst == ClearFirst::Host)
        ClearHost();
    m_context.g_Log = nullptr;
    ClearHost();
}

void CallScope::ClearHost() noexcept
{
    m_context.g_AcadApp = nullptr;
    m_context.g_AcadDoc = nullptr;
}

} // namespace sm
