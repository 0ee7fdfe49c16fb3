// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/PlotConfiguration.h"

#include "ports/PlotNumbers.h"

#include <utility>

namespace sm::cadhost {

void PlotConfiguration::TakePaper(const FittedPaper& paper)
{
    m_values.rotation = 0;
    m_own.paperWidth = m_own.paperHeight = 0; // its margins belong to the paper that it hasn't got
    m_ownSheet = m_sheet = {paper.canonicalName, paper.localeName, paper.width, paper.height, {}};
}

void PlotConfiguration::PlotSheetAsWindow()
{
    if (m_values.plotType != kPlotLayout || m_layout.isModel)
        return;
    const bool lying = (m_values.rotation & 1) != 0;
    const Margins margins = SheetMargins();
    const double across = m_sheet.width - margins.left - margins.right;
    const double along = m_sheet.height - margins.bottom - margins.top;
    const PlotScale scale = Scale([](auto&) { return Box2{}; });
    const double unit = m_values.paperUnits == kPaperInches ? kMillimetresPerInch : 1;
    const double millimetres = unit * scale.numerator / scale.denominator;
    m_values.window = {{0, 0}, {(lying ? along : across) / millimetres, (lying ? across : along) / millimetres}};
    m_values.plotType = kPlotWindow;
    m_values.flags |= drawing::PlotSettings::kCentered;
}

void PlotConfiguration::ScaleToFit()
{
    m_values.standardScale = 0;
    m_values.flags |= drawing::PlotSettings::kStandardScale;
    m_origin = {};
}

void PlotConfiguration::Turn(bool landscape)
{
    const bool lying = (m_values.rotation & 1) != 0;
    const double width = lying ? m_sheet.height : m_sheet.width, height = lying ? m_sheet.width : m_sheet.height;
    if (width == height || (width > height) == landscape)
        return;
    TakePaper({{}, {}, height, width}); // which has another name; it is matched by its size
}

void PlotConfiguration::Wish(const PlotWishes& wishes)
{
    if (wishes.fit) // of what the sheet was, before it is another one
        PlotSheetAsWindow();
    if (wishes.paper)
        TakePaper(*wishes.paper);
    if (wishes.landscape)
        Turn(*wishes.landscape);
    if (wishes.fit)
        ScaleToFit();
    if (wishes.scale) {
        m_values.scaleNumerator = wishes.scale->paper;
        m_values.scaleDenominator = wishes.scale->drawing;
        m_values.paperUnits = kPaperMillimeters;
        m_values.flags &= ~drawing::PlotSettings::kStandardScale;
    }
    if (wishes.center)
        m_values.flags |= drawing::PlotSettings::kCentered;
    if (wishes.style) {
        m_values.styleSheet = *wishes.style;
        m_values.flags &= ~drawing::PlotSettings::kPlotStyles;
        if (!wishes.style->empty())
            m_values.flags |= drawing::PlotSettings::kPlotStyles;
    }
    m_mendedType = m_values.plotType;
}

} // namespace sm::cadhost
