// SPDX-License-Identifier: GPL-3.0-or-later
// The marks that wait for a page until the PDF is saved. Coordinates are points from the page's lower-left corner.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace sm::publisher {

struct TextStampMark {
    double x = 0, y = 0;
    std::string text;
    std::string fontName;
    std::int32_t fontSize = 0;
    std::int32_t color = 0;         ///< red in the low byte
    std::int32_t justification = 0; ///< 0 left, 1 centre, 2 right of the point
    bool isEmbedded = false;        ///< in a font that the PDF holds, also where a standard font would do
    friend bool operator==(const TextStampMark&, const TextStampMark&) = default;
};

struct SignatureFieldMark {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0; ///< two opposite corners in any order
    std::string name;
    std::string label;
    friend bool operator==(const SignatureFieldMark&, const SignatureFieldMark&) = default;
};

/// Size of the icon that stands for an attached file, in points.
inline constexpr double kAttachmentWidth = 14, kAttachmentHeight = 20;

struct AttachmentMark {
    double x = 0, y = 0;
    std::string filePath;
    friend bool operator==(const AttachmentMark&, const AttachmentMark&) = default;
};

struct LinkMark {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0; ///< two opposite corners in any order
    std::string url;
    std::size_t page = 0; ///< of the document, from 1, that it leads to in place of the address; 0: none
    friend bool operator==(const LinkMark&, const LinkMark&) = default;
};

struct PropertyMark {
    std::string name;
    std::string value;
    friend bool operator==(const PropertyMark&, const PropertyMark&) = default;
};

using Mark = std::variant<TextStampMark, SignatureFieldMark, AttachmentMark, LinkMark, PropertyMark>;
using Marks = std::vector<Mark>;

} // namespace sm::publisher
