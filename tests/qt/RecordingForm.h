// SPDX-License-Identifier: GPL-3.0-or-later
// A form of any controls that keeps what its view reports, and carries it out as a form does unless told to refuse.
#pragma once

#include "ports/IFormToolkit.h"
#include "qt/QtUser.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace sm::qt {

class RecordingForm final : public IForm {
public:
    using Reports = std::vector<std::string>;

    std::vector<FormControl> controls;
    Reports reports;
    bool refuses = false;                                ///< reports change nothing
    bool usesEnter = true;                               ///< what UserPressedEnter says
    std::size_t clickable = 999;                         ///< an image that can be pressed
    std::set<std::pair<std::size_t, FormEvent>> handled; ///< what has a handler besides
    std::function<void(const std::string& report)> then;
    std::unique_ptr<IFormView> view;

    /// The form itself, 200 by 100 units.
    RecordingForm()
    {
        Add(ControlKind::FormWindow, "form", "A form", {0, 0, 200, 100});
        controls[0].parent = 0;
    }
    FormControl& Add(ControlKind kind, const std::string& name, const std::string& caption, ControlPlace place,
                     std::size_t parent = 0)
    {
        FormControl control;
        control.kind = kind;
        control.name = name;
        control.caption = caption;
        control.place = place;
        control.parent = parent;
        const bool stops = kind == ControlKind::TextBox || kind == ControlKind::CheckBox ||
                           kind == ControlKind::OptionButton || kind == ControlKind::ComboBox ||
                           kind == ControlKind::ListBox || kind == ControlKind::ListView ||
                           kind == ControlKind::CommandButton || kind == ControlKind::ColorButton ||
                           kind == ControlKind::ToolButton || kind == ControlKind::TabStrip;
        control.tabIndex = stops ? static_cast<std::int32_t>(controls.size()) : -1;
        controls.push_back(control);
        return controls.back();
    }
    void Make() { view = TheScreen().Toolkit().MakeView(*this); }
    /// Shows the form, plays the user, and closes it.
    void Show(const std::function<void()>& user)
    {
        if (view == nullptr)
            Make();
        WhenShown([&] {
            reports.clear();
            user();
            view->Hide();
        });
        EXPECT_TRUE(view->ShowModal());
    }
    /// Changes a control from the form's side.
    template <class Edit> void Change(std::size_t control, const Edit& edit)
    {
        edit(controls[control]);
        view->ControlChanged(control);
    }
    Reports Take() { return std::exchange(reports, {}); }

    [[nodiscard]] const std::vector<FormControl>& Controls() const override { return controls; }
    [[nodiscard]] bool Handles(std::size_t control, FormEvent event) const override
    {
        return (control == clickable && event == FormEvent::Click) || handled.contains({control, event});
    }
    void UserActivated() override { Note("activated"); }
    void UserTyped(std::size_t control, const std::string& text, std::size_t caret) override
    {
        Note("typed " + controls[control].name + " '" + text + "' " + std::to_string(caret));
        if (!refuses) {
            controls[control].text = text;
            controls[control].caret = caret;
        }
    }
    void UserMovedCaret(std::size_t control, std::size_t caret) override
    {
        if (controls[control].caret != caret)
            Note("caret " + controls[control].name + " " + std::to_string(caret));
        controls[control].caret = caret;
    }
    void UserClicked(std::size_t control) override
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
    void UserSelected(std::size_t control, std::int32_t position) override
    {
        Note("selected " + controls[control].name + " " + std::to_string(position));
        if (!refuses)
            controls[control].selection = position;
    }
    void UserDoubleClicked(std::size_t control, std::int32_t position) override
    {
        Note("double-clicked " + controls[control].name + " " + std::to_string(position));
    }
    void UserLeft(std::size_t control) override { Note("left " + controls[control].name); }
    bool UserPressedEnter(std::size_t control) override
    {
        Note("enter in " + controls[control].name);
        return usesEnter;
    }
    bool UserPressedEscape() override
    {
        Note("escape");
        return usesEnter;
    }
    void UserClosed() override { Note("closed"); }

private:
    void Note(const std::string& report)
    {
        reports.push_back(report);
        if (then)
            then(report);
    }
};

} // namespace sm::qt
