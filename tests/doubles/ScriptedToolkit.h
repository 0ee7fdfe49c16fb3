// SPDX-License-Identifier: GPL-3.0-or-later
// A toolkit without a screen: whenever a form is shown, a script plays its user, by the names of the controls.
//
//     toolkit.When("frmAttach", [](FormDriver& user) { user.Type("txtAttachFile", "C:\\a.txt"); user.Click("btnOK");
//     });
//
// It proves on the way that the form tells its view of every change, and that a script never presses what the user
// could not reach.
#pragma once

#include "ports/IFormToolkit.h"

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace sm {

/// Process-wide, as "form.control Event": what has a handler in the forms that were made, and what a script exercised.
std::set<std::string>& KnownHandlers();
std::set<std::string>& ExercisedHandlers();
/// Registers the check that a whole run of the program has exercised every handler of exactly these forms. True.
bool RequireEveryHandler(std::set<std::string> forms);

class ScriptedView;

class FormDriver {
public:
    explicit FormDriver(IForm& form, ScriptedView* view = nullptr) : m_form(form), m_view(view) {}

    // What the user does. Each fails the test when the control can't be reached.
    void Click(const std::string& name);
    /// Clicks the box if it isn't as wanted.
    void Tick(const std::string& name, bool ticked);
    void Type(const std::string& name, const std::string& text); ///< the caret ends behind the text
    void MoveCaret(const std::string& name, std::size_t caret);
    void Leave(const std::string& name);
    void TypeAndLeave(const std::string& name, const std::string& text);
    bool Enter(const std::string& name);
    bool Escape();
    void Close();
    void Choose(const std::string& name, const std::string& item);
    void ChooseAt(const std::string& name, std::int32_t position);
    void DoubleClick(const std::string& name, std::int32_t position);
    void Activate();

    // What the user sees.
    [[nodiscard]] std::string Title() const { return m_form.Controls().front().caption; }
    [[nodiscard]] std::string Caption(const std::string& name) const { return Control(name).caption; }
    /// Of a text box, or the entry chosen in a list; "(none)" when none is.
    [[nodiscard]] std::string Text(const std::string& name) const;
    [[nodiscard]] bool IsTicked(const std::string& name) const { return Control(name).value != 0; }
    [[nodiscard]] bool IsEnabled(const std::string& name) const { return Control(name).enabled; }
    [[nodiscard]] bool IsVisible(const std::string& name) const { return Control(name).visible; }
    [[nodiscard]] bool IsReachable(const std::string& name) const;
    /// "window", "face" or "#rrggbb".
    [[nodiscard]] std::string Back(const std::string& name) const;
    [[nodiscard]] std::string Mask(const std::string& name) const;
    [[nodiscard]] std::vector<std::string> Items(const std::string& name) const { return Control(name).items; }
    /// Each row as "text | sub-item | ...".
    [[nodiscard]] std::vector<std::string> Rows(const std::string& name) const;
    /// The captions of the ticked options and boxes among these.
    [[nodiscard]] std::vector<std::string> Ticked(const std::vector<std::string>& names) const;
    [[nodiscard]] const FormControl& Control(const std::string& name) const;

private:
    [[nodiscard]] std::size_t Position(const std::string& name) const;
    /// The control's position, once it is seen to be reachable; the event is noted as exercised.
    std::size_t Reach(const std::string& name, FormEvent event);

    IForm& m_form;
    ScriptedView* m_view;
};

class ScriptedToolkit final : public IFormToolkit {
public:
    using Script = std::function<void(FormDriver&)>;

    bool hasScreen = true;
    /// "show frmGUITap", "hide frmGUITap", "pump frmProgress".
    std::vector<std::string> events;

    /// Plays the user at the next showing of the form that no earlier script is waiting for.
    void When(const std::string& form, Script script) { m_scripts[form].push_back(std::move(script)); }
    /// Plays the user whenever no script of When is left.
    void Whenever(const std::string& form, Script script) { m_standing[form] = std::move(script); }
    /// Scripts of When that were never played.
    [[nodiscard]] std::size_t ScriptsLeft() const;

    std::unique_ptr<IFormView> MakeView(IForm& form) override;

private:
    friend class ScriptedView;
    Script NextScript(const std::string& form);

    std::map<std::string, std::deque<Script>> m_scripts;
    std::map<std::string, Script> m_standing;
};

} // namespace sm
