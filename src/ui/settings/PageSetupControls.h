// SPDX-License-Identifier: GPL-3.0-or-later
// How the page setup controls of a form behave, in the settings dialog and in the page setup dialog alike.
#pragma once

#include "ui/form/Form.h"

#include <functional>

namespace sm {

/// Which record the controls edit.
enum class PageSetupKind {
    SettingsDialog = 1, ///< the page setup of the current layout, governed by "Use Custom PDF Page Setup"
    PageSetupDialog = 2 ///< the page setup that the dialog was opened for
};

class PageSetupControls {
public:
    /// Binds the handlers. `form` outlives the object and has the rows of AddPageSetupRows.
    PageSetupControls(Form& form, PageSetupKind kind);
    PageSetupControls(const PageSetupControls&) = delete;
    PageSetupControls& operator=(const PageSetupControls&) = delete;

    [[nodiscard]] Form& GetForm() const { return m_form; }
    [[nodiscard]] PageSetupKind Kind() const { return m_kind; }

    // The values that the form holds beside its controls.
    double PlotOffsetX = 0, PlotOffsetY = 0;           ///< in the unit shown, kept while the plot is centred
    double CustomScaleNumer = 1, CustomScaleDenom = 1; ///< kept while a standard scale is chosen
    double PlotWinX1 = 0, PlotWinY1 = 0, PlotWinX2 = 0, PlotWinY2 = 0; ///< drawing units

    /// Makes every governed control usable, then applies the rules by which some depend on others.
    void PDFPageSetupOn();
    void PDFPageSetupOff();
    /// Brings the unit labels and the lengths in paper units into line with the units combo.
    void cmbPaperUnits_click();
    /// The orientation options follow the paper chosen.
    void PaperSizeRule();
    [[nodiscard]] bool HasPlotWindow() const { return PlotWinX1 != PlotWinX2 && PlotWinY1 != PlotWinY2; }
    /// Enables the Window option and chooses it.
    void ChoosePlotWindow();
    /// The page setup dialog shows a box to type a name into where it has no list to choose from.
    void ShowNameBoxes(bool viewBox, bool plotStyleBox);

private:
    void BindPaper();
    void BindPlotArea();
    void BindNumbers();
    void BindPlotStyle();
    void PlotAreaRule();
    void CenterRule();
    void ScaleRule();
    void PlotStylesRule();
    void ViewRule();
    /// Chooses the entry of the same paper turned, where there is one.
    void TurnPaper(bool toLandscape);
    void ConvertLengths(bool toInches);
    void FormatUnits(const char* textBox);
    void Usable(const std::string& name, bool usable);

    Form& m_form;
    PageSetupKind m_kind;
};

} // namespace sm
