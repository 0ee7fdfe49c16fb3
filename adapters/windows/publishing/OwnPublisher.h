// SPDX-License-Identifier: GPL-3.0-or-later
// Our own publisher in the component's process.
#pragma once

#include "ports/IPubDoc.h"
#include "ports/Surroundings.h"

#include <functional>
#include <memory>
#include <string>

namespace sm::windows {

/// Its log is the one that the program of the command line keeps, too. `surroundings` outlive the publisher and all
/// its objects; `note` hears in plain words what was carried past. Null where the component was built without the
/// libraries that our publisher stands on.
std::unique_ptr<IPublishingLibrary> CreateOwnPublisher(Surroundings& surroundings,
                                                       std::function<void(const std::string& line)> note);

} // namespace sm::windows
