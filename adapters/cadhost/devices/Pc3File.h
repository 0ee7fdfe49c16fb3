// SPDX-License-Identifier: GPL-3.0-or-later
// What a plotter configuration tells.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sm::cadhost {

/// Unprintable strips of a sheet, millimetres.
struct Margins {
    double left = 0, bottom = 0, right = 0, top = 0;
    friend bool operator==(const Margins&, const Margins&) = default;
};

/// A sheet that a plotter takes; millimetres, as it lies unturned.
struct Medium {
    std::string canonicalName, localeName;
    double width = 0, height = 0;
    Margins margins;
    friend bool operator==(const Medium&, const Medium&) = default;
};

struct Pc3File {
    std::string device, driver;
    std::int32_t resolution = 0; ///< dots per inch
    std::vector<Medium> media;
    /// Null when the plotter doesn't take it.
    [[nodiscard]] const Medium* FindMedium(std::string_view canonicalName) const;
};

/// One of our own, as text. Throws HostError with one line that names the file, which `name` stands for, the line and
/// what is wrong there.
Pc3File ParseOwnPc3(std::string_view text, const std::string& name);

} // namespace sm::cadhost
