// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/PictureFile.h"
#include "images/TiffLibrary.h"

#include <algorithm>
#include <cstring>

namespace sm::render {

namespace {

constexpr tmsize_t kLargestPiece = tmsize_t{400} << 20;

/// A file in memory as libtiff sees it.
struct TiffSource {
    const char* data = nullptr;
    std::uint64_t size = 0, at = 0;
};

tmsize_t ReadSome(thandle_t handle, void* to, tmsize_t count)
{
    auto* source = static_cast<TiffSource*>(handle);
    const std::uint64_t left = source->at < source->size ? source->size - source->at : 0;
    const std::uint64_t part = std::min(left, static_cast<std::uint64_t>(std::max<tmsize_t>(count, 0)));
    std::memcpy(to, source->data + source->at, part);
    source->at += part;
    return static_cast<tmsize_t>(part);
}

tmsize_t WriteNothing(thandle_t, void*, tmsize_t)
{
    return 0;
}

toff_t Seek(thandle_t handle, toff_t offset, int whence)
{
    auto* source = static_cast<TiffSource*>(handle);
    source->at = whence == SEEK_SET ? offset : whence == SEEK_CUR ? source->at + offset : source->size + offset;
    source->at = std::min(source->at, source->size);
    return source->at;
}

int CloseNothing(thandle_t)
{
    return 0;
}

toff_t SizeOf(thandle_t handle)
{
    return static_cast<TiffSource*>(handle)->size;
}

int MapAll(thandle_t handle, void** base, toff_t* size)
{
    const auto* source = static_cast<TiffSource*>(handle);
    *base = const_cast<char*>(source->data);
    *size = source->size;
    return 1;
}

void UnmapNothing(thandle_t, void*, toff_t) {}

const TiffLibrary& Library()
{
    try {
        return TiffLibrary::Loaded();
    } catch (const std::runtime_error& error) {
        throw PictureError(std::string("can't be read: ") + error.what());
    }
}

class TiffFile final : public PictureFile {
public:
    explicit TiffFile(std::string bytes) : PictureFile(std::move(bytes))
    {
        m_source = {m_bytes.data(), m_bytes.size(), 0};
        const std::unique_ptr<TIFFOpenOptions, void (*)(TIFFOpenOptions*)> options(m_lib.openOptionsAlloc(),
                                                                                   m_lib.openOptionsFree);
        m_lib.openOptionsSetMaxSingleMemAlloc(options.get(), kLargestPiece);
        m_tiff.reset(m_lib.clientOpenExt("picture", "r", &m_source, ReadSome, WriteNothing, Seek, CloseNothing, SizeOf,
                                         MapAll, UnmapNothing, options.get()));
        if (m_tiff == nullptr) {
            throw PictureError("is damaged: no TIFF directory can be read");
        }
        ReadHead();
    }

    void ReadRows(RowTaker& taker) override { m_head.oneBit ? ReadBits(taker) : ReadColors(taker); }

private:
    template <class Value> Value Field(std::uint32_t tag, Value fallback) const
    {
        Value value = fallback;
        return m_lib.getFieldDefaulted(m_tiff.get(), tag, &value) == 1 ? value : fallback;
    }

    void ReadHead()
    {
        SetSize(Field<std::uint32_t>(TIFFTAG_IMAGEWIDTH, 0), Field<std::uint32_t>(TIFFTAG_IMAGELENGTH, 0));
        const auto photometric = Field<std::uint16_t>(TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
        m_blackIsOne = photometric == PHOTOMETRIC_MINISWHITE;
        m_head.oneBit = Field<std::uint16_t>(TIFFTAG_BITSPERSAMPLE, 1) == 1 &&
                        Field<std::uint16_t>(TIFFTAG_SAMPLESPERPIXEL, 1) == 1 && m_lib.isTiled(m_tiff.get()) == 0 &&
                        (m_blackIsOne || photometric == PHOTOMETRIC_MINISBLACK) &&
                        Field<std::uint16_t>(TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT) == ORIENTATION_TOPLEFT;
        m_head.gray = m_head.oneBit;
        if (m_head.oneBit) {
            return;
        }
        char reason[1024] = {};
        if (m_lib.rgbaImageOk(m_tiff.get(), reason) == 0) {
            throw PictureError(std::string("is of a kind of TIFF that can't be read: ") + reason);
        }
        CheckHeld(4);
        std::uint16_t count = 0, *kinds = nullptr;
        m_head.hasAlpha = m_lib.getField(m_tiff.get(), TIFFTAG_EXTRASAMPLES, &count, &kinds) == 1 && count > 0;
    }

    void ReadBits(RowTaker& taker)
    {
        const auto width = static_cast<std::size_t>(m_head.width);
        std::vector<unsigned char> bits(
            std::max(static_cast<std::size_t>(m_lib.scanlineSize(m_tiff.get())), (width + 7) / 8));
        std::vector<unsigned char> row(width);
        for (std::uint32_t y = 0; y < static_cast<std::uint32_t>(m_head.height); ++y) {
            if (m_lib.readScanline(m_tiff.get(), bits.data(), y, 0) != 1) {
                throw PictureError("is damaged: row " + std::to_string(y) + " can't be unpacked");
            }
            for (std::size_t x = 0; x < width; ++x) {
                const bool one = (bits[x / 8] >> (7 - x % 8) & 1) != 0;
                row[x] = one == m_blackIsOne ? 0 : 255;
            }
            taker.Row(row.data());
        }
    }

    void ReadColors(RowTaker& taker)
    {
        const auto width = static_cast<std::size_t>(m_head.width), height = static_cast<std::size_t>(m_head.height);
        std::vector<std::uint32_t> pixels(width * height);
        if (m_lib.readRgbaImageOriented(m_tiff.get(), static_cast<std::uint32_t>(width),
                                        static_cast<std::uint32_t>(height), pixels.data(), ORIENTATION_TOPLEFT,
                                        1) != 1) {
            throw PictureError("is damaged: its pixels can't be unpacked");
        }
        std::vector<unsigned char> row(width * 3);
        for (std::size_t y = 0; y < height; ++y) {
            for (std::size_t x = 0; x < width; ++x) {
                const std::uint32_t pixel = pixels[y * width + x];
                const std::uint32_t white = 255 - TIFFGetA(pixel); // the colours are multiplied with the alpha
                row[3 * x] = static_cast<unsigned char>(std::min(255U, TIFFGetR(pixel) + white));
                row[3 * x + 1] = static_cast<unsigned char>(std::min(255U, TIFFGetG(pixel) + white));
                row[3 * x + 2] = static_cast<unsigned char>(std::min(255U, TIFFGetB(pixel) + white));
            }
            taker.Row(row.data());
        }
    }

    const TiffLibrary& m_lib = Library();
    TiffSource m_source;
    std::unique_ptr<TIFF, void (*)(TIFF*)> m_tiff{nullptr, m_lib.close};
    bool m_blackIsOne = false;
};

} // namespace

std::unique_ptr<PictureFile> OpenTiff(std::string bytes)
{
    return std::make_unique<TiffFile>(std::move(bytes));
}

} // namespace sm::render
