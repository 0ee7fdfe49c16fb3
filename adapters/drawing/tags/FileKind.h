// SPDX-License-Identifier: GPL-3.0-or-later
// What a file is by its first bytes.
#pragma once

#include "tags/TagCursor.h"

#include <string>
#include <string_view>

namespace sm::drawing {

struct DxfKind {
    TagFormat format = TagFormat::Ascii;
    std::uint64_t begin = 0; ///< of the first tag
};

/// What writes files that begin like `bytes`: "release 2018", "an unknown release (AC1099)"; empty for no DWG.
std::string DwgRelease(std::string_view bytes);

/// How a DWG is read by its first bytes: through the converter (older than R9), as records of bytes (R9 to R12), or as
/// objects (R13 and later, releases that are newer than those known among them).
enum class DwgForm : std::uint8_t { NoDwg, Converted, Records, Objects };
DwgForm FormOfDwg(std::string_view bytes);

/// How the DXF in `bytes` is written. Throws DrawingError for what is plainly something else; `path` names it.
DxfKind RecogniseDxf(std::string_view bytes, const std::string& path);

/// The error for a file in which nothing usable was found.
[[noreturn]] void ThrowNothingUsable(std::string_view bytes, const std::string& path, std::uint32_t tags);

} // namespace sm::drawing
