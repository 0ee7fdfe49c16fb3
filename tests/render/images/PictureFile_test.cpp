// SPDX-License-Identifier: GPL-3.0-or-later
// Picture files of each format, and what is made of them.
#include "render/PictureFiles.h"

#include "images/MakePicture.h"
#include "render/Picture.h"

#include <gtest/gtest.h>

namespace sm::render {
namespace {

using Form = Picture::Form;

std::string Hex(const std::string& bytes)
{
    std::string text;
    for (const char c : bytes) {
        text += "0123456789ABCDEF"[static_cast<unsigned char>(c) >> 4];
        text += "0123456789ABCDEF"[c & 15];
    }
    return text;
}

/// "rgb 2x1 FF000000FF00", or why not.
std::string Made(std::string file, const PictureLook& look = {})
{
    static constexpr const char* kForms[] = {"mask", "gray", "rgb", "jpeg gray", "jpeg rgb"};
    try {
        const std::size_t size = file.size();
        const Picture picture = MakePicture(PictureFile::Open(std::move(file)), look);
        const bool jpeg = picture.form == Form::JpegGray || picture.form == Form::JpegRgb;
        return std::string(kForms[static_cast<int>(picture.form)]) + (picture.whiteIsClear ? " clear " : " ") +
               std::to_string(picture.width) + "x" + std::to_string(picture.height) + " " +
               (jpeg ? (picture.bytes.size() == size ? "as it is" : "changed") : Hex(picture.bytes));
    } catch (const PictureError& error) {
        return error.what();
    }
}

const Bytes kRedGreen{255, 0, 0, 0, 255, 0};

std::string Tiff(int bits, int photometric, int compression, std::uint32_t width, std::uint32_t height,
                 const Bytes& pixels)
{
    const PictureFolder folder;
    WriteTiff(folder / "t.tif", width, height, bits, photometric, compression, pixels);
    std::ifstream file(folder / "t.tif", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Black and white, 10 x 1: four black pixels, six white ones. The simple interface of the library writes none.
std::string OneBitPng()
{
    static constexpr char kFile[] =
        "\x89\x50\x4E\x47\x0D\x0A\x1A\x0A\x00\x00\x00\x0D\x49\x48\x44\x52\x00\x00\x00\x0A\x00\x00\x00\x01"
        "\x01\x00\x00\x00\x00\xCF\x8E\x02\xD3\x00\x00\x00\x0B\x49\x44\x41\x54\x78\x9C\x63\xE0\x3F\x00\x00"
        "\x00\xE1\x00\xD0\x65\xB9\xC0\x6B\x00\x00\x00\x00\x49\x45\x4E\x44\xAE\x42\x60\x82";
    return {kFile, sizeof kFile - 1};
}

TEST(PictureFile, EveryFormatGivesItsPixels)
{
    const std::string bmp24 = BmpBytes(2, 2, 24, "", std::string("\1\2\3\4\5\6\0\0\7\x8\x9\xA\xB\xC\0\0", 16));
    const struct {
        const char* name;
        std::string file;
        const char* made;
    } rows[] = {
        {"PNG in colour", PngBytes(2, 1, PNG_FORMAT_RGB, kRedGreen), "rgb 2x1 FF000000FF00"},
        {"PNG in gray", PngBytes(3, 1, PNG_FORMAT_GRAY, {0, 128, 255}), "gray 3x1 0080FF"},
        {"PNG with alpha, over white", PngBytes(3, 1, PNG_FORMAT_RGBA, {255, 0, 0, 255, 0, 0, 0, 0, 0, 0, 0, 51}),
         "rgb 3x1 FF0000FFFFFFCCCCCC"},
        {"PNG in black and white", OneBitPng(), "mask 10x1 F000"},
        {"JPEG in colour", JpegBytes(8, 8, JCS_RGB, Bytes(192, 200)), "jpeg rgb 8x8 as it is"},
        {"JPEG in gray", JpegBytes(8, 8, JCS_GRAYSCALE, Bytes(64, 200)), "jpeg gray 8x8 as it is"},
        {"JPEG in four inks, inverted as usual", JpegBytes(1, 1, JCS_CMYK, {255, 255, 0, 255}), "rgb 1x1 FFFF00"},
        {"TIFF in colour", Tiff(8, PHOTOMETRIC_RGB, COMPRESSION_LZW, 2, 1, kRedGreen), "rgb 2x1 FF000000FF00"},
        {"TIFF of a fax machine", Tiff(1, PHOTOMETRIC_MINISWHITE, COMPRESSION_CCITTFAX4, 10, 2, {0xF0, 0x40, 0, 0x80}),
         "mask 10x2 F0400080"},
        {"TIFF with black as 0", Tiff(1, PHOTOMETRIC_MINISBLACK, COMPRESSION_NONE, 10, 1, {0xF0, 0x40}),
         "mask 10x1 0F80"},
        {"bitmap in colour, lowest row first", bmp24, "rgb 2x2 0908070C0B0A030201060504"},
        {"bitmap, highest row first", BmpBytes(1, -2, 24, "", std::string("\1\2\3\0\4\5\6\0", 8)),
         "rgb 1x2 030201060504"},
        {"bitmap with a palette",
         BmpBytes(2, 1, 4, std::string("\0\0\xFF\0\0\xFF\0\0", 8) + std::string(56, '\0'),
                  std::string("\x10\0\0\0", 4)),
         "rgb 2x1 00FF00FF0000"},
        {"bitmap in black and white",
         BmpBytes(9, 1, 1, std::string("\0\0\0\0\xFF\xFF\xFF\0", 8), std::string("\xF0\x80\0\0", 4)), "mask 9x1 0F00"},
        {"bitmap of two colours",
         BmpBytes(2, 1, 1, std::string("\0\0\xFF\0\xFF\xFF\xFF\0", 8), std::string("\x40\0\0\0", 4)),
         "rgb 2x1 FF0000FFFFFF"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Made(row.file), row.made) << row.name;
    }
}

TEST(PictureFile, DamagedAndHostileFilesAreRefusedWithAReason)
{
    const std::string png = PngBytes(40, 40, PNG_FORMAT_RGB, Bytes(4800, 7));
    const std::string jpeg = JpegBytes(64, 64, JCS_RGB, Bytes(12288, 90));
    std::string huge = png, flipped = png;
    huge.replace(16, 8, std::string("\0\xFF\0\0\0\xFF\0\0", 8));
    flipped[50] = static_cast<char>(flipped[50] ^ 0x55);
    const struct {
        const char* name;
        std::string file, reason;
    } rows[] = {
        {"nothing", "", "is in a format that can't be read; save it as PNG, JPEG, TIFF or BMP"},
        {"another format", "GIF89a...", "is in a format that can't be read; save it as PNG, JPEG, TIFF or BMP"},
        {"PNG cut off", png.substr(0, png.size() / 2), "is damaged: the file ends too early"},
        {"PNG with nothing but its beginning", png.substr(0, 8), "is damaged: the file ends too early"},
        {"JPEG without a picture", "\xFF\xD8\xFF\xD9", "is damaged: JPEG datastream contains no image"},
        {"TIFF without a directory", std::string("II*\0\x08\0\0\0", 8), "is damaged: no TIFF directory can be read"},
        {"bitmap cut off", BmpBytes(9, 9, 24, "", "abc"), "is damaged: it ends too early"},
        {"bitmap without height", BmpBytes(9, 0, 24, "", "abc"), "has 9 x 0 pixels, more than can be shown"},
        {"bitmap wider than the world", BmpBytes(2'000'000'000, 9, 24, "", "abc"),
         "has 2000000000 x 9 pixels, more than can be shown"},
        {"bitmap of odd bits", BmpBytes(9, 9, 5, "", "abc"), "is a packed or unusual bitmap; save it as PNG"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Made(row.file), row.reason) << row.name;
    }
    EXPECT_EQ(Made(huge).substr(0, 11), "is damaged:");
    EXPECT_EQ(Made(flipped).substr(0, 11), "is damaged:");
}

TEST(PictureFile, CutOffJpegFilesShowWhatIsThereAndDontPass)
{
    Bytes noise(3 * 64 * 64);
    for (std::size_t i = 0; i < noise.size(); ++i) {
        noise[i] = static_cast<unsigned char>(i * 37 % 251);
    }
    const std::string jpeg = JpegBytes(64, 64, JCS_RGB, noise);
    EXPECT_EQ(Made(jpeg.substr(0, jpeg.size() / 2)).substr(0, 10), "rgb 64x64 ");
}

TEST(MakePicture, ShowsWhatTheEntityWants)
{
    const std::string gray = PngBytes(4, 2, PNG_FORMAT_GRAY, {0, 100, 200, 255, 0, 100, 200, 255});
    const std::string clear = PngBytes(2, 1, PNG_FORMAT_RGBA, {255, 0, 0, 255, 0, 0, 0, 0});
    const struct {
        const char* name;
        std::string file;
        PictureLook look;
        const char* made;
    } rows[] = {
        {"as it is", gray, {}, "gray 4x2 0064C8FF0064C8FF"},
        {"brighter", gray, {75, 50, 0, 1, false, false}, "gray 4x2 80E4FFFF80E4FFFF"},
        {"black", gray, {0, 50, 0, 1, false, false}, "gray 4x2 0000000000000000"},
        {"no contrast", gray, {50, 0, 0, 1, false, false}, "gray 4x2 8080808080808080"},
        {"double contrast", gray, {50, 75, 0, 1, false, false}, "gray 4x2 0049FFFF0049FFFF"},
        {"half faded", gray, {50, 50, 50, 1, false, false}, "gray 4x2 80B2E4FF80B2E4FF"},
        {"faded away", gray, {50, 50, 100, 1, false, false}, "gray 4x2 FFFFFFFFFFFFFFFF"},
        {"coarser", gray, {50, 50, 0, 2, false, false}, "gray 2x1 32E3"},
        {"coarser than its height", gray, {50, 50, 0, 4, false, false}, "gray 1x1 8A"},
        {"coarser with a rest",
         PngBytes(3, 1, PNG_FORMAT_GRAY, {10, 20, 90}),
         {50, 50, 0, 2, false, false},
         "gray 2x1 0F5A"},
        {"in shades of gray", PngBytes(2, 1, PNG_FORMAT_RGB, kRedGreen), {50, 50, 0, 1, true, false}, "gray 2x1 4C96"},
        {"clear", clear, {50, 50, 0, 1, false, true}, "rgb clear 2x1 FF0000FFFFFF"},
        {"clear without alpha",
         PngBytes(2, 1, PNG_FORMAT_RGB, kRedGreen),
         {50, 50, 0, 1, false, true},
         "rgb 2x1 FF000000FF00"},
        {"a JPEG that is faded", JpegBytes(1, 1, JCS_GRAYSCALE, {0}), {50, 50, 50, 1, false, false}, "gray 1x1 80"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Made(row.file, row.look), row.made) << row.name;
    }
}

} // namespace
} // namespace sm::render
