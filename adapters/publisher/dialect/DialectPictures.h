// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of a page in the plotter's dialect: image resources that are defined before the fonts.
#pragma once

#include "pdf/Qpdf.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm::publisher {

/// `data` is deflated pixels, checked to be as many as the size asks for, or a JPEG file.
struct DialectPicture {
    enum class Form : std::uint8_t { Mask, Gray, ClearGray, Rgb, ClearRgb, JpegGray, JpegRgb };
    Form form = Form::Rgb;
    std::int32_t width = 0, height = 0; ///< at least 1
    std::string data;
};

/// Takes the pictures I1, I2, … off the front of `setup`; nothing when one of them isn't as the plotter writes it.
std::optional<std::vector<DialectPicture>> TakeDialectPictures(std::string_view& setup);

/// Turns pictures into image XObjects, one for equal pictures even on several pages.
class DialectPictureObjects {
public:
    explicit DialectPictureObjects(QPDF& pdf) : m_pdf(pdf) {}
    /// The /XObject resources of a page with these pictures.
    QPDFObjectHandle Resources(std::vector<DialectPicture>& pictures);

private:
    QPDFObjectHandle ObjectOf(DialectPicture& picture);
    struct Known {
        QPDFObjectHandle object;
        std::string dictionary;
    };
    QPDF& m_pdf;
    std::multimap<std::size_t, Known> m_known; ///< by a hash of the data
};

/// False when `jobOptions` (our clean text of them) ask for these pictures to be made smaller or encoded otherwise:
/// that is the interpreter's work.
bool JobOptionsKeepPictures(const std::string& jobOptions, const std::vector<DialectPicture>& pictures);

} // namespace sm::publisher
