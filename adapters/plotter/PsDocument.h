// The frame round a page's operators: a PostScript document of one page after the document structuring conventions.
#pragma once

#include "plotter/PsWriter.h"

#include <string>

namespace sm::plotter {

struct PsDocument {
    std::string title;            ///< UTF-8
    std::string creator;          ///< UTF-8
    double width = 0, height = 0; ///< millimetres
    double resolution = 1200;     ///< dots per inch
    std::int32_t rotation = 0;    ///< quarter turns counter-clockwise that make the page readable
};

/// Everything before the page's operators, fonts included.
std::string PsHead(const PsDocument& document, const FontBook& fonts);
/// Everything after them.
std::string PsTail();

/// Writes the page to `path`: to a temporary beside it, then renamed. Throws std::system_error.
void WriteDocument(const PsDocument& document, PsWriter& writer, const std::string& path);

} // namespace sm::plotter
