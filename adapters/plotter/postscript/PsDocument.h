// SPDX-License-Identifier: GPL-3.0-or-later
// The frame round a page's operators: a PostScript document of one page after the document structuring conventions.
#pragma once

#include "postscript/PsWriter.h"
#include "render/Style.h"

#include <string>

namespace sm::plotter {

struct PsDocument {
    std::string title;                   ///< UTF-8
    std::string creator;                 ///< UTF-8
    double width = 0, height = 0;        ///< millimetres
    double unitsPerInch = kUnitsPerInch; ///< of the body's coordinates
    std::int32_t rotation = 0;           ///< quarter turns counter-clockwise that make the page readable
    /// The layers that the body marks. They stand in comments of the head: "%SheetmakerLayer: 3 on <57616C6C73>", with
    /// on, off or unplotted and the name's UTF-8 in hexadecimal.
    struct Layer {
        std::uint32_t number = 0;
        std::string name; ///< UTF-8
        render::LayerSight sight = render::LayerSight::Plots;
    };
    std::vector<Layer> layers = {};
};

/// Writes the page to `path`: to a temporary beside it, then renamed. Throws std::system_error.
void WriteDocument(const PsDocument& document, PsWriter& writer, const std::string& path);

} // namespace sm::plotter
