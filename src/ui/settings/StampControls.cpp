// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/settings/StampControls.h"

#include "annotations/TextStamps.h"
#include "ui/form/NumberFields.h"

namespace sm {

StampControls::StampControls(Form& form, const Form::Handler& pickPoint) : m_form(form), m_custom(form.Session())
{
    form.On("cmbStampText", FormEvent::Click, [this] { StampSwitch(); });
    form.On("btnStampEdit", FormEvent::Click, [this] { EditStampText(); });
    form.On("btnStampColor", FormEvent::Click, [this] { ChooseColor(); });
    form.On("btnStampPoints", FormEvent::Click, pickPoint);
    MakePointFields(form, {"txtStampX", "txtStampY"});
}

void StampControls::AddStampText(const std::string& rawText, std::optional<std::int32_t> index)
{
    Surroundings& surroundings = m_form.Session().context.surroundings;
    const std::string shown = ExpandStampText(surroundings, rawText, DrawingFullName, LoginName);
    if (index) {
        m_form.ReplaceItem("cmbStampText", *index, shown);
        m_form.ReplaceItem("lstStampText", *index, rawText);
    } else {
        m_form.AddItem("cmbStampText", shown);
        m_form.AddItem("lstStampText", rawText);
    }
}

void StampControls::StampSwitch()
{
    SetStampControls(m_form.Selection("cmbStampText") > 0);
}

void StampControls::SetStampControls(bool on)
{
    const ControlColor back{on ? ColorRole::Window : ColorRole::ButtonFace, 0};
    for (const std::string& name : m_form.Tagged(kTextStampTag)) {
        m_form.SetEnabled(name, on);
        const ControlKind kind = m_form.Control(name).kind;
        if (kind == ControlKind::TextBox || kind == ControlKind::ComboBox)
            m_form.SetBackColor(name, back);
        if (kind == ControlKind::ColorButton) // its background is the stamp's colour
            m_form.SetMaskColor(name, back);
    }
}

void StampControls::EditStampText()
{
    const std::int32_t chosen = m_form.Selection("cmbStampText");
    const std::vector<std::string>& rawTexts = m_form.Control("lstStampText").items;
    if (chosen < 0 || static_cast<std::size_t>(chosen) >= rawTexts.size())
        return;
    if (const auto text = m_custom.Ask(rawTexts[static_cast<std::size_t>(chosen)]))
        AddStampText(*text, chosen);
}

void StampControls::ChooseColor()
{
    const std::int32_t present = m_form.Control("btnStampColor").backColor.rgb;
    if (const auto color = m_form.Session().context.surroundings.desktop.AskColor(present))
        m_form.SetBackColor("btnStampColor", {ColorRole::Explicit, *color});
}

} // namespace sm
