// SPDX-License-Identifier: GPL-3.0-or-later
// Turns DXF text into its binary form, for tests.
#pragma once

#include <cstring>
#include <sstream>
#include <string>

namespace sm::drawing::testing {

/// The width of a binary value by its group code: 0 text, -1 chunk, else bytes; doubles are 8 with `real`.
struct BinaryWidth {
    int width;
    bool real;
};

inline BinaryWidth WidthOf(int code)
{
    const auto in = [code](int low, int high) { return code >= low && code <= high; };
    if (in(10, 59) || in(110, 149) || in(210, 239) || in(460, 469) || in(1010, 1059))
        return {8, true};
    if (in(60, 79) || in(170, 179) || in(270, 289) || in(370, 389) || in(400, 409) || in(1060, 1070))
        return {2, false};
    if (in(90, 99) || in(420, 429) || in(440, 459) || code == 1071)
        return {4, false};
    if (in(160, 169))
        return {8, false};
    if (in(290, 299))
        return {1, false};
    return {in(310, 319) || code == 1004 ? -1 : 0, false};
}

inline void AppendBytes(std::string& bytes, const void* from, int count)
{
    bytes.append(static_cast<const char*>(from), static_cast<std::size_t>(count));
}

inline void AppendBinaryValue(std::string& bytes, int code, const std::string& value)
{
    const BinaryWidth width = WidthOf(code);
    if (width.real) {
        const double number = std::stod(value);
        AppendBytes(bytes, &number, 8);
    } else if (width.width > 0) {
        const long long number = std::stoll(value);
        AppendBytes(bytes, &number, width.width);
    } else if (width.width == 0) {
        bytes += value + '\0';
    } else {
        bytes.push_back(static_cast<char>(value.size() / 2));
        for (std::size_t at = 0; at + 1 < value.size(); at += 2)
            bytes.push_back(static_cast<char>(std::stoi(value.substr(at, 2), nullptr, 16)));
    }
}

/// `wide`: two-byte group codes, as from R13 on.
inline std::string ToBinary(const std::string& text, bool wide)
{
    std::string bytes("AutoCAD Binary DXF\r\n\x1a\0", 22);
    std::istringstream lines(text);
    std::string codeLine, value;
    while (std::getline(lines, codeLine) && std::getline(lines, value)) {
        const int code = std::stoi(codeLine);
        const auto narrow = static_cast<short>(code);
        if (!wide && code < 255) {
            bytes.push_back(static_cast<char>(code));
        } else {
            bytes += wide ? "" : "\xFF";
            AppendBytes(bytes, &narrow, 2);
        }
        AppendBinaryValue(bytes, code, value);
    }
    return bytes;
}

} // namespace sm::drawing::testing
