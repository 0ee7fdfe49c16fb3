// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/PictureFile.h"

#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace sm::render {

namespace {

constexpr long kMostMemory = 400L << 20; ///< for progressive files, which the library unpacks whole
constexpr int kMostScans = 100;          ///< of a progressive file: more only waste time

/// What libjpeg's callbacks work on.
struct JpegTrap {
    jpeg_error_mgr manager{};
    std::jmp_buf place{};
    char message[JMSG_LENGTH_MAX] = {};
    bool warned = false;
};

[[noreturn]] void Jump(j_common_ptr info)
{
    auto* trap = reinterpret_cast<JpegTrap*>(info->err);
    info->err->format_message(info, trap->message);
    std::longjmp(trap->place, 1);
}

void NoteMessage(j_common_ptr info, int level)
{
    if (level < 0) {
        reinterpret_cast<JpegTrap*>(info->err)->warned = true;
    }
}

void WatchScans(j_common_ptr info)
{
    const auto* reader = reinterpret_cast<j_decompress_ptr>(info);
    if (reader->input_scan_number > kMostScans) {
        Jump(info);
    }
}

/// Runs calls of libjpeg; false when one of them jumped. `step` may own nothing.
template <class Step> bool Guarded(JpegTrap& trap, Step step)
{
    if (setjmp(trap.place) != 0) {
        return false;
    }
    step();
    return true;
}

class JpegFile final : public PictureFile {
public:
    explicit JpegFile(std::string bytes) : PictureFile(std::move(bytes))
    {
        Begin();
        try {
            ReadHead();
        } catch (...) {
            jpeg_destroy_decompress(&m_info);
            throw;
        }
    }
    ~JpegFile() override { jpeg_destroy_decompress(&m_info); }

    void ReadRows(RowTaker& taker) override
    {
        Check(Guarded(m_trap, [&] { jpeg_start_decompress(&m_info); }));
        const bool fourInks = m_info.out_color_space == JCS_CMYK;
        std::vector<unsigned char> row(static_cast<std::size_t>(m_info.output_width) *
                                       static_cast<std::size_t>(m_info.output_components));
        JSAMPROW rows[] = {row.data()};
        while (m_info.output_scanline < m_info.output_height) {
            Check(Guarded(m_trap, [&] { jpeg_read_scanlines(&m_info, rows, 1); }));
            if (fourInks) {
                ToRgb(row);
            }
            taker.Row(row.data());
        }
        m_head.passes = m_head.passes && !m_trap.warned;
    }

private:
    void Begin()
    {
        m_info.err = jpeg_std_error(&m_trap.manager);
        m_trap.manager.error_exit = Jump;
        m_trap.manager.emit_message = NoteMessage;
        m_progress.progress_monitor = WatchScans;
        if (!Guarded(m_trap, [&] { jpeg_create_decompress(&m_info); })) {
            throw PictureError(std::string("can't be read: ") + m_trap.message);
        }
        m_info.progress = &m_progress;
        m_info.mem->max_memory_to_use = kMostMemory;
    }

    void Check(bool done) const
    {
        if (!done) {
            throw PictureError(std::string("is damaged: ") + m_trap.message);
        }
    }

    void ReadHead()
    {
        const auto* data = reinterpret_cast<const unsigned char*>(m_bytes.data());
        Check(Guarded(m_trap, [&] {
            jpeg_mem_src(&m_info, data, m_bytes.size());
            jpeg_read_header(&m_info, TRUE);
        }));
        SetSize(m_info.image_width, m_info.image_height);
        m_head.gray = m_info.jpeg_color_space == JCS_GRAYSCALE;
        const bool fourInks = m_info.jpeg_color_space == JCS_CMYK || m_info.jpeg_color_space == JCS_YCCK;
        m_info.out_color_space = m_head.gray ? JCS_GRAYSCALE : fourInks ? JCS_CMYK : JCS_RGB;
        if (m_info.progressive_mode != 0) {
            CheckHeld(static_cast<std::uint64_t>(m_info.num_components) * sizeof(JCOEF));
        }
        m_head.passes = m_info.data_precision == 8 && m_info.arith_code == 0 &&
                        (m_head.gray || m_info.jpeg_color_space == JCS_YCbCr);
    }

    /// Four inks, inverted as the programs that write such files do, to three colours in place.
    void ToRgb(std::vector<unsigned char>& row) const
    {
        const bool inverted = m_info.saw_Adobe_marker != 0;
        for (std::size_t x = 0; x < m_info.output_width; ++x) {
            const auto ink = [&](std::size_t i) {
                const unsigned value = row[4 * x + i];
                return inverted ? value : 255U - value;
            };
            const unsigned black = ink(3);
            const unsigned red = ink(0), green = ink(1), blue = ink(2);
            row[3 * x] = static_cast<unsigned char>(red * black / 255U);
            row[3 * x + 1] = static_cast<unsigned char>(green * black / 255U);
            row[3 * x + 2] = static_cast<unsigned char>(blue * black / 255U);
        }
    }

    jpeg_decompress_struct m_info{};
    jpeg_progress_mgr m_progress{};
    JpegTrap m_trap;
};

} // namespace

std::unique_ptr<PictureFile> OpenJpeg(std::string bytes)
{
    return std::make_unique<JpegFile>(std::move(bytes));
}

} // namespace sm::render
