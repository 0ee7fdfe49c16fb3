// SPDX-License-Identifier: GPL-3.0-or-later
#include "RecordingForm.h"

namespace sm::windows {

FormControl& RecordingForm::Add(ControlKind kind, const std::string& name, const std::string& caption,
                                ControlPlace place, std::size_t parent)
{
    using enum ControlKind;
    FormControl control;
    control.kind = kind;
    control.name = name;
    control.caption = caption;
    control.place = place;
    control.parent = parent;
    for (const ControlKind stop : {TextBox, CheckBox, OptionButton, ComboBox, ListBox, ListView, CommandButton,
                                   ColorButton, ToolButton, TabStrip}) {
        if (kind == stop)
            control.tabIndex = static_cast<std::int32_t>(controls.size());
    }
    if (kind == TextBox || kind == ComboBox || kind == ListBox || kind == ListView)
        control.backColor = {ColorRole::Window, 0};
    controls.push_back(control);
    return controls.back();
}

void RecordingForm::Show(const std::function<void()>& script)
{
    if (view == nullptr)
        Make();
    ASSERT_NE(view, nullptr);
    m_isEnding = false;
    const auto play = [&] {
        Take();
        script();
        TheUiThread().Rest();
        m_isEnding = true;
        user.Close();
    };
    WhileUserPlays(play, [&] { EXPECT_TRUE(view->ShowModal()); });
}

void RecordingForm::UserTyped(std::size_t control, const std::string& text, std::size_t caret)
{
    Note("typed " + controls[control].name + " '" + text + "' " + std::to_string(caret));
    if (refuses)
        return;
    controls[control].text = text;
    controls[control].caret = caret;
}

void RecordingForm::UserMovedCaret(std::size_t control, std::size_t caret)
{
    Note("caret " + controls[control].name + " " + std::to_string(caret));
    controls[control].caret = caret;
}

void RecordingForm::UserClicked(std::size_t control)
{
    Note("clicked " + controls[control].name);
    if (refuses)
        return;
    if (controls[control].kind == ControlKind::CheckBox)
        controls[control].value = 1 - controls[control].value;
    if (controls[control].kind != ControlKind::OptionButton)
        return;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (controls[i].kind == ControlKind::OptionButton && controls[i].parent == controls[control].parent) {
            controls[i].value = i == control ? 1 : 0;
            view->ControlChanged(i);
        }
    }
}

void RecordingForm::UserSelected(std::size_t control, std::int32_t position)
{
    Note("selected " + controls[control].name + " " + std::to_string(position));
    if (!refuses)
        controls[control].selection = position;
}

} // namespace sm::windows
