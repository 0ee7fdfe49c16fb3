// SPDX-License-Identifier: GPL-3.0-or-later
// Small picture files, made by the tests themselves.
#pragma once

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <jpeglib.h>
#include <png.h>
#include <string>
#include <tiffio.h>
#include <unistd.h>
#include <vector>

namespace sm::render {

using Bytes = std::vector<unsigned char>;

/// A folder of its own for each test program.
class PictureFolder {
public:
    PictureFolder() : m_path(std::filesystem::temp_directory_path() / ("sm-pictures-" + std::to_string(::getpid())))
    {
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directories(m_path);
    }
    ~PictureFolder() { std::filesystem::remove_all(m_path); }
    [[nodiscard]] std::string operator/(const std::string& name) const { return (m_path / name).string(); }
    [[nodiscard]] std::string Path() const { return m_path.string(); }
    void Write(const std::string& name, const std::string& bytes) const
    {
        std::filesystem::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name, std::ios::binary) << bytes;
    }

private:
    std::filesystem::path m_path;
};

/// `format`: PNG_FORMAT_GRAY, PNG_FORMAT_RGB, PNG_FORMAT_RGBA.
inline std::string PngBytes(png_uint_32 width, png_uint_32 height, png_uint_32 format, const Bytes& pixels)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = format;
    png_alloc_size_t size = 0;
    png_image_write_to_memory(&image, nullptr, &size, 0, pixels.data(), 0, nullptr);
    std::string bytes(size, '\0');
    png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, nullptr);
    bytes.resize(size);
    return bytes;
}

/// `space`: JCS_GRAYSCALE, JCS_RGB or JCS_CMYK.
inline std::string JpegBytes(unsigned width, unsigned height, J_COLOR_SPACE space, Bytes pixels)
{
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* out = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &out, &size);
    info.image_width = width;
    info.image_height = height;
    info.input_components = space == JCS_GRAYSCALE ? 1 : space == JCS_RGB ? 3 : 4;
    info.in_color_space = space;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 100, TRUE);
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < height) {
        JSAMPROW row = pixels.data() + info.next_scanline * width * static_cast<unsigned>(info.input_components);
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string bytes(reinterpret_cast<char*>(out), size);
    std::free(out);
    return bytes;
}

/// One bit a pixel where `bits` is 1 (rows of whole bytes), else three bytes.
inline void WriteTiff(const std::string& path, std::uint32_t width, std::uint32_t height, int bits, int photometric,
                      int compression, Bytes pixels)
{
    TIFF* tiff = TIFFOpen(path.c_str(), "w");
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, height);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, bits == 1 ? 1 : 3);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, photometric);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, compression);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, height);
    const std::size_t row = bits == 1 ? (width + 7) / 8 : width * 3;
    for (std::uint32_t y = 0; y < height; ++y) {
        TIFFWriteScanline(tiff, pixels.data() + y * row, y, 0);
    }
    TIFFClose(tiff);
}

/// A bitmap with a header of 40 bytes; `rest`: palette and rows, the lowest row first.
inline std::string BmpBytes(std::int32_t width, std::int32_t height, int bits, const std::string& palette,
                            const std::string& rows)
{
    const auto number = [](std::uint32_t value, int count) {
        std::string text;
        for (int i = 0; i < count; ++i, value >>= 8) {
            text += static_cast<char>(value & 0xFF);
        }
        return text;
    };
    const auto offset = static_cast<std::uint32_t>(54 + palette.size());
    return "BM" + number(offset + static_cast<std::uint32_t>(rows.size()), 4) + number(0, 4) + number(offset, 4) +
           number(40, 4) + number(static_cast<std::uint32_t>(width), 4) +
           number(static_cast<std::uint32_t>(height), 4) + number(1, 2) + number(static_cast<std::uint32_t>(bits), 2) +
           number(0, 24) + palette + rows;
}

} // namespace sm::render
