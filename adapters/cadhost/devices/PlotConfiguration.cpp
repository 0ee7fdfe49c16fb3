// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/PlotConfiguration.h"

#include "answers/HostText.h"
#include "base/Numbers.h"
#include "devices/PaperRules.h"
#include "ports/HostError.h"

#include <algorithm>
#include <cmath>

namespace sm::cadhost {
namespace {

bool Holds(const std::vector<std::string>& list, const std::string& text)
{
    return std::find(list.begin(), list.end(), text) != list.end();
}

const Medium* Find(const std::vector<Medium>& media, const std::string& canonicalName)
{
    const auto found = std::find_if(media.begin(), media.end(),
                                    [&](const Medium& medium) { return medium.canonicalName == canonicalName; });
    return found == media.end() ? nullptr : &*found;
}

void AddOnce(std::vector<Medium>& media, const Medium& medium)
{
    if (Find(media, medium.canonicalName) == nullptr)
        media.push_back(medium);
}

/// A part of a scale that can't be one counts as 1.
double ScalePart(double value)
{
    return base::IsSize(value) ? value : 1;
}

double FiniteOrZero(double value)
{
    return std::isfinite(value) ? value : 0;
}

Vec2 AcrossWhenTurned(Vec2 v, std::int32_t rotation)
{
    return (rotation & 1) != 0 ? Vec2{v.y, v.x} : v;
}

/// A layout of which the file says nothing shows everything it holds.
void AssumeValues(drawing::PlotSettings& values)
{
    using drawing::PlotSettings;
    values.plotType = kPlotExtents;
    values.standardScale = 0;
    values.flags |= PlotSettings::kCentered | PlotSettings::kStandardScale | PlotSettings::kPlotStyles |
                    PlotSettings::kLineweights | PlotSettings::kDrawViewportsFirst;
}

/// What a file may hold and a layout can't: such values would not go back into it after a plot.
void MendValues(drawing::PlotSettings& values, bool isModel)
{
    values.rotation &= 3;
    if (values.plotType < kPlotDisplay || values.plotType > kPlotLayout)
        values.plotType = isModel ? kPlotExtents : kPlotLayout;
    if (values.paperUnits < kPaperInches || values.paperUnits > kPaperPixels)
        values.paperUnits = kPaperMillimeters;
    values.origin = {FiniteOrZero(values.origin.x), FiniteOrZero(values.origin.y)};
    const Box2& window = values.window;
    for (const double side : {window.min.x, window.min.y, window.max.x, window.max.y}) {
        if (!std::isfinite(side)) {
            values.window = {{0, 0}, {0, 0}};
            break;
        }
    }
    values.scaleNumerator = ScalePart(values.scaleNumerator);
    values.scaleDenominator = ScalePart(values.scaleDenominator);
    if (values.standardScale != 0 && plotter::FindStandardScale(values.standardScale) == nullptr) {
        values.standardScale = 0;
        values.flags &= ~drawing::PlotSettings::kStandardScale;
    }
}

} // namespace

PlotConfiguration::PlotConfiguration(const drawing::Drawing& drawing, const drawing::Layout& layout,
                                     const std::function<bool()>& landscape, const ExtentsSource& extents)
    : m_drawing(drawing), m_layout(layout), m_own(layout.plot), m_values(layout.plot), m_device(DeviceOf(layout.plot))
{
    m_own.rotation &= 3;
    if (!layout.hasPlotSettings)
        AssumeValues(m_values);
    MendValues(m_values, layout.isModel);
    if (HasPaper(m_own)) {
        m_ownSheet = MediumOf(m_own);
    } else {
        const bool turned = (m_own.rotation & 1) != 0;
        m_ownSheet = AssumedMedium(drawing.HeaderInteger("$MEASUREMENT", 0) == 1, landscape() != turned);
    }
    m_sheet = m_ownSheet;
    m_origin = AcrossWhenTurned(m_values.origin, m_values.rotation);
    for (std::string remark : {MendView(drawing, layout, m_values), MendWindow(drawing, layout, extents, m_values)}) {
        if (!remark.empty())
            m_remarks.push_back(std::move(remark));
    }
    m_mendedType = m_values.plotType;
}

void PlotConfiguration::FitOn(const FittedPaper& paper)
{
    const bool lying = (m_values.rotation & 1) != 0;
    const double sheetWidth = lying ? m_sheet.height : m_sheet.width;
    const double sheetHeight = lying ? m_sheet.width : m_sheet.height;
    PlotSheetAsWindow(); // a layout has no scale to fit
    TakePaper(paper);
    ScaleToFit();
    m_fitted = true;
    m_mendedType = m_values.plotType;
    m_remarks.push_back("layout \"" + m_layout.name + "\": its sheet of " + RoundedText(sheetWidth, 5) + " x " +
                        RoundedText(sheetHeight, 5) + " mm is larger than every paper; it is plotted to fit on " +
                        paper.localeName + ", not to scale");
}

// Under another page setup they don't hold.
std::vector<std::string> PlotConfiguration::Remarks() const
{
    return m_values.plotType == m_mendedType ? m_remarks : std::vector<std::string>();
}

void PlotConfiguration::Refresh(const PlotFolders& folders)
{
    m_devices = ListDevices(folders, m_drawing);
    m_styles = ListPlotStyles(folders, m_drawing);
    const auto before = m_pc3;
    try {
        if (auto pc3 = folders.shelf->Device(folders.plotters, m_device); pc3 != nullptr)
            m_pc3 = std::move(pc3);
    } catch (const HostError&) {
        // A broken file tells its cause when somebody chooses it, not when others are listed.
        m_pc3 = nullptr;
    }
    if (!m_listed || m_pc3 != before) // refreshed before each change of a setup: the same file offers the same
        m_media = Media();
    m_listed = true;
}

void PlotConfiguration::RefreshOnce(const PlotFolders& folders)
{
    if (!m_listed)
        Refresh(folders);
}

const std::vector<std::string>& PlotConfiguration::Devices(const PlotFolders& folders)
{
    RefreshOnce(folders);
    return m_devices;
}

const std::vector<std::string>& PlotConfiguration::Styles(const PlotFolders& folders)
{
    RefreshOnce(folders);
    return m_styles;
}

std::vector<std::string> PlotConfiguration::MediaNames(const PlotFolders& folders)
{
    RefreshOnce(folders);
    std::vector<std::string> names;
    for (const Medium& medium : m_media)
        names.push_back(medium.canonicalName);
    return names;
}

std::vector<Medium> PlotConfiguration::Media() const
{
    std::vector<Medium> media;
    if (m_device == DeviceOf(m_own))
        media.push_back(m_ownSheet);
    if (m_pc3 != nullptr) {
        for (const Medium& medium : m_pc3->media)
            AddOnce(media, medium);
    }
    AddOnce(media, m_ownSheet);
    for (const Medium& medium : ListDrawingMedia(m_drawing))
        AddOnce(media, medium);
    return media;
}

void PlotConfiguration::SetDevice(const std::string& name, const PlotFolders& folders)
{
    if (!Holds(Devices(folders), name))
        throw HostError("the plot device '" + name + "' is not in the list of devices");
    m_pc3 = folders.shelf->Device(folders.plotters, name);
    m_plottedOrigin.reset();
    m_device = name;
    m_media = Media();
}

void PlotConfiguration::SetStyle(const std::string& name, const PlotFolders& folders)
{
    const bool none = name.empty() || SameName(name, "None");
    if (!none && !Holds(Styles(folders), name))
        throw HostError("the plot style table '" + name + "' is not in the list of tables");
    ValuesToWrite().styleSheet = none ? std::string() : name;
}

void PlotConfiguration::SetMedium(const std::string& canonicalName, const PlotFolders& folders)
{
    RefreshOnce(folders);
    const Medium* medium = Find(m_media, canonicalName);
    if (medium == nullptr)
        throw HostError("the plot device '" + m_device + "' doesn't offer the medium '" + canonicalName + "'");
    m_plottedOrigin.reset();
    m_sheet = *medium;
}

std::string PlotConfiguration::LocaleName(const std::string& canonicalName, const PlotFolders& folders)
{
    RefreshOnce(folders);
    const Medium* medium = Find(m_media, canonicalName);
    if (medium == nullptr && canonicalName == m_sheet.canonicalName)
        medium = &m_sheet;
    if (medium == nullptr)
        throw HostError("the plot device '" + m_device + "' doesn't offer the medium '" + canonicalName + "'");
    return medium->localeName;
}

Margins PlotConfiguration::SheetMargins() const
{
    return MarginsInForce(m_own, m_sheet, m_values.rotation);
}

drawing::PlotSettings PlotConfiguration::Settings() const
{
    drawing::PlotSettings settings = m_values;
    const Margins margins = SheetMargins();
    settings.origin = AcrossWhenTurned(m_origin, settings.rotation);
    settings.configName = m_device;
    settings.mediaName = m_sheet.canonicalName;
    settings.paperWidth = m_sheet.width;
    settings.paperHeight = m_sheet.height;
    settings.marginLeft = margins.left;
    settings.marginBottom = margins.bottom;
    settings.marginRight = margins.right;
    settings.marginTop = margins.top;
    return settings;
}

PlotScale PlotConfiguration::Scale(const ExtentsSource& extents) const
{
    const PlotScale custom{m_values.scaleNumerator, m_values.scaleDenominator};
    if (!m_values.Has(drawing::PlotSettings::kStandardScale))
        return custom;
    if (const auto* standard = plotter::FindStandardScale(m_values.standardScale);
        standard != nullptr && m_values.standardScale != 0)
        return {standard->numerator, standard->denominator};
    if (m_values.standardScale != 0)
        return custom;
    try {
        const auto placement = plotter::Place(m_drawing, m_layout, Settings(), extents);
        return {ScalePart(placement.scaleNumerator), ScalePart(placement.scaleDenominator)};
    } catch (const plotter::PlotError&) {
        return custom; // what can't be fitted has the ratio that the file remembers
    }
}

} // namespace sm::cadhost
