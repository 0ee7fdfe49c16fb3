// SPDX-License-Identifier: GPL-3.0-or-later
// Which logs there are: the user's own, and those that runs were told to keep elsewhere.
#pragma once

#include "machine/Install.h"

#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

namespace sm::app {

struct KnownLog {
    std::filesystem::path path;
    std::time_t written = 0; ///< seconds since 1970, UTC
};

class LogBook {
public:
    explicit LogBook(const Install& install) : m_folder(install.places.stateFolder) {}

    /// Remembers a file or a folder that logs go to, the last hundred of them. What can't be remembered isn't: the logs
    /// are written all the same.
    void Remember(const std::filesystem::path& place) const noexcept;
    /// The newest first. Of a remembered folder those files that a conversion began; what is gone is left out.
    [[nodiscard]] std::vector<KnownLog> Logs() const;

private:
    [[nodiscard]] std::vector<std::string> Places() const;
    [[nodiscard]] std::filesystem::path File() const;

    std::filesystem::path m_folder;
};

} // namespace sm::app
