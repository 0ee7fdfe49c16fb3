// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Pickers.h"

#include "plugin/mdlAcadHelper.h"

namespace sm {
namespace {

using enum ControlKind;

constexpr std::int32_t kWindowFailed = -1;

struct PickerTexts {
    const char* form;
    const char* warning;
    const char* label;
    const char* combo;
};

constexpr PickerTexts kPlotStyle{"frmPlotStyle",
                                 "The selected plot style could not be found.  Please choose one from the list below:",
                                 "Plot Style Table:", "cmbPlotStyle"};
constexpr PickerTexts kJobOpts{
    "frmJobOpts", "The Raster Image Quality Settings could not be located.  Please choose one from the list below:",
    "Resolution:", "cmbJobOpts"};
constexpr PickerTexts kPageSize{
    "frmPageSize", "The correct paper size was not available for the PDF file.  Please choose one from the list below:",
    "Paper Size:", "cmbPageSize"};

FormTable TableOf(const PickerTexts& texts)
{
    return {
        ControlRow(FormWindow, texts.form, "", {0, 0, 294, 90}),
        ControlRow(Image, "imgWarning", "", {7, 7, 21, 20}).Picture("warning"),
        ControlRow(Label, "Label2", texts.warning, {36, 7, 251, 24}),
        ControlRow(Label, "Label1", texts.label, {36, 42, 72, 8}),
        ControlRow(ComboBox, texts.combo, "", {112, 40, 175, 12}),
        ControlRow(CommandButton, "btnOK", "OK", {179, 69, 52, 14}).Default(),
        ControlRow(CommandButton, "btnCancel", "Cancel", {235, 69, 52, 14}).Cancel(),
    };
}

} // namespace

Picker::Picker(FormSession& session, const FormTable& table, const char* combo) : Form(session, table), m_combo(combo)
{
    On(Name(), FormEvent::Load, [this] { SetCaption(Name(), kProductTitle); });
    On("btnOK", FormEvent::Click, [this] { Hide(); });
    On("btnCancel", FormEvent::Click, [this] {
        Select(m_combo, kNothingSelected);
        Hide();
    });
}

frmPlotStyle::frmPlotStyle(FormSession& session) : Picker(session, TableOf(kPlotStyle), kPlotStyle.combo) {}
frmJobOpts::frmJobOpts(FormSession& session) : Picker(session, TableOf(kJobOpts), kJobOpts.combo) {}
frmPageSize::frmPageSize(FormSession& session) : Picker(session, TableOf(kPageSize), kPageSize.combo) {}

std::optional<std::int32_t> PickFrom(Picker& picker, const std::vector<std::string>& names)
{
    picker.Load();
    picker.SetItems(picker.Combo(), names);
    picker.Select(picker.Combo(), 0);
    if (!picker.ShowModal())
        return kWindowFailed;
    const std::int32_t choice = picker.Selection(picker.Combo());
    return choice == kNothingSelected ? std::nullopt : std::optional(choice);
}

} // namespace sm
