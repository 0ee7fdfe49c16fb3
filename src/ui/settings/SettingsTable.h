// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of the settings dialog.
#pragma once

#include "ui/form/FormTable.h"

namespace sm {

FormTable SettingsTable();

} // namespace sm
