// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/form/FormTable.h"

#include <algorithm>

namespace sm {
namespace {

bool ShowsText(ControlKind kind)
{
    return kind == ControlKind::TextBox || kind == ControlKind::ComboBox || kind == ControlKind::ListBox ||
           kind == ControlKind::ListView;
}

bool TakesKeyboard(ControlKind kind)
{
    return ShowsText(kind) || kind == ControlKind::TabStrip || kind == ControlKind::CheckBox ||
           kind == ControlKind::OptionButton || kind == ControlKind::CommandButton ||
           kind == ControlKind::ColorButton || kind == ControlKind::ToolButton;
}

std::size_t PositionOf(const std::vector<FormControl>& controls, const std::string& name)
{
    const auto found = std::find_if(controls.begin(), controls.end(),
                                    [&](const FormControl& control) { return control.name == name; });
    return found == controls.end() ? 0 : static_cast<std::size_t>(found - controls.begin());
}

} // namespace

ControlRow::ControlRow(ControlKind kind, const char* name, const char* caption, ControlPlace place, const char* parent)
    : m_parent(parent)
{
    m_control.name = name;
    m_control.kind = kind;
    m_control.caption = caption;
    m_control.place = place;
    if (ShowsText(kind))
        m_control.backColor = {ColorRole::Window, 0};
    if (kind == ControlKind::TabStrip)
        m_control.selection = 0;
}

ControlRow& ControlRow::Tag(const char* tag)
{
    m_control.tag = tag;
    return *this;
}

ControlRow& ControlRow::Picture(const char* picture)
{
    m_control.picture = picture;
    return *this;
}

ControlRow& ControlRow::Columns(std::vector<ListColumn> columns)
{
    m_control.columns = std::move(columns);
    return *this;
}

ControlRow& ControlRow::Items(std::vector<std::string> items)
{
    m_control.items = std::move(items);
    return *this;
}

ControlRow& ControlRow::Selected(std::int32_t position)
{
    m_control.selection = position;
    return *this;
}

ControlRow& ControlRow::Text(const char* text)
{
    m_control.text = text;
    return *this;
}

ControlRow& ControlRow::Ticked()
{
    m_control.value = 1;
    return *this;
}

ControlRow& ControlRow::Hidden()
{
    m_control.visible = false;
    return *this;
}

ControlRow& ControlRow::Disabled()
{
    m_control.enabled = false;
    return *this;
}

ControlRow& ControlRow::Default()
{
    m_control.isDefault = true;
    return *this;
}

ControlRow& ControlRow::Cancel()
{
    m_control.isCancel = true;
    return *this;
}

void AddRows(FormTable& table, const std::vector<ControlRow>& rows)
{
    table.insert(table.end(), rows.begin(), rows.end());
}

std::vector<FormControl> BuildControls(const FormTable& table)
{
    std::vector<FormControl> controls;
    controls.reserve(table.size());
    std::int32_t tabIndex = 0;
    for (const ControlRow& row : table) {
        FormControl control = row.Control();
        control.parent = row.Parent().empty() ? 0 : PositionOf(controls, row.Parent());
        if (TakesKeyboard(control.kind) && control.visible)
            control.tabIndex = tabIndex++;
        controls.push_back(std::move(control));
    }
    return controls;
}

} // namespace sm
