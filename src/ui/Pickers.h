// SPDX-License-Identifier: GPL-3.0-or-later
// The three small dialogs that let the user repair a setting by choosing from a list.
#pragma once

#include "ui/form/Form.h"

#include <optional>
#include <string>
#include <vector>

namespace sm {

/// Load leaves the list empty: whoever shows a picker fills its combo and chooses position 0. OK leaves the choice as
/// it is; Cancel chooses nothing.
class Picker : public Form {
public:
    [[nodiscard]] const std::string& Combo() const { return m_combo; }

protected:
    Picker(FormSession& session, const FormTable& table, const char* combo);

private:
    std::string m_combo;
};

class frmPlotStyle final : public Picker {
public:
    explicit frmPlotStyle(FormSession& session);
};

class frmJobOpts final : public Picker {
public:
    explicit frmJobOpts(FormSession& session);
};

class frmPageSize final : public Picker {
public:
    explicit frmPageSize(FormSession& session);
};

/// Fills the picker, shows it and reads the choice: a position in `names`, nothing when cancelled, -1 when the picker
/// can't be shown.
std::optional<std::int32_t> PickFrom(Picker& picker, const std::vector<std::string>& names);

} // namespace sm
