// SPDX-License-Identifier: GPL-3.0-or-later
// What the user's choices lead to.
#include "ui/settings/PageSetupControls.h"

#include "ports/PlotNumbers.h"
#include "settings/mdlUtilities.h"
#include "ui/form/NumberFields.h"
#include "ui/settings/PageSetupTable.h"

#include <algorithm>

namespace sm {
namespace {

constexpr const char* kInches = NameOf(kPaperUnits, kPaperInches);
constexpr const char* kMillimetreLabel = "mm"; // shorter than the unit in the list
constexpr std::int32_t kCustomScale = 0;
constexpr std::int32_t kNoPlotStyle = 0;

} // namespace

PageSetupControls::PageSetupControls(Form& form, PageSetupKind kind) : m_form(form), m_kind(kind)
{
    BindPaper();
    BindPlotArea();
    BindNumbers();
    BindPlotStyle();
}

void PageSetupControls::BindPaper()
{
    m_form.On("cmbPaperSize", FormEvent::Click, [this] { PaperSizeRule(); });
    m_form.On("optPortrait", FormEvent::Click, [this] { TurnPaper(false); });
    m_form.On("optLandscape", FormEvent::Click, [this] { TurnPaper(true); });
    m_form.On("cmbPaperUnits", FormEvent::Click, [this] { cmbPaperUnits_click(); });
}

void PageSetupControls::BindPlotArea()
{
    for (const char* option : {"optDisplay", "optExtents", "optLayout", "optView", "optWindow"})
        m_form.On(option, FormEvent::Click, [this] { PlotAreaRule(); });
    m_form.On("chkCenterThePlot", FormEvent::Click, [this] { CenterRule(); });
    if (m_form.Has("txtView"))
        m_form.On("cmbView", FormEvent::Click, [this] { m_form.SetText("txtView", m_form.Text("cmbView")); });
}

void PageSetupControls::BindNumbers()
{
    m_form.On("cmbScale", FormEvent::Click, [this] { ScaleRule(); });
    for (const char* box : {"txtScaleNumer", "txtPlotOffsetX", "txtPlotOffsetY"})
        FormatOnLeaving(m_form, box, [this, box] { FormatUnitField(m_form, box, "cmbPaperUnits"); });
    MakePointFields(m_form, {"txtScaleDenom"});
}

void PageSetupControls::BindPlotStyle()
{
    m_form.On("chkPlotStyles", FormEvent::Click, [this] { PlotStylesRule(); });
    m_form.On("cmbPlotStyle", FormEvent::Click, [this] {
        const bool none = m_form.Selection("cmbPlotStyle") == kNoPlotStyle;
        if (m_form.Has("txtPlotStyle"))
            m_form.SetText("txtPlotStyle", none ? "" : m_form.Text("cmbPlotStyle"));
        if (!none)
            return;
        m_form.SetTicked("chkPlotStyles", false);
        PlotStylesRule();
    });
}

void PageSetupControls::Usable(const std::string& name, bool usable)
{
    m_form.SetEnabled(name, usable);
    const ControlKind kind = m_form.Control(name).kind;
    if (kind == ControlKind::TextBox || kind == ControlKind::ComboBox)
        m_form.SetBackColor(name, {usable ? ColorRole::Window : ColorRole::ButtonFace, 0});
}

void PageSetupControls::PDFPageSetupOn()
{
    for (const std::string& name : m_form.Tagged(kAcadPageSetupTag))
        Usable(name, true);
    PlotAreaRule();
    CenterRule();
    ScaleRule();
    PlotStylesRule();
    ViewRule();
    if (!HasPlotWindow())
        m_form.SetEnabled("optWindow", false);
}

void PageSetupControls::PDFPageSetupOff()
{
    for (const std::string& name : m_form.Tagged(kAcadPageSetupTag))
        Usable(name, false);
}

void PageSetupControls::PlotAreaRule()
{
    const bool layout = m_form.IsTicked("optLayout");
    if (layout && m_form.IsTicked("chkCenterThePlot")) {
        m_form.SetTicked("chkCenterThePlot", false);
        CenterRule();
    }
    m_form.SetEnabled("chkCenterThePlot", !layout);
}

void PageSetupControls::CenterRule()
{
    const bool centred = m_form.IsTicked("chkCenterThePlot");
    const auto apply = [&](const char* box, double& kept) {
        const std::string shown = m_form.Text(box);
        if (centred && !shown.empty()) // blank already: the kept value stands
            kept = Val(shown);
        Usable(box, !centred);
        m_form.SetText(box, centred ? "" : NumberText(kept));
        if (!centred)
            FormatUnits(box);
    };
    apply("txtPlotOffsetX", PlotOffsetX);
    apply("txtPlotOffsetY", PlotOffsetY);
}

void PageSetupControls::ScaleRule()
{
    const bool custom = m_form.Selection("cmbScale") == kCustomScale;
    if (!custom) {
        for (const char* box : {"txtScaleNumer", "txtPlotOffsetX", "txtPlotOffsetY"})
            FormatUnits(box);
    }
    const auto apply = [&](const char* box, double kept) {
        Usable(box, custom);
        m_form.SetText(box, custom ? NumberText(kept) : "");
    };
    apply("txtScaleNumer", CustomScaleNumer);
    apply("txtScaleDenom", CustomScaleDenom);
}

void PageSetupControls::FormatUnits(const char* textBox)
{
    if (!m_form.Text(textBox).empty())
        FormatUnitField(m_form, textBox, "cmbPaperUnits");
}

void PageSetupControls::PlotStylesRule()
{
    m_form.SetEnabled("chkPlotLineWeights", m_form.IsTicked("chkPlotStyles"));
}

void PageSetupControls::ViewRule()
{
    if (!m_form.Control("cmbView").items.empty() || !m_form.Control("cmbView").visible)
        return;
    m_form.SetEnabled("optView", false);
    m_form.SetEnabled("cmbView", false);
}

void PageSetupControls::PaperSizeRule()
{
    const std::vector<ListRow>& rows = m_form.Control("lstPaperSize").rows;
    const std::int32_t chosen = m_form.Selection("cmbPaperSize");
    if (chosen < 0 || static_cast<std::size_t>(chosen) >= rows.size())
        return;
    const ListRow& paper = rows[static_cast<std::size_t>(chosen)];
    const bool portrait = Val(paper.subItems[0]) <= Val(paper.subItems[1]);
    m_form.SetTicked(portrait ? "optPortrait" : "optLandscape", true);
}

void PageSetupControls::TurnPaper(bool toLandscape)
{
    const std::vector<ListRow>& rows = m_form.Control("lstPaperSize").rows;
    const std::int32_t chosen = m_form.Selection("cmbPaperSize");
    if (chosen < 0 || static_cast<std::size_t>(chosen) >= rows.size())
        return;
    const std::vector<std::string> size = rows[static_cast<std::size_t>(chosen)].subItems;
    const double width = Val(size[0]), height = Val(size[1]);
    if (toLandscape ? width < height : width > height) {
        const auto turned = std::find_if(rows.begin(), rows.end(), [&](const ListRow& row) {
            return Val(row.subItems[0]) == height && Val(row.subItems[1]) == width;
        });
        if (turned != rows.end())
            m_form.Select("cmbPaperSize", static_cast<std::int32_t>(turned - rows.begin()));
    }
    PaperSizeRule(); // without a turned twin the options go back to what the paper is
}

void PageSetupControls::cmbPaperUnits_click()
{
    const std::string wanted = m_form.Text("cmbPaperUnits"), shown = m_form.Control("lblXUnits").caption;
    const bool toInches = wanted == kInches && shown == kMillimetreLabel;
    const bool toMillimetres = wanted == NameOf(kPaperUnits, kPaperMillimeters) && shown == kInches;
    if (!toInches && !toMillimetres)
        return;
    for (const char* label : {"lblXUnits", "lblYUnits", "lblScaleUnits"})
        m_form.SetCaption(label, toInches ? kInches : kMillimetreLabel);
    ConvertLengths(toInches);
}

void PageSetupControls::ConvertLengths(bool toInches)
{
    const auto converted = [&](double length) {
        return toInches ? length / kMillimetresPerInch : length * kMillimetresPerInch;
    };
    for (const char* box : {"txtScaleNumer", "txtPlotOffsetX", "txtPlotOffsetY"}) {
        const std::string text = m_form.Text(box);
        if (!text.empty())
            m_form.SetText(box, NumberText(converted(Val(text))));
    }
    CustomScaleNumer = converted(CustomScaleNumer);
    if (m_form.IsTicked("chkCenterThePlot")) { // the boxes are blank, the offsets are kept
        PlotOffsetX = converted(PlotOffsetX);
        PlotOffsetY = converted(PlotOffsetY);
    }
}

void PageSetupControls::ChoosePlotWindow()
{
    m_form.SetEnabled("optWindow", true);
    m_form.SetTicked("optWindow", true);
    PlotAreaRule();
}

void PageSetupControls::ShowNameBoxes(bool viewBox, bool plotStyleBox)
{
    m_form.SetVisible("txtView", viewBox);
    m_form.SetVisible("cmbView", !viewBox);
    m_form.SetVisible("txtPlotStyle", plotStyleBox);
    m_form.SetVisible("cmbPlotStyle", !plotStyleBox);
}

} // namespace sm
