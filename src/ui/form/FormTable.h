// SPDX-License-Identifier: GPL-3.0-or-later
// The tables from which forms are made.
#pragma once

#include "ports/FormControls.h"

#include <string>
#include <utility>
#include <vector>

namespace sm {

/// One control; `parent` names a control above it in the table, "" the form. Chained calls add what is out of the
/// ordinary.
class ControlRow {
public:
    ControlRow(ControlKind kind, const char* name, const char* caption, ControlPlace place, const char* parent = "");
    ControlRow& Tag(const char* tag);
    ControlRow& Picture(const char* picture);
    ControlRow& Columns(std::vector<ListColumn> columns);
    ControlRow& Items(std::vector<std::string> items);
    ControlRow& Selected(std::int32_t position);
    ControlRow& Text(const char* text);
    ControlRow& Ticked();
    ControlRow& Hidden();
    ControlRow& Disabled();
    ControlRow& Default(); ///< the button that Enter presses
    ControlRow& Cancel();  ///< the button that Escape presses

    [[nodiscard]] const FormControl& Control() const { return m_control; }
    [[nodiscard]] const std::string& Parent() const { return m_parent; }

private:
    FormControl m_control;
    std::string m_parent;
};

/// The form itself comes first. The keyboard visits the controls in the order of the table.
using FormTable = std::vector<ControlRow>;
void AddRows(FormTable& table, const std::vector<ControlRow>& rows);

/// The table with parents and tab indices resolved.
std::vector<FormControl> BuildControls(const FormTable& table);

} // namespace sm
