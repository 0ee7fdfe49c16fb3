// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows remember from one run to the next.
#pragma once

#include <string>

namespace sm::beside {

/// Texts by name. Nothing here throws; what can't be kept is forgotten.
class IWindowMemory {
public:
    virtual ~IWindowMemory() = default;
    /// Empty: nothing is remembered under that name.
    [[nodiscard]] virtual std::string Recall(const std::string& name) = 0;
    virtual void Remember(const std::string& name, const std::string& text) = 0;
};

} // namespace sm::beside
