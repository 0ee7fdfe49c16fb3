// SPDX-License-Identifier: GPL-3.0-or-later
// The text boxes that hold numbers: their forms, and when a box is brought into its form.
#pragma once

#include "ui/form/Form.h"

#include <string>
#include <vector>

namespace sm {

/// `value` with `decimals` places, "." as separator in every locale, as it is the only one that is read back. Half of
/// the last place goes away from zero, reckoned on the 15 digits that a double surely carries; never "-0.00".
std::string FixedText(double value, int decimals);
/// "0.00", the form of every coordinate.
std::string PointText(double value);

/// Offsets and the custom numerator: the box's number as "0.0" while the combo shows "Millimeters", else as "0.00".
void FormatUnitField(Form& form, const std::string& textBox, const std::string& unitsCombo);
/// Coordinates: the box's number as "0.00".
void FormatPointField(Form& form, const std::string& textBox);

/// Runs `format` when the box loses the keyboard and on Enter, which is thereby used up.
void FormatOnLeaving(Form& form, const std::string& textBox, const Form::Handler& format);
/// The same with FormatPointField, for each box.
void MakePointFields(Form& form, const std::vector<std::string>& textBoxes);

} // namespace sm
