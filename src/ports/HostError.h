// SPDX-License-Identifier: GPL-3.0-or-later
// The one exception that crosses the host and library ports.
#pragma once

#include <stdexcept>
#include <string>

namespace sm {

/// A failing call on a CAD host or publishing library object.
/// `Description()` is the text that the log lines print after their "RUNTIME ERROR: " prefix.
class HostError : public std::runtime_error {
public:
    explicit HostError(const std::string& description) : std::runtime_error(description) {}
    [[nodiscard]] std::string Description() const { return what(); }
};

} // namespace sm
