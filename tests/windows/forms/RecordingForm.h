// SPDX-License-Identifier: GPL-3.0-or-later
// A form of any controls that keeps what its view reports, and carries it out as a form does unless told to refuse.
#pragma once

#include "FormUser.h"
#include "windows/forms/Win32Toolkit.h"

#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace sm::windows {

class RecordingForm final : public IForm {
public:
    using Reports = std::vector<std::string>;

    std::vector<FormControl> controls;
    bool refuses = false;        ///< reports change nothing
    std::size_t clickable = 999; ///< an image that can be pressed
    HWND owner = nullptr;
    std::function<void(const std::string& report)> then;
    std::unique_ptr<IFormToolkit> toolkit = CreateWin32Toolkit([this] { return owner; });
    std::unique_ptr<IFormView> view;
    FormUser user{*this};

    /// The form itself, 200 by 100 units.
    RecordingForm() { Add(ControlKind::FormWindow, "form", "A form", {0, 0, 200, 100}); }
    FormControl& Add(ControlKind kind, const std::string& name, const std::string& caption, ControlPlace place,
                     std::size_t parent = 0);
    void Make() { view = toolkit->MakeView(*this); }
    /// Shows the form, plays the user, and closes it.
    void Show(const std::function<void()>& script);
    /// Changes a control from the form's side, on the windows' thread.
    template <class Edit> void Change(std::size_t control, const Edit& edit)
    {
        TheUiThread().Run([&] {
            edit(controls[control]);
            view->ControlChanged(control);
        });
    }
    Reports Take()
    {
        const std::lock_guard lock(m_guard);
        return std::exchange(m_reports, {});
    }
    void Note(const std::string& report)
    {
        {
            const std::lock_guard lock(m_guard);
            m_reports.push_back(report);
        }
        if (then)
            then(report);
    }

    [[nodiscard]] const std::vector<FormControl>& Controls() const override { return controls; }
    [[nodiscard]] bool Handles(std::size_t control, FormEvent event) const override
    {
        return control == clickable && event == FormEvent::Click;
    }
    void UserActivated() override { Note("activated"); }
    void UserTyped(std::size_t control, const std::string& text, std::size_t caret) override;
    void UserMovedCaret(std::size_t control, std::size_t caret) override;
    void UserClicked(std::size_t control) override;
    void UserSelected(std::size_t control, std::int32_t position) override;
    void UserDoubleClicked(std::size_t control, std::int32_t position) override
    {
        Note("double-clicked " + controls[control].name + " " + std::to_string(position));
    }
    void UserLeft(std::size_t control) override { Note("left " + controls[control].name); }
    bool UserPressedEnter(std::size_t control) override
    {
        Note("enter in " + controls[control].name);
        return true;
    }
    bool UserPressedEscape() override
    {
        Note("escape");
        return true;
    }
    void UserClosed() override
    {
        if (m_isEnding)
            return view->Hide();
        Note("closed");
    }

private:
    std::mutex m_guard;
    Reports m_reports;
    bool m_isEnding = false;
};

} // namespace sm::windows
