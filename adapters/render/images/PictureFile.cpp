// SPDX-License-Identifier: GPL-3.0-or-later
#include "images/PictureFile.h"

namespace sm::render {

namespace {

constexpr std::uint64_t kLongestSide = 65'535;
constexpr std::uint64_t kMostPixels = 600'000'000;
constexpr std::uint64_t kMostHeld = std::uint64_t{400} << 20;

} // namespace

void PictureFile::SetSize(std::uint64_t width, std::uint64_t height)
{
    if (width == 0 || height == 0 || width > kLongestSide || height > kLongestSide || width * height > kMostPixels) {
        throw PictureError("has " + std::to_string(width) + " x " + std::to_string(height) +
                           " pixels, more than can be shown");
    }
    m_head.width = static_cast<std::int32_t>(width);
    m_head.height = static_cast<std::int32_t>(height);
}

void PictureFile::CheckHeld(std::uint64_t bytesPerPixel) const
{
    const std::uint64_t pixels = static_cast<std::uint64_t>(m_head.width) * static_cast<std::uint64_t>(m_head.height);
    if (pixels * bytesPerPixel > kMostHeld) {
        throw PictureError("is too large to be unpacked: " + std::to_string(m_head.width) + " x " +
                           std::to_string(m_head.height) + " pixels in a form that must be held whole");
    }
}

std::unique_ptr<PictureFile> PictureFile::Open(std::string bytes)
{
    if (bytes.starts_with("\x89PNG\r\n\x1a\n")) {
        return OpenPng(std::move(bytes));
    }
    if (bytes.starts_with("\xFF\xD8\xFF")) {
        return OpenJpeg(std::move(bytes));
    }
    if (bytes.starts_with(std::string("II*\0", 4)) || bytes.starts_with(std::string("MM\0*", 4)) ||
        bytes.starts_with(std::string("II+\0", 4)) || bytes.starts_with(std::string("MM\0+", 4))) {
        return OpenTiff(std::move(bytes));
    }
    if (bytes.starts_with("BM")) {
        return OpenBmp(std::move(bytes));
    }
    throw PictureError("is in a format that can't be read; save it as PNG, JPEG, TIFF or BMP");
}

} // namespace sm::render
