// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/PictureFile.h"

#include <array>

namespace sm::render {

namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::uint32_t kCoreHeader = 12, kInfoHeader = 40;
constexpr std::uint32_t kPlain = 0, kBitFields = 3;

/// Windows and OS/2 bitmaps of 1, 4, 8, 24 and 32 bits a pixel, not run-length encoded.
class BmpFile final : public PictureFile {
public:
    explicit BmpFile(std::string bytes) : PictureFile(std::move(bytes))
    {
        const std::uint32_t headerSize = Number(kFileHeader, 4);
        m_isCore = headerSize == kCoreHeader;
        if (!m_isCore && headerSize < kInfoHeader) {
            throw PictureError("is damaged: its header is of no known size");
        }
        ReadSize();
        m_bits = Number(kFileHeader + (m_isCore ? 10 : 14), 2);
        const std::uint32_t packing = m_isCore ? kPlain : Number(kFileHeader + 16, 4);
        const bool known = m_bits == 1 || m_bits == 4 || m_bits == 8 || m_bits == 24 || m_bits == 32;
        if (!known || (packing != kPlain && !(packing == kBitFields && m_bits == 32))) {
            throw PictureError("is a packed or unusual bitmap; save it as PNG");
        }
        m_pixels = Number(10, 4);
        m_rowBytes = (static_cast<std::size_t>(m_head.width) * m_bits + 31) / 32 * 4;
        if (m_pixels > m_bytes.size() ||
            (m_bytes.size() - m_pixels) / m_rowBytes < static_cast<std::size_t>(m_head.height)) {
            throw PictureError("is damaged: it ends too early");
        }
        if (m_bits <= 8) {
            ReadPalette(kFileHeader + headerSize);
        }
    }

    void ReadRows(RowTaker& taker) override
    {
        const auto height = static_cast<std::size_t>(m_head.height);
        std::vector<unsigned char> row;
        for (std::size_t y = 0; y < height; ++y) {
            const std::size_t stored = m_topDown ? y : height - 1 - y;
            const auto* from = reinterpret_cast<const unsigned char*>(m_bytes.data()) + m_pixels + stored * m_rowBytes;
            row.clear();
            for (std::int32_t x = 0; x < m_head.width; ++x) {
                Append(row, from, static_cast<std::size_t>(x));
            }
            taker.Row(row.data());
        }
    }

private:
    /// Of `count` bytes, the lowest first; beyond the end they count as 0.
    [[nodiscard]] std::uint32_t Number(std::size_t at, std::size_t count) const
    {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t place = at + i;
            value |= place < m_bytes.size() ? std::uint32_t{static_cast<unsigned char>(m_bytes[place])} << (8 * i) : 0U;
        }
        return value;
    }

    void ReadSize()
    {
        if (m_isCore) {
            SetSize(Number(kFileHeader + 4, 2), Number(kFileHeader + 6, 2));
            return;
        }
        const auto height = static_cast<std::int64_t>(static_cast<std::int32_t>(Number(kFileHeader + 8, 4)));
        m_topDown = height < 0;
        SetSize(Number(kFileHeader + 4, 4), static_cast<std::uint64_t>(m_topDown ? -height : height));
    }

    void ReadPalette(std::size_t at)
    {
        const std::size_t entry = m_isCore ? 3 : 4;
        m_head.oneBit = m_bits == 1;
        for (std::size_t i = 0; i < std::size_t{1} << m_bits; ++i) {
            const std::uint32_t color = Number(at + i * entry, 3); // blue, green, red
            m_palette[i] = {static_cast<unsigned char>(color >> 16 & 0xFF),
                            static_cast<unsigned char>(color >> 8 & 0xFF), static_cast<unsigned char>(color & 0xFF)};
            m_head.oneBit = m_head.oneBit && (color == 0 || color == 0xFFFFFF);
        }
        m_head.gray = m_head.oneBit;
    }

    void Append(std::vector<unsigned char>& row, const unsigned char* from, std::size_t x) const
    {
        if (m_bits > 8) {
            const unsigned char* pixel = from + x * (m_bits / 8);
            row.insert(row.end(), {pixel[2], pixel[1], pixel[0]});
            return;
        }
        const std::size_t perByte = 8 / m_bits;
        const unsigned shift = static_cast<unsigned>((perByte - 1 - x % perByte) * m_bits);
        const auto& color = m_palette[from[x / perByte] >> shift & ((1U << m_bits) - 1)];
        row.insert(row.end(), color.begin(), color.begin() + (m_head.gray ? 1 : 3));
    }

    bool m_isCore = false, m_topDown = false;
    std::uint32_t m_bits = 0;
    std::size_t m_pixels = 0, m_rowBytes = 0;
    std::array<std::array<unsigned char, 3>, 256> m_palette{};
};

} // namespace

std::unique_ptr<PictureFile> OpenBmp(std::string bytes)
{
    return std::make_unique<BmpFile>(std::move(bytes));
}

} // namespace sm::render
