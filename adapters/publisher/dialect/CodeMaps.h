// SPDX-License-Identifier: GPL-3.0-or-later
// What the one-byte codes of a page's strings mean, as the streams that a PDF's fonts hold.
#pragma once

#include "dialect/DialectPage.h"
#include "pdf/Qpdf.h"

#include <cstdint>
#include <map>

namespace sm::publisher {

/// Numbers of glyphs in a document's font, by code.
using GlyphNumbers = std::map<std::uint8_t, std::uint16_t>;

/// The collection that glyphs called by their numbers belong to.
inline constexpr const char* kGlyphCollection = "<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>";

/// Codes to glyphs (PDF 1.7, 9.7.5.3).
QPDFObjectHandle CodeMap(QPDF& pdf, const GlyphNumbers& numbers);
/// Codes to text (PDF 1.7, 9.10.3). A code without one stands for nothing.
QPDFObjectHandle ToUnicode(QPDF& pdf, const DialectFont& font);

} // namespace sm::publisher
