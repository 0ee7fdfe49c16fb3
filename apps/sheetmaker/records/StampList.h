// SPDX-License-Identifier: GPL-3.0-or-later
// The user's list of stamp texts: which entry a wanted text is, or becomes.
#pragma once

#include "ports/IRegistry.h"
#include "settings/StampChoices.h"

#include <cstdint>
#include <string>

namespace sm::app {

StampTexts StoredStampTexts(IRegistry& registry);

struct StampChoice {
    std::int32_t index = 0;
    std::string text;
    bool isNew = false; ///< the text is yet to be stored
};

/// `wanted` is a number of the list or a text; an equal entry is taken, else the first of 11 to 15 that still holds its
/// default. Throws Refusal for a number beyond the list, and with the list when no entry is free.
StampChoice ChooseStamp(const StampTexts& texts, const std::string& wanted);

/// Stores a new text. Throws std::runtime_error when it doesn't stay.
void StoreStampText(IRegistry& registry, const StampChoice& choice);

} // namespace sm::app
