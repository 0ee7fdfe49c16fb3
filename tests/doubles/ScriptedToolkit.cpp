// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/ScriptedToolkit.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <utility>

namespace sm {

/// Keeps what it was told of each control, as a real window does.
class ScriptedView final : public IFormView {
public:
    ScriptedView(ScriptedToolkit& toolkit, IForm& form)
        : m_toolkit(toolkit), m_form(form), m_drawn(form.Controls()), m_name(form.Controls().front().name)
    {
    }
    void ControlChanged(std::size_t control) override { m_drawn.at(control) = m_form.Controls().at(control); }
    bool ShowModal() override;
    void Hide() override
    {
        if (std::exchange(m_up, false))
            m_toolkit.events.push_back("hide " + m_name);
    }
    void PumpEvents() override { m_toolkit.events.push_back("pump " + m_name); }

    /// What the window shows by itself while the user types or moves the caret.
    FormControl& Drawn(std::size_t control) { return m_drawn.at(control); }
    void ExpectInStep() const
    {
        for (std::size_t i = 0; i < m_drawn.size(); ++i)
            EXPECT_TRUE(m_drawn[i] == m_form.Controls()[i])
                << m_name << "." << m_drawn[i].name << " changed without a word to its window";
    }

private:
    ScriptedToolkit& m_toolkit;
    IForm& m_form;
    std::vector<FormControl> m_drawn;
    std::string m_name;
    bool m_up = false;
};

namespace {

constexpr std::array<const char*, 8> kEventNames{"Load",        "Activate", "QueryClose", "Click",
                                                 "DoubleClick", "Change",   "LostFocus",  "Enter"};

std::string HandlerName(const IForm& form, std::size_t control, FormEvent event)
{
    return form.Controls().front().name + "." + form.Controls()[control].name + " " +
           kEventNames[static_cast<std::size_t>(event)];
}

void NoteHandlers(const IForm& form)
{
    for (std::size_t i = 0; i < form.Controls().size(); ++i) {
        for (std::size_t event = 0; event < kEventNames.size(); ++event) {
            if (form.Handles(i, static_cast<FormEvent>(event)))
                KnownHandlers().insert(HandlerName(form, i, static_cast<FormEvent>(event)));
        }
    }
}

void NoteExercised(const IForm& form, std::size_t control, FormEvent event)
{
    if (form.Handles(control, event))
        ExercisedHandlers().insert(HandlerName(form, control, event));
}

std::string ColorText(const ControlColor& color)
{
    if (color.role != ColorRole::Explicit)
        return color.role == ColorRole::Window ? "window" : "face";
    std::array<char, 8> text{};
    const auto rgb = static_cast<unsigned>(color.rgb);
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", rgb & 0xFFU, (rgb >> 8U) & 0xFFU, (rgb >> 16U) & 0xFFU);
    return text.data();
}

class HandlerCheck final : public testing::Environment {
public:
    explicit HandlerCheck(std::set<std::string> forms) : m_forms(std::move(forms)) {}
    void TearDown() override
    {
        const std::string filter = GTEST_FLAG_GET(filter);
        if (!filter.empty() && filter != "*" && filter.front() != '-')
            return; // a part of the tests exercises a part of the handlers
        std::set<std::string> forms;
        for (const std::string& handler : KnownHandlers()) {
            const std::string form = handler.substr(0, handler.find('.'));
            if (m_forms.count(form) == 0)
                continue; // a form made up for a test
            forms.insert(form);
            EXPECT_EQ(ExercisedHandlers().count(handler), 1U) << "never exercised: " << handler;
        }
        EXPECT_EQ(forms, m_forms);
    }

private:
    std::set<std::string> m_forms;
};

} // namespace

std::set<std::string>& KnownHandlers()
{
    static std::set<std::string> handlers;
    return handlers;
}

std::set<std::string>& ExercisedHandlers()
{
    static std::set<std::string> handlers;
    return handlers;
}

bool RequireEveryHandler(std::set<std::string> forms)
{
    testing::AddGlobalTestEnvironment(new HandlerCheck(std::move(forms)));
    return true;
}

bool ScriptedView::ShowModal()
{
    m_toolkit.events.push_back("show " + m_name);
    NoteHandlers(m_form);
    m_up = true;
    FormDriver user(m_form, this);
    user.Activate();
    if (m_up)
        m_toolkit.NextScript(m_name)(user);
    if (m_up) {
        ADD_FAILURE() << m_name << " was left open";
        m_form.UserClosed();
        m_up = false;
    }
    ExpectInStep();
    return true;
}

std::size_t ScriptedToolkit::ScriptsLeft() const
{
    std::size_t left = 0;
    for (const auto& [form, scripts] : m_scripts)
        left += scripts.size();
    return left;
}

std::unique_ptr<IFormView> ScriptedToolkit::MakeView(IForm& form)
{
    if (!hasScreen)
        return nullptr;
    NoteExercised(form, 0, FormEvent::Load);
    return std::make_unique<ScriptedView>(*this, form);
}

ScriptedToolkit::Script ScriptedToolkit::NextScript(const std::string& form)
{
    auto& scripts = m_scripts[form];
    if (!scripts.empty()) {
        Script script = std::move(scripts.front());
        scripts.pop_front();
        return script;
    }
    const auto standing = m_standing.find(form);
    if (standing != m_standing.end())
        return standing->second;
    return [form](FormDriver& user) {
        ADD_FAILURE() << form << " was shown, and no script plays its user";
        user.Close();
    };
}

const FormControl& FormDriver::Control(const std::string& name) const
{
    return m_form.Controls()[Position(name)];
}

std::size_t FormDriver::Position(const std::string& name) const
{
    const auto& controls = m_form.Controls();
    const auto found =
        std::find_if(controls.begin(), controls.end(), [&](const auto& row) { return row.name == name; });
    if (found == controls.end())
        throw std::logic_error("no control " + name);
    return static_cast<std::size_t>(found - controls.begin());
}

bool FormDriver::IsReachable(const std::string& name) const
{
    for (std::size_t at = Position(name);; at = m_form.Controls()[at].parent) {
        if (!m_form.Controls()[at].enabled || !m_form.Controls()[at].visible)
            return false;
        if (at == 0)
            return true;
    }
}

std::size_t FormDriver::Reach(const std::string& name, FormEvent event)
{
    EXPECT_TRUE(IsReachable(name)) << name << " can't be reached by the user";
    const std::size_t position = Position(name);
    NoteExercised(m_form, position, event);
    return position;
}

void FormDriver::Activate()
{
    NoteExercised(m_form, 0, FormEvent::Activate);
    m_form.UserActivated();
}

void FormDriver::Click(const std::string& name)
{
    m_form.UserClicked(Reach(name, FormEvent::Click));
    if (m_view != nullptr)
        m_view->ExpectInStep();
}

void FormDriver::Tick(const std::string& name, bool ticked)
{
    if (IsTicked(name) != ticked)
        Click(name);
}

void FormDriver::Type(const std::string& name, const std::string& text)
{
    const std::size_t position = Reach(name, FormEvent::Change);
    if (m_view != nullptr) {
        m_view->Drawn(position).text = text;
        m_view->Drawn(position).caret = text.size();
    }
    m_form.UserTyped(position, text, text.size());
}

void FormDriver::MoveCaret(const std::string& name, std::size_t caret)
{
    const std::size_t position = Reach(name, FormEvent::Change);
    if (m_view != nullptr)
        m_view->Drawn(position).caret = caret;
    m_form.UserMovedCaret(position, caret);
}

void FormDriver::Leave(const std::string& name)
{
    m_form.UserLeft(Reach(name, FormEvent::LostFocus));
}

void FormDriver::TypeAndLeave(const std::string& name, const std::string& text)
{
    Type(name, text);
    Leave(name);
}

bool FormDriver::Enter(const std::string& name)
{
    return m_form.UserPressedEnter(Reach(name, FormEvent::Enter));
}

bool FormDriver::Escape()
{
    return m_form.UserPressedEscape();
}

void FormDriver::Close()
{
    NoteExercised(m_form, 0, FormEvent::QueryClose);
    m_form.UserClosed();
}

void FormDriver::Choose(const std::string& name, const std::string& item)
{
    const auto& items = Control(name).items;
    const auto found = std::find(items.begin(), items.end(), item);
    EXPECT_NE(found, items.end()) << name << " doesn't offer " << item;
    if (found != items.end())
        ChooseAt(name, static_cast<std::int32_t>(found - items.begin()));
}

void FormDriver::ChooseAt(const std::string& name, std::int32_t position)
{
    m_form.UserSelected(Reach(name, FormEvent::Click), position);
    if (m_view != nullptr)
        m_view->ExpectInStep();
}

void FormDriver::DoubleClick(const std::string& name, std::int32_t position)
{
    m_form.UserDoubleClicked(Reach(name, FormEvent::DoubleClick), position);
}

std::string FormDriver::Text(const std::string& name) const
{
    const FormControl& control = Control(name);
    if (control.kind == ControlKind::TextBox)
        return control.text;
    return control.selection < 0 ? "(none)" : control.items.at(static_cast<std::size_t>(control.selection));
}

std::string FormDriver::Back(const std::string& name) const
{
    return ColorText(Control(name).backColor);
}

std::string FormDriver::Mask(const std::string& name) const
{
    return ColorText(Control(name).maskColor);
}

std::vector<std::string> FormDriver::Rows(const std::string& name) const
{
    std::vector<std::string> rows;
    for (const ListRow& row : Control(name).rows) {
        std::string text = row.text;
        for (const std::string& item : row.subItems)
            text += " | " + item;
        rows.push_back(text);
    }
    return rows;
}

std::vector<std::string> FormDriver::Ticked(const std::vector<std::string>& names) const
{
    std::vector<std::string> ticked;
    for (const std::string& name : names) {
        if (IsTicked(name))
            ticked.push_back(name);
    }
    return ticked;
}

} // namespace sm
