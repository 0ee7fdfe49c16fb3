// SPDX-License-Identifier: GPL-3.0-or-later
// Which settings of job options files are kept, and what their values may be.
#pragma once

#include <span>
#include <string_view>

namespace sm::publisher {

struct JobOptionsRule {
    enum class Kind {
        Boolean,
        Integer,   ///< whole number from `low` to `high`
        Real,      ///< number from `low` to `high`
        Choice,    ///< one of the names in `choices`
        ImageDict, ///< quality settings of an image filter
        FontList,  ///< array of font names, perhaps after one Boolean
        Samples,   ///< array of three or four whole numbers from `low` to `high`
    };
    std::string_view name;
    Kind kind;
    double low = 0, high = 0;
    /// Blank-separated names; "A=B" accepts A and keeps B, "A=" accepts A and leaves the setting out.
    std::string_view choices = {};
};

/// Sorted by name. Names and ranges are those of the page-making parameters of the PostScript interpreter.
std::span<const JobOptionsRule> JobOptionsRules();
/// The entries of an image filter's dictionary.
std::span<const JobOptionsRule> ImageDictRules();
/// Null when there is none of that name.
const JobOptionsRule* FindRule(std::span<const JobOptionsRule> rules, std::string_view name);

} // namespace sm::publisher
