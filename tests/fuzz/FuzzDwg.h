// What is fuzzed: the readers of DWG files and all that stands on them in the room of drawings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace sm::drawing::dwg::testing {

/// The first byte of an input chooses what it is.
enum class Mode : std::uint8_t {
    Pages2004, ///< two bytes: size of the target; the rest is compressed as in R2004
    Pages2007, ///< the same as in R2007
    Built,     ///< one byte: release; the rest is parts of a file (see BuiltFile.h)
    Count
};
/// An input that begins so is a whole file.
constexpr char kWholeFile = 'A';

/// How inputs of one kind are counted: "whole AC1032", "built AC1015", "pages 2004".
std::string KindOfInput(const std::uint8_t* data, std::size_t size);

} // namespace sm::drawing::dwg::testing
