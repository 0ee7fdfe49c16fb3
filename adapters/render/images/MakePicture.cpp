// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/MakePicture.h"

#include "render/Picture.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

namespace {

/// Only looks whether the file is whole.
class Nobody final : public RowTaker {
public:
    void Row(const unsigned char*) override {}
};

/// The black of a black-and-white picture as bits.
class MaskMaker final : public RowTaker {
public:
    explicit MaskMaker(Picture& picture) : m_picture(picture) {}
    void Row(const unsigned char* pixels) override
    {
        char byte = 0;
        for (std::int32_t x = 0; x < m_picture.width; ++x) {
            byte = static_cast<char>(byte << 1 | (pixels[x] < 128 ? 1 : 0));
            if (x % 8 == 7) {
                m_picture.bytes += byte;
                byte = 0;
            }
        }
        if (m_picture.width % 8 != 0) {
            m_picture.bytes += static_cast<char>(byte << (8 - m_picture.width % 8));
        }
    }

private:
    Picture& m_picture;
};

/// Averages squares of pixels and gives each value its tone.
class ToneMaker final : public RowTaker {
public:
    ToneMaker(Picture& picture, const PictureHead& head, const PictureLook& look)
        : m_picture(picture), m_tones(ToneTable(look)), m_channels(head.gray ? 1 : 3), m_width(head.width),
          m_reduce(look.reduce), m_toGray(look.monochrome && !head.gray),
          m_sums(static_cast<std::size_t>(picture.width) * m_channels)
    {
    }

    void Row(const unsigned char* pixels) override
    {
        if (m_reduce == 1) {
            PutRow(pixels);
            return;
        }
        for (std::int32_t x = 0; x < m_width; ++x) {
            std::uint32_t* sum = m_sums.data() + static_cast<std::size_t>(x / m_reduce) * m_channels;
            for (std::size_t i = 0; i < m_channels; ++i) {
                sum[i] += *pixels++;
            }
        }
        if (++m_rows == m_reduce) {
            Flush();
        }
    }

    /// Writes what is left of a last, lower row of squares.
    void Flush()
    {
        if (m_rows == 0) {
            return;
        }
        m_row.resize(m_sums.size());
        const std::size_t columns = m_sums.size() / m_channels;
        for (std::size_t i = 0; i < m_sums.size(); ++i) {
            const bool last = i / m_channels == columns - 1;
            const std::int32_t across = last ? m_width - static_cast<std::int32_t>(columns - 1) * m_reduce : m_reduce;
            m_row[i] = static_cast<unsigned char>(m_sums[i] / static_cast<std::uint32_t>(m_rows * across));
        }
        std::fill(m_sums.begin(), m_sums.end(), 0U);
        m_rows = 0;
        PutRow(m_row.data());
    }

private:
    void PutRow(const unsigned char* pixels)
    {
        const auto count = static_cast<std::size_t>(m_picture.width);
        if (m_toGray) {
            for (std::size_t x = 0; x < count; ++x, pixels += 3) {
                const unsigned gray = (pixels[0] * 299U + pixels[1] * 587U + pixels[2] * 114U + 500U) / 1000U;
                m_picture.bytes += static_cast<char>(m_tones[gray]);
            }
            return;
        }
        for (std::size_t i = 0; i < count * m_channels; ++i) {
            m_picture.bytes += static_cast<char>(m_tones[pixels[i]]);
        }
    }

    Picture& m_picture;
    std::array<unsigned char, 256> m_tones;
    std::size_t m_channels;
    std::int32_t m_width, m_reduce, m_rows = 0;
    bool m_toGray;
    std::vector<std::uint32_t> m_sums;
    std::vector<unsigned char> m_row;
};

/// Decodes once without keeping anything: a file that is damaged inside may not go to a device as it is.
bool IsWhole(const std::string& bytes)
{
    const std::unique_ptr<PictureFile> file = PictureFile::Open(bytes);
    Nobody nobody;
    file->ReadRows(nobody);
    return file->Head().passes;
}

} // namespace

std::array<unsigned char, 256> ToneTable(const PictureLook& look)
{
    // Contrast pulls values to the middle or away from it, brightness moves them, fade mixes them with the paper.
    const double slope = look.contrast <= 50 ? look.contrast / 50.0 : 50.0 / std::max(100 - look.contrast, 1);
    const double shift = (look.brightness - 50) / 50.0 * 255;
    std::array<unsigned char, 256> tones{};
    for (std::size_t i = 0; i < tones.size(); ++i) {
        const double value = std::clamp((static_cast<double>(i) - 127.5) * slope + 127.5 + shift, 0.0, 255.0);
        tones[i] = static_cast<unsigned char>(std::lround(value + (255 - value) * look.fade / 100.0));
    }
    return tones;
}

Picture MakePicture(std::unique_ptr<PictureFile> file, const PictureLook& look)
{
    Picture picture;
    picture.width = file->Head().width;
    picture.height = file->Head().height;
    if (file->Head().oneBit) {
        picture.form = Picture::Form::Mask;
        MaskMaker maker(picture);
        file->ReadRows(maker);
        return picture;
    }
    const PictureHead& head = file->Head();
    if (head.passes && look.KeepsColors() && look.reduce == 1) {
        std::string bytes = file->TakeBytes();
        if (IsWhole(bytes)) {
            picture.form = head.gray ? Picture::Form::JpegGray : Picture::Form::JpegRgb;
            picture.bytes = std::move(bytes);
            return picture;
        }
        file = PictureFile::Open(std::move(bytes));
    }
    picture.form = file->Head().gray || look.monochrome ? Picture::Form::Gray : Picture::Form::Rgb;
    picture.whiteIsClear = look.clear && file->Head().hasAlpha;
    picture.width = (picture.width + look.reduce - 1) / look.reduce;
    picture.height = (picture.height + look.reduce - 1) / look.reduce;
    ToneMaker maker(picture, file->Head(), look);
    file->ReadRows(maker);
    maker.Flush();
    return picture;
}

} // namespace sm::render
