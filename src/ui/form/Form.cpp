// SPDX-License-Identifier: GPL-3.0-or-later
// The side of a form that its code sees.
#include "ui/form/Form.h"

#include "ports/HostError.h"

#include <algorithm>

namespace sm {
namespace {

std::int32_t Length(const FormControl& control)
{
    return static_cast<std::int32_t>(control.kind == ControlKind::ListView ? control.rows.size()
                                                                           : control.items.size());
}

bool IsPosition(std::int32_t position, std::size_t length)
{
    return position >= 0 && static_cast<std::size_t>(position) < length;
}

} // namespace

Form::Form(FormSession& session, const FormTable& table) : m_session(session), m_controls(BuildControls(table)) {}

void Form::Load()
{
    if (m_loaded)
        return;
    m_loaded = true;
    m_view = m_session.toolkit.MakeView(*this);
    Run(0, FormEvent::Load);
}

bool Form::ShowModal()
{
    Load();
    if (m_view == nullptr)
        return false;
    return m_view->ShowModal();
}

void Form::Hide()
{
    if (m_view != nullptr)
        m_view->Hide();
}

void Form::PumpEvents()
{
    if (m_view != nullptr)
        m_view->PumpEvents();
}

void Form::On(const std::string& name, FormEvent event, Handler handler)
{
    m_handlers[{Position(name), event}] = std::move(handler);
}

bool Form::Has(const std::string& name) const
{
    return std::any_of(m_controls.begin(), m_controls.end(),
                       [&](const FormControl& control) { return control.name == name; });
}

std::size_t Form::Position(const std::string& name) const
{
    const auto found = std::find_if(m_controls.begin(), m_controls.end(),
                                    [&](const FormControl& control) { return control.name == name; });
    if (found == m_controls.end())
        throw HostError("There is no control '" + name + "'.");
    return static_cast<std::size_t>(found - m_controls.begin());
}

const FormControl& Form::Control(const std::string& name) const
{
    return m_controls[Position(name)];
}

std::string Form::Text(const std::string& name) const
{
    const FormControl& control = Control(name);
    if (control.kind == ControlKind::TextBox)
        return control.text;
    return IsPosition(control.selection, control.items.size())
               ? control.items[static_cast<std::size_t>(control.selection)]
               : std::string();
}

bool Form::IsTicked(const std::string& name) const
{
    return Control(name).value != 0;
}

std::int32_t Form::Selection(const std::string& name) const
{
    return Control(name).selection;
}

const ListRow* Form::SelectedRow(const std::string& name) const
{
    const FormControl& list = Control(name);
    return IsPosition(list.selection, list.rows.size()) ? &list.rows[static_cast<std::size_t>(list.selection)]
                                                        : nullptr;
}

std::vector<std::string> Form::Tagged(const std::string& tag) const
{
    std::vector<std::string> names;
    for (const FormControl& control : m_controls) {
        if (control.tag == tag)
            names.push_back(control.name);
    }
    return names;
}

void Form::Changed(std::size_t control)
{
    if (m_view != nullptr)
        m_view->ControlChanged(control);
}

template <class Edit> void Form::Change(const std::string& name, const Edit& edit)
{
    const std::size_t position = Position(name);
    edit(m_controls[position]);
    Changed(position);
}

void Form::SetCaption(const std::string& name, const std::string& caption)
{
    Change(name, [&](FormControl& control) { control.caption = caption; });
}

void Form::SetText(const std::string& name, const std::string& text, std::size_t caret)
{
    Change(name, [&](FormControl& control) {
        control.text = text;
        control.caret = std::min(caret, text.size());
    });
}

void Form::SetTicked(const std::string& name, bool ticked)
{
    const std::size_t position = Position(name);
    if (ticked && m_controls[position].kind == ControlKind::OptionButton)
        return Tick(position);
    m_controls[position].value = ticked ? 1 : 0;
    Changed(position);
}

void Form::Tick(std::size_t option)
{
    const std::size_t group = m_controls[option].parent;
    for (std::size_t i = 0; i < m_controls.size(); ++i) {
        if (m_controls[i].kind != ControlKind::OptionButton || m_controls[i].parent != group)
            continue;
        m_controls[i].value = i == option ? 1 : 0;
        Changed(i);
    }
}

void Form::SetProgress(const std::string& name, std::int32_t perCent)
{
    Change(name, [&](FormControl& control) { control.value = std::clamp(perCent, 0, 100); });
}

void Form::SetItems(const std::string& name, std::vector<std::string> items)
{
    Change(name, [&](FormControl& control) {
        control.items = std::move(items);
        control.selection = kNothingSelected;
    });
}

void Form::SetNotice(const std::string& name, const std::string& notice)
{
    Change(name, [&](FormControl& control) { control.notice = notice; });
}

void Form::AddItem(const std::string& name, const std::string& item)
{
    Change(name, [&](FormControl& control) { control.items.push_back(item); });
}

void Form::ReplaceItem(const std::string& name, std::int32_t position, const std::string& item)
{
    Change(name, [&](FormControl& control) {
        if (IsPosition(position, control.items.size()))
            control.items[static_cast<std::size_t>(position)] = item;
    });
}

void Form::Select(const std::string& name, std::int32_t position)
{
    Change(name, [&](FormControl& control) {
        control.selection = position >= 0 && position < Length(control) ? position : kNothingSelected;
    });
}

bool Form::SelectText(const std::string& name, const std::string& text)
{
    const std::vector<std::string>& items = Control(name).items;
    const auto found = std::find(items.begin(), items.end(), text);
    if (found == items.end())
        return false;
    Select(name, static_cast<std::int32_t>(found - items.begin()));
    return true;
}

void Form::SetRows(const std::string& name, std::vector<ListRow> rows)
{
    Change(name, [&](FormControl& control) {
        control.rows = std::move(rows);
        control.selection = kNothingSelected;
    });
}

void Form::AddRow(const std::string& name, ListRow row)
{
    Change(name, [&](FormControl& control) { control.rows.push_back(std::move(row)); });
}

void Form::ReplaceRow(const std::string& name, std::int32_t position, ListRow row)
{
    Change(name, [&](FormControl& control) {
        if (IsPosition(position, control.rows.size()))
            control.rows[static_cast<std::size_t>(position)] = std::move(row);
    });
}

void Form::RemoveRow(const std::string& name, std::int32_t position)
{
    Change(name, [&](FormControl& control) {
        if (!IsPosition(position, control.rows.size()))
            return;
        control.rows.erase(control.rows.begin() + position);
        control.selection = kNothingSelected;
    });
}

void Form::SetEnabled(const std::string& name, bool enabled)
{
    Change(name, [&](FormControl& control) { control.enabled = enabled; });
}

void Form::SetVisible(const std::string& name, bool visible)
{
    Change(name, [&](FormControl& control) { control.visible = visible; });
}

void Form::SetPlace(const std::string& name, const ControlPlace& place)
{
    Change(name, [&](FormControl& control) { control.place = place; });
}

void Form::SetBackColor(const std::string& name, const ControlColor& color)
{
    Change(name, [&](FormControl& control) { control.backColor = color; });
}

void Form::SetMaskColor(const std::string& name, const ControlColor& color)
{
    Change(name, [&](FormControl& control) { control.maskColor = color; });
}

} // namespace sm
