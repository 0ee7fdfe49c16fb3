// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/UnpackPicture.h"

#include "images/PictureFile.h"

namespace sm::render {
namespace {

class RowsOfBytes final : public RowTaker {
public:
    RowsOfBytes(std::string& bytes, std::size_t row) : m_bytes(bytes), m_row(row) {}
    void Row(const unsigned char* pixels) override { m_bytes.append(reinterpret_cast<const char*>(pixels), m_row); }

private:
    std::string& m_bytes;
    std::size_t m_row;
};

} // namespace

std::optional<Picture> UnpackPicture(const Picture& picture)
{
    if (picture.form != Picture::Form::JpegGray && picture.form != Picture::Form::JpegRgb)
        return std::nullopt;
    try {
        const auto file = OpenJpeg(picture.bytes);
        const PictureHead& head = file->Head();
        Picture rows;
        rows.id = picture.id;
        rows.whiteIsClear = picture.whiteIsClear;
        rows.form = head.gray ? Picture::Form::Gray : Picture::Form::Rgb;
        rows.width = head.width;
        rows.height = head.height;
        RowsOfBytes taker(rows.bytes, static_cast<std::size_t>(head.width) * (head.gray ? 1 : 3));
        file->ReadRows(taker);
        return rows;
    } catch (const PictureError&) {
        return std::nullopt;
    }
}

} // namespace sm::render
