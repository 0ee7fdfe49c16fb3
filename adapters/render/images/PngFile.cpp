// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/PictureFile.h"

#include <csetjmp>
#include <cstring>
#include <png.h>

namespace sm::render {

namespace {

constexpr png_alloc_size_t kLargestChunk = 64U << 20;

/// What libpng's callbacks work on: no member may need destruction when libpng jumps.
struct PngState {
    const unsigned char* at = nullptr;
    std::size_t left = 0;
    char message[160] = {};
};

void ReadBytes(png_structp png, png_bytep to, std::size_t count)
{
    auto* state = static_cast<PngState*>(png_get_io_ptr(png));
    if (count > state->left) {
        png_error(png, "the file ends too early");
    }
    std::memcpy(to, state->at, count);
    state->at += count;
    state->left -= count;
}

void KeepMessage(png_structp png, png_const_charp message)
{
    auto* state = static_cast<PngState*>(png_get_error_ptr(png));
    std::strncpy(state->message, message, sizeof state->message - 1);
    png_longjmp(png, 1);
}

void Ignore(png_structp, png_const_charp) {}

/// Runs calls of libpng; false when one of them jumped. `step` may own nothing.
template <class Step> bool Guarded(png_structp png, Step step)
{
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    step();
    return true;
}

class PngFile final : public PictureFile {
public:
    explicit PngFile(std::string bytes) : PictureFile(std::move(bytes))
    {
        m_state.at = reinterpret_cast<const unsigned char*>(m_bytes.data());
        m_state.left = m_bytes.size();
        m_png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &m_state, KeepMessage, Ignore);
        m_info = m_png == nullptr ? nullptr : png_create_info_struct(m_png);
        if (m_info == nullptr) {
            png_destroy_read_struct(&m_png, nullptr, nullptr);
            throw std::bad_alloc();
        }
        try {
            ReadHead();
        } catch (...) {
            png_destroy_read_struct(&m_png, &m_info, nullptr);
            throw;
        }
    }
    ~PngFile() override { png_destroy_read_struct(&m_png, &m_info, nullptr); }

    void ReadRows(RowTaker& taker) override
    {
        const auto height = static_cast<std::size_t>(m_head.height);
        const std::size_t held = m_interlaced ? height : 1;
        std::vector<unsigned char> pixels(held * m_rowBytes);
        std::vector<png_bytep> rows(height);
        for (std::size_t y = 0; y < height; ++y) {
            rows[y] = pixels.data() + (m_interlaced ? y * m_rowBytes : 0);
        }
        if (m_interlaced) {
            Check(Guarded(m_png, [&] { png_read_image(m_png, rows.data()); }));
        }
        std::vector<unsigned char> finished;
        for (std::size_t y = 0; y < height; ++y) {
            Check(m_interlaced || Guarded(m_png, [&] { png_read_row(m_png, rows[y], nullptr); }));
            taker.Row(Finished(rows[y], finished));
        }
    }

private:
    void Check(bool done) const
    {
        if (!done) {
            throw PictureError(std::string("is damaged: ") + m_state.message);
        }
    }

    void ReadHead()
    {
        Check(Guarded(m_png, [&] {
            png_set_read_fn(m_png, &m_state, ReadBytes);
            png_set_chunk_malloc_max(m_png, kLargestChunk);
            png_read_info(m_png, m_info);
        }));
        SetSize(png_get_image_width(m_png, m_info), png_get_image_height(m_png, m_info));
        const int type = png_get_color_type(m_png, m_info);
        const bool clear = png_get_valid(m_png, m_info, PNG_INFO_tRNS) != 0;
        m_head.hasAlpha = clear || (type & PNG_COLOR_MASK_ALPHA) != 0;
        m_head.oneBit = png_get_bit_depth(m_png, m_info) == 1 && !clear && IsBlackAndWhite(type);
        m_head.gray = m_head.oneBit || (type & PNG_COLOR_MASK_COLOR) == 0;
        Check(Guarded(m_png, [&] {
            png_set_expand(m_png);
            png_set_strip_16(m_png);
            png_set_interlace_handling(m_png);
            png_read_update_info(m_png, m_info);
        }));
        m_channels = png_get_channels(m_png, m_info);
        m_rowBytes = png_get_rowbytes(m_png, m_info);
        m_interlaced = png_get_interlace_type(m_png, m_info) != PNG_INTERLACE_NONE;
        if (m_interlaced) {
            CheckHeld(m_channels);
        }
    }

    /// A palette of black and white counts as well.
    bool IsBlackAndWhite(int type) const
    {
        png_colorp colors = nullptr;
        int count = 0;
        if (type != PNG_COLOR_TYPE_PALETTE) {
            return true;
        }
        png_get_PLTE(m_png, m_info, &colors, &count);
        for (int i = 0; i < count; ++i) {
            const png_color& c = colors[i];
            if (c.red != c.green || c.green != c.blue || (c.red != 0 && c.red != 255)) {
                return false;
            }
        }
        return count > 0;
    }

    /// The row as the head promises it.
    const unsigned char* Finished(const unsigned char* row, std::vector<unsigned char>& room) const
    {
        const std::size_t wanted = m_head.gray ? 1 : 3;
        if (m_channels == wanted) {
            return row;
        }
        room.resize(static_cast<std::size_t>(m_head.width) * wanted);
        const bool alpha = m_channels == 2 || m_channels == 4;
        unsigned char* to = room.data();
        for (std::int32_t x = 0; x < m_head.width; ++x, row += m_channels) {
            for (std::size_t i = 0; i < wanted; ++i) {
                *to++ = OverWhite(row[i], alpha ? row[m_channels - 1] : 255U);
            }
        }
        return room.data();
    }

    PngState m_state;
    png_structp m_png = nullptr;
    png_infop m_info = nullptr;
    std::size_t m_channels = 0, m_rowBytes = 0;
    bool m_interlaced = false;
};

} // namespace

std::unique_ptr<PictureFile> OpenPng(std::string bytes)
{
    return std::make_unique<PngFile>(std::move(bytes));
}

} // namespace sm::render
