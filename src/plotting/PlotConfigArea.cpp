// SPDX-License-Identifier: GPL-3.0-or-later
// Window, view, plot type, origin and scale of a plot configuration.
#include "plotting/PlotConfig.h"

#include "plugin/CarryPast.h"
#include "plugin/Present.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IAcadDocument.h"
#include "ports/PlotNumbers.h"
#include "settings/mdlUtilities.h"

#include <array>
#include <cstddef>
#include <utility>

namespace sm {
namespace {

/// Paper units for a drawing unit by the host's number of a standard scale, 1 first; scales of feet are inches of paper
/// for 12 of drawing.
constexpr std::array kStandardRatios{
    1.0 / 1536, 1.0 / 768, 1.0 / 384, 1.0 / 192, 1.0 / 128, 1.0 / 96, 1.0 / 64, 1.0 / 48, 1.0 / 32, 1.0 / 24, 1.0 / 16,
    1.0 / 12,   1.0 / 4,   1.0 / 2,   1.0,       1.0,       1.0 / 2,  1.0 / 4,  1.0 / 8,  1.0 / 10, 1.0 / 16, 1.0 / 20,
    1.0 / 30,   1.0 / 40,  1.0 / 50,  1.0 / 100, 2.0,       4.0,      8.0,      10.0,     100.0,    1000.0};

/// Paper units for a drawing unit as the record asks for it; 1 for scale to fit, which has a layout at its own size.
double AskedRatio(const PageSetupRecord& record)
{
    if (record.UseStandardScale != 0) {
        const auto index = static_cast<std::size_t>(record.StandardScale) - 1;
        return index < kStandardRatios.size() ? kStandardRatios[index] : 1;
    }
    const auto part = [](double value) { return value > 0 ? value : 1; };
    return part(record.ScaleNumer) / part(record.ScaleDenom);
}

std::string PairText(double x, double y)
{
    return NumberText(x) + " " + NumberText(y);
}

} // namespace

PlotConfig::StepResult PlotConfig::SetWindow()
{
    Trace("  Window LowerLeft: " + PairText(m_record.WinLowerLeftX, m_record.WinLowerLeftY));
    Trace("  Window UpperRight: " + PairText(m_record.WinUpperRightX, m_record.WinUpperRightY));
    WriteWindow();
    return {};
}

void PlotConfig::WriteWindow()
{
    m_layout.SetWindowToPlot({m_record.WinLowerLeftX, m_record.WinLowerLeftY, 0},
                             {m_record.WinUpperRightX, m_record.WinUpperRightY, 0});
}

PlotConfig::StepResult PlotConfig::SetView()
{
    if (m_record.PlotType != kPlotView)
        return {};
    Trace("  PlotView: " + m_record.ViewToPlot);
    if (!DrawingHasView())
        return kConfigViewMissing;
    if (!CarryPast(m_context, "SetAcadPlotConfig", [&] { m_layout.SetViewToPlot(m_record.ViewToPlot); }))
        return kConfigViewRefused;
    return {};
}

bool PlotConfig::DrawingHasView()
{
    ILocale& locale = m_context.surroundings.locale;
    const std::string wanted = locale.LowerCase(m_record.ViewToPlot);
    const auto views = Present(ActiveDrawing(m_context).Views(), "Views");
    const std::int32_t count = views->Count();
    for (std::int32_t i = 0; i < count; ++i) {
        if (locale.LowerCase(Present(views->Item(i), "View")->Name()) == wanted)
            return true;
    }
    return false;
}

PlotConfig::StepResult PlotConfig::SetPlotArea()
{
    Trace(std::string("  PlotType: ") + NameOf(kPlotTypes, m_record.PlotType));
    const bool modelTab = m_layout.ModelType();
    m_layout.SetPlotType(m_record.PlotType);
    if (modelTab) {
        WriteCenter();
        WriteOrigin();
    } else {
        SetPaperArea();
    }
    return {};
}

void PlotConfig::SetPaperArea()
{
    if (m_record.PlotType == kPlotLayout) {
        if (!m_restore)
            UseWindowInPlaceOfLayout();
        WriteOrigin();
        Trace("  CenterPlot: Not Set");
        return;
    }
    WriteCenter();
    if (m_record.CenterPlot == 0)
        WriteOrigin();
}

/// A layout's coordinates begin at the lower-left corner of its printable area, so the window that stands for it does.
void PlotConfig::UseWindowInPlaceOfLayout()
{
    Trace("           [Use PlotType Window in place of Layout]");
    double width = 0, height = 0;
    AcadPoint leftBottom, rightTop;
    m_layout.GetPaperSize(width, height);
    m_layout.GetPaperMargins(leftBottom, rightTop);
    const double unit = m_record.PaperUnits == kPaperMillimeters ? 1 : kMillimetresPerInch;
    const double ratio = AskedRatio(m_record);
    m_record.WinLowerLeftX = m_record.WinLowerLeftY = 0;
    m_record.WinUpperRightX = (width - leftBottom.x - rightTop.x) / unit / ratio;
    m_record.WinUpperRightY = (height - leftBottom.y - rightTop.y) / unit / ratio;
    const bool lying = m_record.PlotRotation == 1 || m_record.PlotRotation == 3;
    if (lying) // the drawing's x runs along the sheet's y
        std::swap(m_record.WinUpperRightX, m_record.WinUpperRightY);
    Trace("           [Window LowerLeft: " + PairText(m_record.WinLowerLeftX, m_record.WinLowerLeftY) + "]");
    Trace("           [Window UpperRight: " + PairText(m_record.WinUpperRightX, m_record.WinUpperRightY) + "]");
    WriteWindow();
    m_layout.SetPlotType(kPlotWindow);
    Trace("           [PlotType: Window]");
}

void PlotConfig::WriteCenter()
{
    const bool center = m_record.CenterPlot != 0;
    Trace(std::string("  CenterPlot: ") + (center ? "1" : "0"));
    m_layout.SetCenterPlot(center);
}

void PlotConfig::WriteOrigin()
{
    Trace("  PlotOrigin: " + PairText(m_record.PlotOriginX, m_record.PlotOriginY));
    m_layout.SetPlotOrigin({m_record.PlotOriginX, m_record.PlotOriginY, 0});
}

PlotConfig::StepResult PlotConfig::SetScale()
{
    if (m_record.UseStandardScale != 0)
        SetStandardScale();
    else
        SetCustomScale();
    return {};
}

void PlotConfig::SetStandardScale()
{
    Trace(std::string("  PaperUnits: ") + NameOf(kPaperUnits, m_record.PaperUnits));
    m_layout.SetPaperUnits(m_record.PaperUnits);
    Trace("  UseStandardScale: 1");
    m_layout.SetUseStandardScale(true);
    Trace("  StandardScale: " + std::to_string(m_record.StandardScale));
    m_layout.SetStandardScale(m_record.StandardScale);
}

void PlotConfig::SetCustomScale()
{
    const std::int32_t layoutUnits = m_layout.PaperUnits();
    Trace(std::string("  PaperUnits: ") + NameOf(kPaperUnits, layoutUnits));
    if (layoutUnits == kPaperInches && m_record.PaperUnits == kPaperMillimeters)
        m_record.ScaleNumer /= kMillimetresPerInch;
    else if (layoutUnits == kPaperMillimeters && m_record.PaperUnits == kPaperInches)
        m_record.ScaleNumer *= kMillimetresPerInch;
    if (m_record.ScaleNumer == 0)
        m_record.ScaleNumer = 1;
    if (m_record.ScaleDenom == 0)
        m_record.ScaleDenom = 1;
    Trace("  UseStandardScale: False");
    m_layout.SetUseStandardScale(false);
    Trace("  ScaleNumer: " + NumberText(m_record.ScaleNumer));
    Trace("  ScaleDenom: " + NumberText(m_record.ScaleDenom));
    m_layout.SetCustomScale(m_record.ScaleNumer, m_record.ScaleDenom);
}

} // namespace sm
