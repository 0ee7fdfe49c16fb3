// SPDX-License-Identifier: GPL-3.0-or-later
// One drawing as a native document of the front end.
#pragma once

#include "plugin/CallContext.h"
#include "ports/INativeDoc.h"

namespace sm {

class cNativeDoc final : public INativeDoc {
public:
    /// `context` is the program's one call context; it outlives the object.
    explicit cNativeDoc(CallContext& context) : m_context(context) {}

private:
    VariantBool INativeDoc_InitGetDoc(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                      const std::shared_ptr<INativeDocOwner>& owner,
                                      const std::shared_ptr<IAcadDocument>& doc) override;
    VariantBool INativeDoc_InitOpenDoc(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                       const std::shared_ptr<INativeDocOwner>& owner,
                                       const std::string& fileName) override;
    VariantBool INativeDoc_InitGetDocByName(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                            const std::shared_ptr<INativeDocOwner>& owner,
                                            const std::string& fullName) override;
    std::int32_t INativeDoc_AddToPubDoc(const std::shared_ptr<IPubDoc>& pubDoc, const std::string& layoutName,
                                        VariantBool quiet, std::int32_t resolution,
                                        const std::string& jobOptionsFile) override;
    void INativeDoc_CloseDoc(VariantBool saveChanges) override;
    AcadVariant INativeDoc_ExeCmd(const std::string& command, const std::string& argument) override;
    void INativeDoc_ReleaseDoc() override;
    AcadVariant INativeDoc_GetSheetName(std::int32_t sheetIndex) override;
    std::int16_t INativeDoc_GetIndex() override { return static_cast<std::int16_t>(m_Index); }
    std::shared_ptr<IAcadPageSetup> INativeDoc_GetCustomPageSetup() override { return m_PageSetup; }
    std::int32_t INativeDoc_GetPageSetupSelected() override;
    void INativeDoc_SetPageSetupSelected(std::int32_t value) override;
    std::string INativeDoc_GetFullName() override;
    VariantBool INativeDoc_GetIsActive() override;
    std::string INativeDoc_GetName() override;
    std::int32_t INativeDoc_GetSheetCount() override;
    std::int32_t INativeDoc_GetWindowState() override;
    void INativeDoc_SetWindowState(std::int32_t state) override;

    VariantBool FinishInit(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                           const std::shared_ptr<INativeDocOwner>& owner);
    VariantBool CreatePageSetup();
    std::shared_ptr<IAcadDocument> FindOpenDocument(IAcadApplication& app, const std::string& fullName);
    [[nodiscard]] bool IsInitialised() const { return m_Index != -1; }
    /// The wrapped drawing; throws HostError when there is none.
    IAcadDocument& Document();
    /// `call` on the drawing, or `otherwise` when it fails.
    template <class Call, class Value> Value Ask(Call&& call, Value otherwise);

    CallContext& m_context;
    std::int32_t m_Index = -1; ///< the front end's index of this document; -1 until initialised
    std::shared_ptr<IAcadDocument> m_Doc;
    std::shared_ptr<INativeDocOwner> m_Owner;
    std::shared_ptr<IAcadPageSetup> m_PageSetup;
};

} // namespace sm
