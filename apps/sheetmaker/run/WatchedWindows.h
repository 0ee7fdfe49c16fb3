// SPDX-License-Identifier: GPL-3.0-or-later
// The plug-in's windows, watched for pickers that the user cancels.
#pragma once

#include "ports/IWindows.h"

#include <functional>
#include <memory>
#include <string>

namespace sm::app {

/// `cancelled` hears what was cancelled, as "the choice of a paper".
std::unique_ptr<IWindows> WatchWindows(std::unique_ptr<IWindows> windows,
                                       std::function<void(const std::string&)> cancelled);

} // namespace sm::app
