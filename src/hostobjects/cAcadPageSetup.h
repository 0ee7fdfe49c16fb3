// SPDX-License-Identifier: GPL-3.0-or-later
// One page setup, bound to a drawing's own or to the user's global one.
#pragma once

#include "hostobjects/RecordPageSetup.h"
#include "plugin/CallContext.h"

#include <memory>

namespace sm {

class cAcadPageSetup : public RecordPageSetup {
public:
    /// Made inside a call of the plug-in, whose context must outlive the object.
    explicit cAcadPageSetup(CallContext& context);
    /// Made by the front end: a context of its own, without an open log. `surroundings` must outlive the object.
    explicit cAcadPageSetup(Surroundings& surroundings);
    cAcadPageSetup(const cAcadPageSetup&) = delete;
    cAcadPageSetup& operator=(const cAcadPageSetup&) = delete;

    /// The record as edited so far.
    [[nodiscard]] const PageSetupRecord& Record() const { return m_record; }
    /// True once edited since `Initialize` or `Restore`: `Update` then writes, each time.
    [[nodiscard]] bool IsChanged() const { return m_changed; }

private:
    VariantBool IAcadPageSetup_Initialize(std::int32_t source, std::shared_ptr<IAcadDocument>& document) override;
    void IAcadPageSetup_Update() override;
    void IAcadPageSetup_Restore() override;
    void IAcadPageSetup_ShowPageSetup() override;
    void IAcadPageSetup_CopyFrom(IAcadPageSetup& other) override;
    void IAcadPageSetup_SetStandardMedia(std::int32_t index) override;
    void IAcadPageSetup_SetCustomMedia(double width, double height, std::int32_t units) override;
    void IAcadPageSetup_SetPlotType(std::int32_t plotType) override;
    void IAcadPageSetup_SetWindowToPlot(double llx, double lly, double urx, double ury) override;
    void IAcadPageSetup_SetPlotStyle(const std::string& name) override;
    void IAcadPageSetup_SetViewToPlot(const std::string& name) override;
    void IAcadPageSetup_SetPlotOffset(VariantBool center, double x, double y, std::int32_t units) override;
    void IAcadPageSetup_SetStandardScale(std::int32_t code) override;
    void IAcadPageSetup_SetCustomScale(double numerator, double denominator,
                                       std::optional<std::int32_t> units) override;
    void IAcadPageSetup_SetPlotOptions(VariantBool scaleLineWeights, VariantBool plotWithLineweights,
                                       VariantBool plotWithPlotStyles, VariantBool plotViewportsFirst,
                                       VariantBool plotHidden) override;

    bool ReadRecord(std::int32_t source, const std::shared_ptr<IAcadDocument>& document, PageSetupRecord& record);

    std::unique_ptr<CallContext> m_ownContext; ///< null inside a call of the plug-in
    CallContext& m_context;
    PageSetupRecord m_saved;                   ///< as read by `Initialize`
    std::shared_ptr<IAcadDocument> m_document; ///< set for the drawing's page setup only
    std::int32_t m_source = kPageSetupNative;  ///< until `Initialize`: nothing to write or show
    bool m_changed = false;
};

} // namespace sm
