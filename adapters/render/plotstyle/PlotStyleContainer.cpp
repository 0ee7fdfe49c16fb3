// SPDX-License-Identifier: GPL-3.0-or-later
// Files of plot styles begin with a line "PIAFILEVERSION_2.0,CTBVER1,compress" and the codec's name; then come three
// words of four bytes, low byte first (the Adler-32 sum of what follows, its size as text, its size in the file), and a
// zlib stream. Other programs write the text as it is, with the first line or without.
#include "base/files/File.h"
#include "plotstyle/PlotStyleText.h"
#include "render/PlotStyleTable.h"

#include <libdeflate.h>
#include <memory>

namespace sm::render {

namespace {

constexpr std::string_view kHead = "PIAFILEVERSION_";
constexpr std::string_view kCodec = "pmzlibcodec";
constexpr std::size_t kLargestTable = 8 << 20;
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
std::string Inflate(std::string_view bytes, const std::string& path)
{
    const std::size_t begin = StreamBegin(bytes);
    if (bytes.size() <= begin) {
        FailPlotStyle(path, 0, "the file ends before its contents");
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
            FailPlotStyle(path, 0, "its compressed contents are damaged or cut off");
        }
        if (room == kLargestText) {
            FailPlotStyle(path, 0, "it holds too much for a plot style table");
        }
    }
}

} // namespace

PlotStyleContent UnpackPlotStyleFile(std::string_view bytes, const std::string& path)
{
    if (bytes.size() > kLargestTable) {
        FailPlotStyle(path, 0, "the file is larger than 8 MB");
    }
    if (!bytes.starts_with(kHead)) {
        return {std::string(bytes), false, false};
    }
    const std::size_t end = bytes.find('\n');
    const std::string_view head = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    PlotStyleContent content{{}, true, head.find("CTB") != std::string_view::npos};
    if (!content.byColor && head.find("STB") == std::string_view::npos) {
        FailPlotStyle(path, 1, "the file is no plot style table");
    }
    if (!bytes.starts_with(kCodec)) {
        if (head.find("compress") != std::string_view::npos) {
            FailPlotStyle(path, 2, "its contents are compressed in an unknown way");
        }
        content.text = bytes;
        return content;
    }
    content.text = Inflate(bytes.substr(kCodec.size()), path);
    return content;
}

PlotStyleTable ReadPlotStyleTable(const std::string& path)
{
    std::error_code error;
    const base::FileFacts facts = base::FactsOf(path, error);
    const bool tooLarge = facts.kind == base::FileKind::File && facts.stamp.size > kLargestTable;
    if (tooLarge) {
        FailPlotStyle(path, 0, "the file is larger than 8 MB");
    }
    const std::optional<std::string> bytes = base::ReadRegularFile(path, kLargestTable);
    if (!bytes || bytes->empty()) {
        FailPlotStyle(path, 0, bytes ? "the file is empty" : "the file can't be read");
    }
    return ParsePlotStyleTable(*bytes, path);
}

} // namespace sm::render
