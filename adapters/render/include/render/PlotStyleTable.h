// SPDX-License-Identifier: GPL-3.0-or-later
// Plot style tables: what a pen of each colour (.ctb) or each named style (.stb) makes of what it plots.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

/// Why a table can't be used. `what()` is one line that names the file, the place and the remedy.
class PlotStyleError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Codes of the file, in its order.
enum class PlotFill : std::uint8_t {
    Solid = 64,
    Checkerboard,
    Crosshatch,
    Diamonds,
    HorizontalBars,
    SlantLeft,
    SlantRight,
    SquareDots,
    VerticalBars,
    Object
};
enum class PlotEnd : std::uint8_t { Butt, Square, Round, Diamond, Object };
enum class PlotJoin : std::uint8_t { Miter, Bevel, Round, Diamond, Object = 5 };

/// Line types 0 to 30 are the plotter's own; this one is the object's.
inline constexpr std::int32_t kObjectLinetype = 31;

struct PlotStyle {
    std::string name;                   ///< in the bytes of the file
    std::optional<std::uint32_t> color; ///< 0xRRGGBB; nothing: the object's
    bool gray = false;                  ///< colours become greys of the same lightness
    std::int32_t screen = 100;          ///< per cent of the ink
    double patternSize = 0.5;           ///< mm, of line types
    std::int32_t linetype = kObjectLinetype;
    bool adaptive = true;       ///< line types are stretched to end with whole dashes
    std::size_t lineweight = 0; ///< place in the table's lineweights; 0: the object's
    PlotFill fill = PlotFill::Object;
    PlotEnd end = PlotEnd::Object;
    PlotJoin join = PlotJoin::Object;
};

struct PlotStyleTable {
    std::string path;
    bool byColor = true;      ///< styles[i] is of colour index i + 1; else they go by name
    double linetypeScale = 1; ///< of line types 0 to 16
    std::vector<PlotStyle> styles;
    std::vector<double> lineweights; ///< mm
};

/// Reads the bytes of a .ctb or .stb file, compressed or plain. Throws PlotStyleError.
PlotStyleTable ParsePlotStyleTable(std::string_view bytes, const std::string& path);

/// The same of a file. Throws PlotStyleError, also for what can't be read or is larger than 8 MB.
PlotStyleTable ReadPlotStyleTable(const std::string& path);

} // namespace sm::render
