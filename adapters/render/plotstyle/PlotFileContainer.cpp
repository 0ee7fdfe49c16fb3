// SPDX-License-Identifier: GPL-3.0-or-later
// Such files begin with a line "PIAFILEVERSION_2.0,CTBVER1,compress" and the codec's name; then come three
// words of four bytes, low byte first (the Adler-32 sum of what follows, its size as text, its size in the file), and a
// zlib stream. Other programs write the text as it is, with the first line or without.
#include "render/PlotFileText.h"

#include <algorithm>
#include <libdeflate.h>
#include <memory>
#include <new>

namespace sm::render {

namespace {

constexpr std::string_view kHead = "PIAFILEVERSION_";
constexpr std::string_view kCodec = "pmzlibcodec";
constexpr std::size_t kLargestText = 16 << 20;

std::size_t WordAt(std::string_view bytes, std::size_t at)
{
    std::size_t word = 0;
    for (std::size_t i = 4; i-- > 0;) {
        word = word << 8 | static_cast<unsigned char>(bytes[at + i]);
    }
    return word;
}

/// Some programs wrote words of eight bytes.
std::size_t StreamBegin(std::string_view bytes)
{
    constexpr std::size_t kWords = 12;
    constexpr char kZlib = 0x78;
    return bytes.size() > 2 * kWords && bytes[kWords] != kZlib && bytes[2 * kWords] == kZlib ? 2 * kWords : kWords;
}

/// The words' sizes are hints: a stream tells its own end, and its own sum.
std::string Inflate(std::string_view bytes, const std::string& kind)
{
    const std::size_t begin = StreamBegin(bytes);
    if (bytes.size() <= begin) {
        throw PlotFileFault(0, "the file ends before its contents");
    }
    std::size_t room = std::min(std::max<std::size_t>(WordAt(bytes, 4), 1024), kLargestText);
    bytes.remove_prefix(begin);
    const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> inflater(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    if (!inflater) {
        throw std::bad_alloc();
    }
    for (;; room = std::min(room * 4, kLargestText)) {
        std::string text(room, '\0');
        std::size_t size = 0;
        const auto result =
            libdeflate_zlib_decompress(inflater.get(), bytes.data(), bytes.size(), text.data(), text.size(), &size);
        if (result == LIBDEFLATE_SUCCESS) {
            text.resize(size);
            return text;
        }
        if (result != LIBDEFLATE_INSUFFICIENT_SPACE) {
            throw PlotFileFault(0, "its compressed contents are damaged or cut off");
        }
        if (room == kLargestText) {
            throw PlotFileFault(0, "it holds too much for " + kind);
        }
    }
}

} // namespace

bool IsPlotFile(std::string_view bytes)
{
    return bytes.starts_with(kHead);
}

std::string UnpackPlotFile(std::string_view bytes, const std::string& kind)
{
    if (!IsPlotFile(bytes)) {
        return std::string(bytes);
    }
    const std::size_t end = bytes.find('\n');
    const std::string_view head = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    if (bytes.starts_with(kCodec)) {
        return Inflate(bytes.substr(kCodec.size()), kind);
    }
    if (head.find("compress") != std::string_view::npos) {
        throw PlotFileFault(2, "its contents are compressed in an unknown way");
    }
    return std::string(bytes);
}

} // namespace sm::render
