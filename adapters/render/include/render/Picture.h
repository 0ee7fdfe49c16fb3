// SPDX-License-Identifier: GPL-3.0-or-later
// A picture made of pixels, ready for an output device.
#pragma once

#include <cstdint>
#include <string>

namespace sm::render {

/// Rows run from the top, pixels from the left; each row is padded to whole bytes.
struct Picture {
    enum class Form : std::uint8_t {
        Mask,     ///< a bit a pixel, the highest first: 1 is painted in the colour at hand, 0 shows what is beneath
        Gray,     ///< a byte a pixel
        Rgb,      ///< three bytes a pixel
        JpegGray, ///< a JPEG file of one component
        JpegRgb   ///< a JPEG file of three components
    };
    std::uint64_t id = 0; ///< the same for the same picture throughout a run, not 0
    Form form = Form::Rgb;
    bool whiteIsClear = false; ///< Gray and Rgb: pure white shows what is beneath
    std::int32_t width = 0, height = 0;
    std::string bytes;
};

} // namespace sm::render
