// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of pixels, and the pictures of objects of other programs.
#include "fuzz/Target.h"
#include "fuzz/targets/Targets.h"
#include "images/MakePicture.h"
#include "ole/OlePicture.h"

#include <algorithm>
#include <array>
#include <libdeflate.h>

namespace sm::fuzz {

namespace {

using namespace std::string_literals;

/// Work that an input may ask for.
constexpr std::int64_t kMostPixels = 60'000;

std::string Number(std::uint64_t value, unsigned count)
{
    std::string bytes;
    for (unsigned i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
    return bytes;
}

std::string Backwards(std::string bytes)
{
    std::ranges::reverse(bytes);
    return bytes;
}

constexpr std::string_view kPng("\x89PNG\r\n\x1A\n", 8);

/// The sums of a PNG's chunks put right, so that what stands in them is met.
std::string WithRightSums(std::string png)
{
    constexpr std::size_t kAround = 12;
    for (std::size_t at = kPng.size(); at + kAround <= png.size();) {
        std::size_t length = 0;
        for (std::size_t i = 0; i < 4; ++i)
            length = length << 8U | static_cast<unsigned char>(png[at + i]);
        if (length > png.size() - at - kAround)
            break;
        const std::uint32_t sum = libdeflate_crc32(0, png.data() + at + 4, length + 4);
        png.replace(at + 8 + length, 4, Backwards(Number(sum, 4)));
        at += kAround + length;
    }
    return png;
}

std::string Chunk(const std::string& kind, const std::string& data)
{
    return Backwards(Number(data.size(), 4)) + kind + data + "sum ";
}

/// Rows as PNG has them, in one stored block.
std::string Png(unsigned width, unsigned height, unsigned depth, unsigned kind, const std::string& rows,
                const std::string& more = "")
{
    const std::string stream = "\x78\x01\x01"s + Number(rows.size(), 2) + Number(~rows.size(), 2) + rows +
                               Backwards(Number(libdeflate_adler32(1, rows.data(), rows.size()), 4));
    return WithRightSums(std::string(kPng) +
                         Chunk("IHDR", Backwards(Number(width, 4)) + Backwards(Number(height, 4)) + Number(depth, 1) +
                                           Number(kind, 1) + std::string(3, '\0')) +
                         more + Chunk("IDAT", stream) + Chunk("IEND", ""));
}

std::string Bmp(unsigned width, unsigned height, unsigned bits, unsigned compression, const std::string& rest)
{
    return "BM" + Number(54 + rest.size(), 4) + Number(0, 4) + Number(54, 4) + Number(40, 4) + Number(width, 4) +
           Number(height, 4) + Number(1, 2) + Number(bits, 2) + Number(compression, 4) + std::string(20, '\0') + rest;
}

std::string Tiff(const std::vector<std::array<unsigned, 4>>& entries, const std::string& data)
{
    std::string file = "II*\0"s + Number(8 + data.size(), 4) + data + Number(entries.size(), 2);
    for (const auto& [tag, type, count, value] : entries)
        file += Number(tag, 2) + Number(type, 2) + Number(count, 4) + Number(value, 4);
    return file + Number(0, 4);
}

std::string Record(unsigned function, const std::string& words)
{
    return Number(3 + words.size() / 2, 4) + Number(function, 2) + words;
}

std::string Words(const std::vector<int>& values)
{
    std::string bytes;
    for (const int value : values)
        bytes += Number(static_cast<std::uint16_t>(value), 2);
    return bytes;
}

/// A record of an enhanced metafile.
std::string Enhanced(unsigned kind, const std::vector<unsigned>& values, const std::string& more = "")
{
    std::string body = more;
    for (auto value = values.rbegin(); value != values.rend(); ++value)
        body.insert(0, Number(*value, 4));
    return Number(kind, 4) + Number(8 + body.size(), 4) + body;
}

void CheckPicture(const render::Picture& picture)
{
    const auto pixels = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    const auto row = (static_cast<std::size_t>(picture.width) + 7) / 8;
    const bool isSound = picture.form == render::Picture::Form::Mask
                             ? picture.bytes.size() == row * static_cast<std::size_t>(picture.height)
                         : picture.form == render::Picture::Form::Gray ? picture.bytes.size() == pixels
                         : picture.form == render::Picture::Form::Rgb  ? picture.bytes.size() == 3 * pixels
                                                                       : !picture.bytes.empty();
    if (!isSound)
        Fail("a picture has as many bytes as its size asks for");
}

} // namespace

void FuzzPictures(std::string_view input)
{
    try {
        auto file =
            render::PictureFile::Open(input.starts_with(kPng) ? WithRightSums(std::string(input)) : std::string(input));
        const render::PictureHead& head = file->Head();
        if (head.width < 1 || head.height < 1)
            Fail("a picture has a size");
        if (std::int64_t{head.width} * head.height > kMostPixels)
            return;
        render::PictureLook look;
        if (input.size() % 3 == 1)
            look = {60, 40, 10, 2, true, true};
        CheckPicture(render::MakePicture(std::move(file), look));
    } catch (const render::PictureError& error) {
        CheckReason(error.what());
    }
}

/// A compound file, a bitmap without its first header, or a metafile of either kind.
void FuzzMetafiles(std::string_view input)
{
    if (input.starts_with("\xD0\xCF")) {
        (void)render::ReadOlePicture(input);
    } else if (input.starts_with("\x28")) {
        constexpr std::size_t kHeader = 16;
        const auto side = [&](std::size_t at) {
            return input.size() < kHeader
                       ? 0
                       : static_cast<unsigned char>(input[at]) + 256 * static_cast<unsigned char>(input[at + 1]);
        };
        if (std::int64_t{side(4)} * side(8) > kMostPixels)
            return;
        if (const auto picture = render::ReadDib(input))
            CheckPicture(*picture);
    } else {
        (void)render::ReadMetafile(input);
    }
}

Inputs PictureSeeds()
{
    const std::string palette = Chunk("PLTE", "\xFF\0\0\0\xFF\0"s) + Chunk("tRNS", "\x40");
    Inputs seeds{Png(2, 2, 8, 2, "\0abcdef\1ghijkl"s), Png(9, 1, 1, 0, "\0\xAA\x80"s), Png(2, 1, 8, 6, "\0abcdefgh"s),
                 Png(2, 1, 8, 3, "\0\0\1"s, palette), Png(1, 1, 16, 0, "\0\1\2"s)};
    seeds.push_back(Bmp(2, 2, 24, 0, "abcdef  ghijkl  "));
    seeds.push_back(Bmp(8, 2, 1, 0, "\0\0\0\0\xFF\xFF\xFF\0\xAA   \x55   "s));
    seeds.push_back(Bmp(4, 1, 4, 2, std::string(64, 'p') + "\4\x12\0\1"s));
    seeds.push_back(Bmp(4, 1, 8, 1, std::string(1024, 'p').substr(0, 64) + "\3\1\0\3abc\0\0\2\1\1\0\1"s));
    seeds.push_back(Bmp(2, 1, 16, 3, "\0\xF8\0\0\xE0\7\0\0\x1F\0\0\0abcd"s));
    seeds.push_back(Tiff({{256, 3, 1, 4},
                          {257, 3, 1, 2},
                          {258, 3, 1, 8},
                          {259, 3, 1, 1},
                          {262, 3, 1, 1},
                          {273, 4, 1, 8},
                          {277, 3, 1, 1},
                          {278, 3, 1, 2},
                          {279, 4, 1, 8}},
                         "abcdefgh"));
    seeds.push_back(Tiff({{256, 3, 1, 8},
                          {257, 3, 1, 2},
                          {258, 3, 1, 1},
                          {259, 3, 1, 32773},
                          {262, 3, 1, 0},
                          {273, 4, 1, 8},
                          {277, 3, 1, 1},
                          {278, 3, 1, 2},
                          {279, 4, 1, 4}},
                         "\1\xAA\x55\0"s));
    // A JPEG of one component, 8 by 8: tables of one code each.
    seeds.push_back("\xFF\xD8\xFF\xDB\0\x43\0"s + std::string(64, '\1') + "\xFF\xC0\0\x0B\x08\0\x08\0\x08\1\1\x11\0"s +
                    "\xFF\xC4\0\x14\0\1"s + std::string(15, '\0') + "\0"s + "\xFF\xC4\0\x14\x10\1"s +
                    std::string(15, '\0') + "\0"s + "\xFF\xDA\0\x08\1\1\0\0\x3F\0\0\x3F\xFF\xD9"s);
    return seeds;
}

Inputs MetafileSeeds()
{
    const std::string head = Number(1, 2) + Number(9, 2) + Number(0x300, 2) + std::string(12, '\0');
    const std::string window = Record(0x20B, Words({0, 0})) + Record(0x20C, Words({50, 100}));
    const std::string end = Record(0, "");
    const std::string dib =
        Number(40, 4) + Number(2, 4) + Number(1, 4) + Number(1, 2) + Number(24, 2) + std::string(24, '\0') + "abcdef  ";
    const std::string pens = Record(0x2FA, Words({0, 1, 0, 0xFF, 0})) + Record(0x12D, Words({0})) +
                             Record(0x2FC, Words({0, 0xFF00, 0, 0})) + Record(0x12D, Words({1}));
    const std::string shapes = Record(0x214, Words({20, 10})) + Record(0x213, Words({40, 60})) +
                               Record(0x41B, Words({40, 60, 10, 5})) + Record(0x418, Words({40, 60, 10, 5})) +
                               Record(0x324, Words({3, 1, 1, 9, 1, 9, 9})) + Record(0x325, Words({2, 1, 1, 9, 9})) +
                               Record(0x817, Words({1, 2, 3, 4, 40, 60, 10, 5}));
    const std::string text = Record(0x2FB, Words({-12, 0, 0, 0, 400, 0, 0, 0, 0}) + "Arial\0"s) +
                             Record(0x12D, Words({0})) + Record(0x521, Words({2}) + "ab" + Words({10, 10})) +
                             Record(0xA32, Words({10, 10, 2, 0}) + "ab");
    const std::string bitmap = Record(0xF43, Number(0xCC0020, 4) + Words({0, 1, 2, 0, 0, 40, 60, 5, 5}) + dib);
    std::string header(80, '\0');
    header.replace(0, 32, std::string(24, '\0') + Number(5000, 4) + Number(5000, 4));
    header.replace(32, 4, " EMF");
    const std::string enhanced = Enhanced(1, {}, header) + Enhanced(9, {100, 50}) + Enhanced(11, {100, 50}) +
                                 Enhanced(27, {5, 5}) + Enhanced(54, {50, 40}) + Enhanced(38, {1, 0, 1, 0, 0xFF}) +
                                 Enhanced(37, {1}) + Enhanced(39, {2, 0, 0xFF00, 0}) + Enhanced(37, {2}) +
                                 Enhanced(43, {5, 5, 40, 30}) + Enhanced(42, {5, 5, 40, 30}) +
                                 Enhanced(3, {0, 0, 9, 9, 3, 1, 1, 9, 1, 9, 9}) + Enhanced(59, {}) + Enhanced(61, {}) +
                                 Enhanced(60, {}) + Enhanced(62, {0, 0, 9, 9}) + Enhanced(14, {0, 0, 20});
    return {dib,
            head + window + pens + shapes + end,
            head + window + text + end,
            head + window + bitmap + end,
            Number(0x9AC6CDD7, 4) + std::string(2, '\0') + Words({0, 0, 100, 50, 96}) + std::string(6, '\0') + head +
                shapes + end,
            enhanced};
}

} // namespace sm::fuzz
