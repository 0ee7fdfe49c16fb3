// SPDX-License-Identifier: GPL-3.0-or-later
// The files that a CAD host keeps settings of plots in, plot style tables (.ctb, .stb) and plotter configurations
// (.pc3): a text of "name=value", "name="text" and "name{" ... "}", one a line, most often in a compressed container.
#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

namespace sm::render {

/// What is wrong with such a file, as the end of a sentence, and where; line 0: nowhere in particular.
class PlotFileFault : public std::runtime_error {
public:
    PlotFileFault(std::int32_t line, const std::string& what) : std::runtime_error(what), m_line(line) {}
    [[nodiscard]] std::int32_t Line() const { return m_line; }

private:
    std::int32_t m_line;
};

/// Values and groups by name; a later one of a name takes the earlier one's place.
struct PlotFileGroup {
    struct Value {
        std::string text; ///< without the quote
        std::int32_t line = 0;
    };
    std::map<std::string, Value, std::less<>> values;
    std::map<std::string, PlotFileGroup, std::less<>> groups;
};

/// Throws PlotFileFault. `kind` is what the file should be, with its article: "a plot style table".
PlotFileGroup ParsePlotFileText(std::string_view text, const std::string& kind);

/// The file begins with a line of the family, "PIAFILEVERSION_2.0,CTBVER1,compress": it is more than its text.
bool IsPlotFile(std::string_view bytes);
/// The text inside. Throws PlotFileFault.
std::string UnpackPlotFile(std::string_view bytes, const std::string& kind);

} // namespace sm::render
