// SPDX-License-Identifier: GPL-3.0-or-later
// The text inside plot style tables: "name=value", "name="text" and "name{" ... "}", one a line. For this folder only.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

/// Values and groups by name; a later one of a name takes the earlier one's place.
struct PlotStyleGroup {
    struct Value {
        std::string text; ///< without the quote
        std::int32_t line = 0;
    };
    std::map<std::string, Value, std::less<>> values;
    std::map<std::string, PlotStyleGroup, std::less<>> groups;
};

/// Throws PlotStyleError that names `path` and the line.
PlotStyleGroup ParsePlotStyleText(std::string_view text, const std::string& path);

/// Takes the file's container off: the text inside, and whether the head says that it goes by colour.
struct PlotStyleContent {
    std::string text;
    bool hasHead = false, byColor = false;
};
PlotStyleContent UnpackPlotStyleFile(std::string_view bytes, const std::string& path);

/// "PATH, line 7: WHAT. REMEDY" as the error that it is.
[[noreturn]] void FailPlotStyle(const std::string& path, std::int32_t line, const std::string& what);

} // namespace sm::render
