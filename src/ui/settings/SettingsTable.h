// The controls of the settings dialog.
#pragma once

#include "ui/form/FormTable.h"

namespace sm {

FormTable SettingsTable();

/// The fonts, sizes and justifications that a stamp may have, in the order of their combos.
std::vector<std::string> StampFonts();
std::vector<std::string> StampSizes();
std::vector<std::string> StampJustifications();

} // namespace sm
