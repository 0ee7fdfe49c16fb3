// SPDX-License-Identifier: GPL-3.0-or-later
// Host objects that are not there.
#pragma once

#include "ports/HostError.h"

#include <memory>
#include <string>

namespace sm {

/// The object itself; a null one counts as a failing host call: "There is no <name>."
template <class Object> std::shared_ptr<Object> Present(std::shared_ptr<Object> object, const char* name)
{
    if (!object)
        throw HostError(std::string("There is no ") + name + ".");
    return object;
}

} // namespace sm
