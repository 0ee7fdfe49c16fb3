// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/PageSetupFields.h"

namespace sm {

const PageSetupFieldTable& PageSetupFields()
{
    using Record = PageSetupRecord;
    static constexpr PageSetupFieldTable fields = {{
        {SettingNamed("CanonicalMediaName").name, &Record::CanonicalMediaName},
        {SettingNamed("PaperWidth").name, &Record::PaperWidth},
        {SettingNamed("PaperHeight").name, &Record::PaperHeight},
        {SettingNamed("PlotRotation").name, &Record::PlotRotation},
        {SettingNamed("PlotType").name, &Record::PlotType},
        {SettingNamed("CenterPlot").name, &Record::CenterPlot},
        {SettingNamed("PlotOriginX").name, &Record::PlotOriginX},
        {SettingNamed("PlotOriginY").name, &Record::PlotOriginY},
        {SettingNamed("UseStandardScale").name, &Record::UseStandardScale},
        {SettingNamed("StandardScale").name, &Record::StandardScale},
        {SettingNamed("ScaleNumer").name, &Record::ScaleNumer},
        {SettingNamed("ScaleDenom").name, &Record::ScaleDenom},
        {SettingNamed("PaperUnits").name, &Record::PaperUnits},
        {SettingNamed("PlotWithPlotStyles").name, &Record::PlotWithPlotStyles},
        {SettingNamed("StyleSheet").name, &Record::StyleSheet},
        {SettingNamed("ShowPlotStyles").name, &Record::ShowPlotStyles},
        {SettingNamed("PlotHidden").name, &Record::PlotHidden},
        {SettingNamed("PlotViewportsFirst").name, &Record::PlotViewportsFirst},
        {SettingNamed("PlotWithLineWeights").name, &Record::PlotWithLineweights},
        {SettingNamed("ScaleLineWeights").name, &Record::ScaleLineWeights},
        {SettingNamed("PlotViewportBorders").name, &Record::PlotViewportBorders},
        {SettingNamed("WinLowerLeftX").name, &Record::WinLowerLeftX},
        {SettingNamed("WinLowerLeftY").name, &Record::WinLowerLeftY},
        {SettingNamed("WinUpperRightX").name, &Record::WinUpperRightX},
        {SettingNamed("WinUpperRightY").name, &Record::WinUpperRightY},
        {SettingNamed("ViewToPlot").name, &Record::ViewToPlot},
    }};
    return fields;
}

void MendScale(PageSetupRecord& record)
{
    if (record.ScaleNumer == 0)
        record.ScaleNumer = 1;
    if (record.ScaleDenom == 0)
        record.ScaleDenom = 1;
}

} // namespace sm
