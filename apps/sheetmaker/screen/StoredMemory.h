// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows remember, in the settings store: under a key of its own below the user's settings.
#pragma once

#include "beside/WindowMemory.h"
#include "ports/IRegistry.h"

#include <memory>

namespace sm::app {

std::unique_ptr<beside::IWindowMemory> CreateWindowMemory(std::unique_ptr<IRegistry> registry);

} // namespace sm::app
