// SPDX-License-Identifier: GPL-3.0-or-later
// How a native document gets its drawing.
#include "hostobjects/cAcadPageSetup.h"
#include "hostobjects/cNativeDoc.h"
#include "plugin/CarryPast.h"
#include "plugin/Present.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/ISystem.h"

namespace sm {

VariantBool cNativeDoc::INativeDoc_InitGetDoc(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                              const std::shared_ptr<INativeDocOwner>& owner,
                                              const std::shared_ptr<IAcadDocument>& doc)
{
    if (IsInitialised())
        return kFalse;
    VariantBool result = kFalse;
    if (ValidateHost(m_context, kTrue, app)) {
        m_Doc = doc;
        result = CreatePageSetup();
    }
    m_Index = index;
    m_Owner = owner;
    return result;
}

VariantBool cNativeDoc::INativeDoc_InitOpenDoc(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                               const std::shared_ptr<INativeDocOwner>& owner,
                                               const std::string& fileName)
{
    if (IsInitialised())
        return kFalse;
    const auto opened = CarryPast(m_context, "InitOpenDoc", [&] {
        return Present(Present(app, "Application")->Documents(), "Documents")->Open(fileName);
    });
    if (!opened || *opened == nullptr)
        return kFalse;
    m_Doc = *opened;
    return FinishInit(index, app, owner);
}

VariantBool cNativeDoc::INativeDoc_InitGetDocByName(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                                    const std::shared_ptr<INativeDocOwner>& owner,
                                                    const std::string& fullName)
{
    if (IsInitialised())
        return kFalse;
    m_Doc = app == nullptr ? nullptr : FindOpenDocument(*app, fullName);
    return m_Doc == nullptr ? kFalse : FinishInit(index, app, owner);
}

/// The open drawing of that full path, letter case aside; a drawing that can't be asked is passed over.
std::shared_ptr<IAcadDocument> cNativeDoc::FindOpenDocument(IAcadApplication& app, const std::string& fullName)
{
    ILocale& locale = m_context.surroundings.locale;
    const std::string wanted = locale.LowerCase(fullName);
    const auto documents = CarryPast(m_context, "InitGetDocByName", [&] { return app.Documents(); }).value_or(nullptr);
    if (documents == nullptr)
        return nullptr;
    const std::int32_t count = CarryPast(m_context, "InitGetDocByName", [&] { return documents->Count(); }).value_or(0);
    for (std::int32_t i = 0; i < count; ++i) {
        const auto document =
            CarryPast(m_context, "InitGetDocByName", [&] { return documents->Item(i); }).value_or(nullptr);
        const bool found = document != nullptr && CarryPast(m_context, "InitGetDocByName", [&] {
                                                      return locale.LowerCase(document->FullName()) == wanted;
                                                  }).value_or(false);
        if (found)
            return document;
    }
    return nullptr;
}

VariantBool cNativeDoc::FinishInit(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                   const std::shared_ptr<INativeDocOwner>& owner)
{
    const VariantBool result = ValidateHost(m_context, kTrue, app) ? CreatePageSetup() : kFalse;
    m_Index = index;
    m_Owner = owner;
    return result;
}

VariantBool cNativeDoc::CreatePageSetup()
{
    m_PageSetup = std::make_shared<cAcadPageSetup>(m_context.surroundings);
    if (m_PageSetup->Initialize(kPageSetupCustom, m_Doc) == kTrue)
        return kTrue;
    return m_PageSetup->Initialize(kPageSetupCustom, m_Doc);
}

} // namespace sm
