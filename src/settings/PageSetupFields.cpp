#include "settings/PageSetupFields.h"

#include "settings/mdlUtilities.h"

namespace sm {

const PageSetupFieldTable& PageSetupFields()
{
    using Record = PageSetupRecord;
    static const PageSetupFieldTable fields = {{
        {"CanonicalMediaName", &Record::CanonicalMediaName},
        {"PaperWidth", &Record::PaperWidth},
        {"PaperHeight", &Record::PaperHeight},
        {"PlotRotation", &Record::PlotRotation},
        {"PlotType", &Record::PlotType},
        {"CenterPlot", &Record::CenterPlot},
        {"PlotOriginX", &Record::PlotOriginX},
        {"PlotOriginY", &Record::PlotOriginY},
        {"UseStandardScale", &Record::UseStandardScale},
        {"StandardScale", &Record::StandardScale},
        {"ScaleNumer", &Record::ScaleNumer},
        {"ScaleDenom", &Record::ScaleDenom},
        {"PaperUnits", &Record::PaperUnits},
        {"PlotWithPlotStyles", &Record::PlotWithPlotStyles},
        {"StyleSheet", &Record::StyleSheet},
        {"ShowPlotStyles", &Record::ShowPlotStyles},
        {"PlotHidden", &Record::PlotHidden},
        {"PlotViewportsFirst", &Record::PlotViewportsFirst},
        {"PlotWithLineWeights", &Record::PlotWithLineweights},
        {"ScaleLineWeights", &Record::ScaleLineWeights},
        {"PlotViewportBorders", &Record::PlotViewportBorders},
        {"WinLowerLeftX", &Record::WinLowerLeftX},
        {"WinLowerLeftY", &Record::WinLowerLeftY},
        {"WinUpperRightX", &Record::WinUpperRightX},
        {"WinUpperRightY", &Record::WinUpperRightY},
        {"ViewToPlot", &Record::ViewToPlot},
    }};
    return fields;
}

AcadVariant FieldValue(const PageSetupRecord& record, const PageSetupField& field)
{
    return std::visit([&](auto member) { return AcadVariant(record.*member); }, field.member);
}

void SetFieldText(PageSetupRecord& record, const PageSetupField& field, const std::string& text)
{
    if (text.empty())
        return;
    if (const auto* words = std::get_if<std::string PageSetupRecord::*>(&field.member))
        record.** words = text;
    else if (const auto* number = std::get_if<double PageSetupRecord::*>(&field.member))
        record.** number = Val(text);
    else
        record.*std::get<std::int32_t PageSetupRecord::*>(field.member) = RoundToInteger(Val(text));
}

void MendScale(PageSetupRecord& record)
{
    if (record.ScaleNumer == 0)
        record.ScaleNumer = 1;
    if (record.ScaleDenom == 0)
        record.ScaleDenom = 1;
}

} // namespace sm
