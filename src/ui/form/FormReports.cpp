// SPDX-License-Identifier: GPL-3.0-or-later
// The side of a form that its view sees: what the user does.
#include "ui/form/Form.h"

#include "plugin/CarryPast.h"

#include <algorithm>

namespace sm {
namespace {

/// The nearest boundary of a UTF-8 character at or before `caret`.
std::size_t CharacterBoundary(const std::string& text, std::size_t caret)
{
    caret = std::min(caret, text.size());
    while (caret > 0 && caret < text.size() && (static_cast<unsigned char>(text[caret]) & 0xC0U) == 0x80U)
        --caret;
    return caret;
}

} // namespace

bool Form::Handles(std::size_t control, FormEvent event) const
{
    return m_handlers.count({control, event}) > 0;
}

void Form::Run(std::size_t control, FormEvent event) noexcept
{
    const auto found = m_handlers.find({control, event});
    if (found != m_handlers.end())
        CarryPast(m_session.context, m_controls[control].name.c_str(), found->second);
}

FormControl* Form::Reachable(std::size_t control)
{
    if (control >= m_controls.size())
        return nullptr;
    for (std::size_t at = control;; at = m_controls[at].parent) {
        if (!m_controls[at].enabled || !m_controls[at].visible)
            return nullptr;
        if (at == 0)
            return &m_controls[control];
    }
}

void Form::UserActivated()
{
    Run(0, FormEvent::Activate);
}

void Form::UserTyped(std::size_t control, const std::string& text, std::size_t caret)
{
    FormControl* const box = Reachable(control);
    if (box == nullptr || box->kind != ControlKind::TextBox)
        return;
    box->text = text;
    box->caret = CharacterBoundary(text, caret);
    Run(control, FormEvent::Change);
}

void Form::UserMovedCaret(std::size_t control, std::size_t caret)
{
    if (FormControl* const box = Reachable(control))
        box->caret = CharacterBoundary(box->text, caret);
}

void Form::UserClicked(std::size_t control)
{
    FormControl* const pressed = Reachable(control);
    if (pressed == nullptr)
        return;
    if (pressed->kind == ControlKind::CheckBox) {
        pressed->value = pressed->value == 0 ? 1 : 0;
        Changed(control);
    }
    if (pressed->kind == ControlKind::OptionButton)
        Tick(control);
    Run(control, FormEvent::Click);
}

void Form::UserSelected(std::size_t control, std::int32_t position)
{
    const FormControl* const list = Reachable(control);
    if (list == nullptr)
        return;
    if (list->kind == ControlKind::TabStrip)
        BringForward(control, position);
    else
        Select(list->name, position);
    Run(control, FormEvent::Click);
}

void Form::BringForward(std::size_t strip, std::int32_t page)
{
    const auto pages = std::count_if(m_controls.begin(), m_controls.end(), [&](const FormControl& control) {
        return control.kind == ControlKind::TabPage && control.parent == strip;
    });
    if (page >= 0 && page < pages)
        m_controls[strip].selection = page;
    Changed(strip);
}

void Form::UserDoubleClicked(std::size_t control, std::int32_t position)
{
    UserSelected(control, position);
    if (Reachable(control) != nullptr)
        Run(control, FormEvent::DoubleClick);
}

void Form::UserLeft(std::size_t control)
{
    if (Reachable(control) != nullptr)
        Run(control, FormEvent::LostFocus);
}

bool Form::UserPressedEnter(std::size_t control)
{
    const FormControl* const focused = Reachable(control);
    if (focused != nullptr && Handles(control, FormEvent::Enter)) {
        Run(control, FormEvent::Enter);
        return true;
    }
    if (focused != nullptr && focused->kind == ControlKind::CommandButton) {
        UserClicked(control);
        return true;
    }
    return Press(&FormControl::isDefault);
}

bool Form::UserPressedEscape()
{
    return Press(&FormControl::isCancel);
}

bool Form::Press(bool FormControl::*isMeant)
{
    for (std::size_t i = 0; i < m_controls.size(); ++i) {
        if (m_controls[i].*isMeant && Reachable(i) != nullptr) {
            UserClicked(i);
            return true;
        }
    }
    return false;
}

void Form::UserClosed()
{
    if (Handles(0, FormEvent::QueryClose))
        return Run(0, FormEvent::QueryClose);
    if (!Press(&FormControl::isCancel))
        Hide();
}

} // namespace sm
