// SPDX-License-Identifier: GPL-3.0-or-later
// The groups of per-user settings that are read and written together. Nothing here throws.
#pragma once

#include "ports/Surroundings.h"
#include "settings/DataKeg.h"

namespace sm {

TransferFlags ReadTransferFlags(Surroundings& surroundings);
/// A flag is stored as "1" when all its bits are set, else as "0".
void WriteTransferFlags(Surroundings& surroundings, const TransferFlags& flags);

GeneralSettings ReadGeneralSettings(Surroundings& surroundings);
void WriteGeneralSettings(Surroundings& surroundings, const GeneralSettings& settings);

/// Entry 0 is "(NONE)", entries 1 to 15 are the stored stamp texts or their defaults.
StampTexts ReadStampList(Surroundings& surroundings);
/// Entry 0 isn't stored.
void WriteStampList(Surroundings& surroundings, const StampTexts& stamps);

} // namespace sm
