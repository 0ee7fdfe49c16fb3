// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/ScenePictures.h"

#include <algorithm>

namespace sm::qt {
namespace {

using render::Picture;

std::size_t RowBytes(const Picture& picture)
{
    const auto width = static_cast<std::size_t>(picture.width);
    return picture.form == Picture::Form::Mask   ? (width + 7) / 8
           : picture.form == Picture::Form::Gray ? width
                                                 : width * 3;
}

QRgb PixelOf(const Picture& picture, const unsigned char* row, int x, QRgb ink)
{
    if (picture.form == Picture::Form::Mask)
        return (row[x / 8] & (0x80 >> (x % 8))) != 0 ? ink : qRgba(0, 0, 0, 0);
    const bool gray = picture.form == Picture::Form::Gray;
    const unsigned char* const at = row + (gray ? x : 3 * x);
    const QRgb pixel = gray ? qRgb(at[0], at[0], at[0]) : qRgb(at[0], at[1], at[2]);
    return picture.whiteIsClear && (pixel & 0xFFFFFF) == 0xFFFFFF ? qRgba(0, 0, 0, 0) : pixel;
}

QImage FromRows(const Picture& picture, QRgb ink)
{
    const std::size_t row = RowBytes(picture);
    if (picture.width <= 0 || picture.height <= 0 ||
        picture.bytes.size() < row * static_cast<std::size_t>(picture.height))
        return {};
    QImage image(picture.width, picture.height, QImage::Format_ARGB32);
    if (image.isNull())
        return {};
    const auto* const bytes = reinterpret_cast<const unsigned char*>(picture.bytes.data());
    for (int y = 0; y < picture.height; ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < picture.width; ++x)
            line[x] = PixelOf(picture, bytes + row * static_cast<std::size_t>(y), x, ink);
    }
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage Converted(const Picture& picture, std::uint32_t color)
{
    if (picture.form == Picture::Form::JpegGray || picture.form == Picture::Form::JpegRgb) {
        const QByteArray bytes =
            QByteArray::fromRawData(picture.bytes.data(), static_cast<qsizetype>(picture.bytes.size()));
        return QImage::fromData(bytes, "JPG").convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
    return FromRows(picture, 0xFF000000 | (color & 0xFFFFFF));
}

} // namespace

const QImage& ScenePictures::Of(const Picture& picture, std::uint32_t color)
{
    const std::uint32_t ink = picture.form == Picture::Form::Mask ? color & 0xFFFFFF : 0;
    const auto [place, isNew] = m_known.try_emplace({picture.id, ink});
    if (isNew)
        place->second = Converted(picture, ink);
    return place->second;
}

} // namespace sm::qt
