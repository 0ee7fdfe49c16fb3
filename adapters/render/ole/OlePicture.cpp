// SPDX-License-Identifier: GPL-3.0-or-later
#include "ole/OlePicture.h"

#include "images/MakePicture.h"
#include "ole/CompoundFile.h"
#include "ole/LittleEndian.h"
#include "render/ClipBox.h"

#include <functional>

namespace sm::render {

namespace {

constexpr std::uint32_t kDib = 8; ///< clipboard format; 3 and 14 are metafiles, which are known by their first bytes

/// A presentation stream: the format, the device, five numbers, the size in hundredths of a millimetre, the data.
struct Presentation {
    std::uint32_t format = 0;
    std::string_view data;
};

Presentation ReadPresentation(std::string_view stream)
{
    Presentation found;
    std::uint64_t at = 4;
    const std::uint32_t mark = U32(stream, 0);
    constexpr std::uint32_t kStandard = 0xFFFFFFFE;
    if (mark >= kStandard) {
        found.format = U32(stream, at);
        at += 4;
    } else {
        at += mark; // a format with a name
    }
    const std::uint32_t device = U32(stream, at);
    at += std::max<std::uint32_t>(device, 4) + std::uint64_t{4} * 6; // device, aspect to reserved, width, height
    const std::uint32_t size = U32(stream, at);
    found.data = Part(stream, at + 4, size);
    return found;
}

OlePicture FromDib(std::string_view dib)
{
    OlePicture picture;
    if (auto pixels = ReadDib(dib); pixels != nullptr) {
        picture.width = pixels->width;
        picture.height = pixels->height;
        OleStep& step = picture.steps.emplace_back();
        step.place = {picture.width, 0, 0, picture.height, 0, 0};
        step.clip = {{0, 0}, {picture.width, picture.height}};
        step.picture = std::move(pixels);
    }
    return picture;
}

OlePicture FromBitmapFile(std::string_view bytes)
{
    constexpr std::size_t kFileHeader = 14;
    return bytes.starts_with("BM") ? FromDib(bytes.substr(std::min(bytes.size(), kFileHeader))) : OlePicture{};
}

} // namespace

std::shared_ptr<const Picture> ReadDib(std::string_view bytes)
{
    constexpr std::uint32_t kCoreHeader = 12, kInfoHeader = 40, kBitFields = 3, kFileHeader = 14;
    const std::uint32_t header = U32(bytes, 0);
    const bool core = header == kCoreHeader;
    const unsigned bits = U16(bytes, core ? 10 : 14);
    std::uint32_t colors = core ? 0 : U32(bytes, 32);
    colors = colors == 0 && bits <= 8 ? 1U << bits : colors;
    constexpr std::uint32_t kMostColors = 256;
    const std::uint32_t masks = header == kInfoHeader && U32(bytes, 16) == kBitFields ? 12 : 0;
    const std::uint32_t pixels = kFileHeader + header + std::min(colors, kMostColors) * (core ? 3 : 4) + masks;
    std::string file = "BM" + std::string(8, '\0');
    for (unsigned shift = 0; shift < 32; shift += 8) {
        file += static_cast<char>(pixels >> shift & 0xFF);
    }
    file += bytes;
    try {
        auto picture = std::make_shared<Picture>(MakePicture(OpenBmp(std::move(file)), PictureLook{}));
        picture->id = std::hash<std::string>{}(picture->bytes) | 1ULL << 63;
        return picture;
    } catch (const PictureError&) {
        return nullptr;
    }
}

OlePicture ReadOlePicture(std::string_view compoundFile)
{
    const CompoundFile file(compoundFile);
    for (const char* name : {"\x02OlePres000", "\x02OlePres001", "\x02OlePres002"}) {
        const std::string stream = file.StreamOf(name);
        const Presentation shown = ReadPresentation(stream);
        OlePicture picture = shown.format == kDib ? FromDib(shown.data) : ReadMetafile(shown.data);
        if (!picture.Empty()) {
            return picture;
        }
    }
    constexpr std::size_t kSizeField = 4;
    OlePicture picture = FromBitmapFile(file.StreamOf("CONTENTS"));
    const std::string native = file.StreamOf("\x01Ole10Native");
    return picture.Empty() ? FromBitmapFile(Part(native, kSizeField, native.size())) : picture;
}

} // namespace sm::render
