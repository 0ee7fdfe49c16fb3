#include "pdf/PdfNumbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace sm::publisher {

std::string NumberText(double value)
{
    std::array<char, 400> buffer{};
    if (!std::isfinite(value)) {
        return "0";
    }
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, 5);
    std::string text(buffer.data(), result.ptr);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

} // namespace sm::publisher
