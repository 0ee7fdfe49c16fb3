// SPDX-License-Identifier: GPL-3.0-or-later
// Writes groups the way a given file writes its own.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/TextDecoder.h"
#include "tags/TagCursor.h"

#include <string>

namespace sm::drawing {

/// How a file lays its groups down.
struct TagStyle {
    TagFormat format = TagFormat::Ascii;
    std::string lineEnd = "\n";
    bool paddedCodes = false;    ///< "  0" rather than "0"
    bool paddedIntegers = false; ///< "     1" rather than "1"
};

class TagWriter {
public:
    TagWriter(TagStyle style, const TextDecoder& text) : m_style(std::move(style)), m_text(text) {}

    /// Appends a group; `value` is UTF-8 text, as XDataItem holds it. Control characters of texts become "^J" and the
    /// like.
    void Write(int code, const std::string& value);
    /// Appends a value alone.
    void WriteValue(int code, const std::string& value);
    [[nodiscard]] const std::string& Bytes() const { return m_bytes; }

private:
    void WriteCode(int code);
    void WriteAsciiValue(int code, const std::string& value);
    void WriteChunks(int code, const std::string& hexadecimal);
    template <class Number> void Append(Number number);

    TagStyle m_style;
    const TextDecoder& m_text;
    std::string m_bytes;
};

/// Control characters and carets in the form of DXF texts: "^J", "^ ".
std::string EncodeCarets(const std::string& text);
/// The reverse, for every control character.
std::string DecodeAllCarets(const std::string& text);

/// The text form of the cursor's value.
std::string ItemText(const TagCursor& tag, const TextDecoder& text);

} // namespace sm::drawing
