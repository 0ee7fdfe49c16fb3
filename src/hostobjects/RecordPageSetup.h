// SPDX-License-Identifier: GPL-3.0-or-later
// A page setup record behind the page setup interface, and back.
#pragma once

#include "ports/IAcadPageSetup.h"
#include "settings/PageSetupRecord.h"

#include <memory>

namespace sm {

/// The properties of a page setup, read from its record.
class RecordPageSetup : public IAcadPageSetup {
public:
    std::string CanonicalMediaName() override { return m_record.CanonicalMediaName; }
    std::string LocaleMedianame() override { return m_record.LocaleMedianame; }
    double PaperWidth() override { return m_record.PaperWidth; }
    double PaperHeight() override { return m_record.PaperHeight; }
    std::int32_t PlotRotation() override { return m_record.PlotRotation; }
    std::int32_t PlotType() override { return m_record.PlotType; }
    VariantBool CenterPlot() override { return Flag(m_record.CenterPlot); }
    double PlotOriginX() override { return m_record.PlotOriginX; }
    double PlotOriginY() override { return m_record.PlotOriginY; }
    VariantBool UseStandardScale() override { return Flag(m_record.UseStandardScale); }
    std::int32_t StandardScale() override { return m_record.StandardScale; }
    double ScaleNumer() override { return m_record.ScaleNumer; }
    double ScaleDenom() override { return m_record.ScaleDenom; }
    std::int32_t PaperUnits() override { return m_record.PaperUnits; }
    VariantBool PlotWithPlotStyles() override { return Flag(m_record.PlotWithPlotStyles); }
    std::string StyleSheet() override { return m_record.StyleSheet; }
    VariantBool ShowPlotStyles() override { return Flag(m_record.ShowPlotStyles); }
    VariantBool PlotHidden() override { return Flag(m_record.PlotHidden); }
    VariantBool PlotViewportsFirst() override { return Flag(m_record.PlotViewportsFirst); }
    VariantBool PlotWithLineweights() override { return Flag(m_record.PlotWithLineweights); }
    VariantBool ScaleLineWeights() override { return Flag(m_record.ScaleLineWeights); }
    VariantBool PlotViewportBorders() override { return Flag(m_record.PlotViewportBorders); }
    double WinLowerLeftX() override { return m_record.WinLowerLeftX; }
    double WinLowerLeftY() override { return m_record.WinLowerLeftY; }
    double WinUpperRightX() override { return m_record.WinUpperRightX; }
    double WinUpperRightY() override { return m_record.WinUpperRightY; }
    std::string ViewToPlot() override { return m_record.ViewToPlot; }

protected:
    RecordPageSetup() = default;
    explicit RecordPageSetup(const PageSetupRecord& record) : m_record(record) {}

    PageSetupRecord m_record;

private:
    static VariantBool Flag(std::int32_t value) { return value != 0 ? kTrue : kFalse; }
};

/// Read-only, to copy another page setup from: the operations that would change it do nothing. `record` is copied.
std::unique_ptr<IAcadPageSetup> MakeRecordPageSetup(const PageSetupRecord& record);

/// The record of any page setup, read through its properties; the device's name is none of them.
PageSetupRecord RecordOf(IAcadPageSetup& setup);

} // namespace sm
