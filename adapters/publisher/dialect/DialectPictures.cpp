// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/DialectPictures.h"

#include <array>
#include <charconv>
#include <libdeflate.h>
#include <memory>

namespace sm::publisher {

namespace {

using Form = DialectPicture::Form;

constexpr std::int32_t kLongestSide = 65535;
constexpr std::size_t kMostBytes = std::size_t{1} << 30;

/// What the plotter writes for each form, and what it is in PDF.
struct FormRow {
    Form form;
    std::string_view type, samples, space; ///< of the PostScript dictionary
    std::string_view pdf;
    std::size_t bitsPerPixel; ///< 0: a JPEG file
};
constexpr std::array kForms{
    FormRow{Form::Mask, "1", "/BitsPerComponent 1/Decode[1 0]", "null",
            "/BitsPerComponent 1 /Decode[1 0] /ImageMask true", 1},
    FormRow{Form::Gray, "1", "/BitsPerComponent 8/Decode[0 1]", "/DeviceGray",
            "/BitsPerComponent 8 /ColorSpace/DeviceGray", 8},
    FormRow{Form::ClearGray, "4", "/BitsPerComponent 8/Decode[0 1]/MaskColor[255]", "/DeviceGray",
            "/BitsPerComponent 8 /ColorSpace/DeviceGray /Mask[255 255]", 8},
    FormRow{Form::Rgb, "1", "/BitsPerComponent 8/Decode[0 1 0 1 0 1]", "/DeviceRGB",
            "/BitsPerComponent 8 /ColorSpace/DeviceRGB", 24},
    FormRow{Form::ClearRgb, "4", "/BitsPerComponent 8/Decode[0 1 0 1 0 1]/MaskColor[255 255 255]", "/DeviceRGB",
            "/BitsPerComponent 8 /ColorSpace/DeviceRGB /Mask[255 255 255 255 255 255]", 24},
    FormRow{Form::JpegGray, "1", "/BitsPerComponent 8/Decode[0 1]", "/DeviceGray",
            "/BitsPerComponent 8 /ColorSpace/DeviceGray", 0},
    FormRow{Form::JpegRgb, "1", "/BitsPerComponent 8/Decode[0 1 0 1 0 1]", "/DeviceRGB",
            "/BitsPerComponent 8 /ColorSpace/DeviceRGB", 0},
};

std::string_view TakeLine(std::string_view& text)
{
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

/// The dictionary's line for a form and a size.
std::string DictionaryLine(const FormRow& row, const std::string& name, std::int32_t width, std::int32_t height)
{
    const std::string w = std::to_string(width), h = std::to_string(height);
    return ("/" + name + "<</ImageType ").append(row.type) + "/Width " + w + "/Height " + h + std::string(row.samples) +
           "/ImageMatrix[" + w + " 0 0 -" + h + " 0 " + h + "]/Space " + std::string(row.space) + "/Filter/" +
           (row.bitsPerPixel == 0 ? "DCTDecode" : "FlateDecode") + "/DataSource null/Data " + name + "s>>def";
}

/// The number behind `key`; 0 when it isn't a usable side of a picture.
std::int32_t SideBehind(std::string_view line, std::string_view key)
{
    const std::size_t at = line.find(key);
    std::int32_t side = 0;
    if (at == std::string_view::npos ||
        std::from_chars(line.data() + at + key.size(), line.data() + line.size(), side).ec != std::errc()) {
        return 0;
    }
    return side > 0 && side <= kLongestSide ? side : 0;
}

/// Takes base-85 digits up to "~>" and its line's end.
class Ascii85Reader {
public:
    static bool Take(std::string_view& text, std::string& bytes)
    {
        const std::size_t end = text.find("~>\n");
        if (end == std::string_view::npos) {
            return false;
        }
        bytes.reserve(end / 5 * 4 + 4);
        Ascii85Reader reader(bytes);
        for (const char c : text.substr(0, end)) {
            if (c != '\n' && c != ' ' && !reader.TakeDigit(c)) {
                return false;
            }
        }
        text.remove_prefix(end + 3);
        return reader.Finish();
    }

private:
    explicit Ascii85Reader(std::string& bytes) : m_bytes(bytes) {}

    bool TakeDigit(char c)
    {
        if (c == 'z' && m_count == 0) {
            m_bytes.append(4, '\0');
            return true;
        }
        if (c < '!' || c > 'u') {
            return false;
        }
        m_word = m_word * 85 + static_cast<std::uint64_t>(c - '!');
        return ++m_count < 5 || PutWord(4);
    }

    bool PutWord(std::size_t bytes)
    {
        if (m_word > 0xFFFFFFFF) {
            return false;
        }
        for (std::size_t i = 0; i < bytes; ++i) {
            m_bytes += static_cast<char>(m_word >> (24 - 8 * i) & 0xFF);
        }
        m_word = 0;
        m_count = 0;
        return true;
    }

    bool Finish()
    {
        if (m_count == 0) {
            return true;
        }
        const std::size_t bytes = m_count - 1;
        while (m_count < 5) {
            m_word = m_word * 85 + 84;
            ++m_count;
        }
        return bytes > 0 && PutWord(bytes);
    }

    std::string& m_bytes;
    std::uint64_t m_word = 0;
    std::size_t m_count = 0;
};

/// True when the data unpacks to exactly as many bytes as the pixels take.
bool HoldsItsPixels(const DialectPicture& picture, std::size_t bitsPerPixel)
{
    const std::size_t row = (static_cast<std::size_t>(picture.width) * bitsPerPixel + 7) / 8;
    const std::size_t size = row * static_cast<std::size_t>(picture.height);
    if (size > kMostBytes) {
        return false;
    }
    const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    const auto pixels = std::make_unique_for_overwrite<char[]>(size);
    return decompressor != nullptr &&
           libdeflate_zlib_decompress(decompressor.get(), picture.data.data(), picture.data.size(), pixels.get(), size,
                                      nullptr) == LIBDEFLATE_SUCCESS;
}

std::optional<DialectPicture> TakePicture(std::string_view& setup, const std::string& name)
{
    DialectPicture picture;
    if (TakeLine(setup) != "%%BeginResource: form " + name ||
        TakeLine(setup) != "/" + name + "s currentfile/ASCII85Decode filter/ReusableStreamDecode filter" ||
        !Ascii85Reader::Take(setup, picture.data) || TakeLine(setup) != "def") {
        return std::nullopt;
    }
    const std::string_view line = TakeLine(setup);
    picture.width = SideBehind(line, "/Width ");
    picture.height = SideBehind(line, "/Height ");
    for (const FormRow& row : kForms) {
        if (line == DictionaryLine(row, name, picture.width, picture.height)) {
            picture.form = row.form;
            const bool whole = row.bitsPerPixel == 0 ? picture.data.starts_with("\xFF\xD8\xFF")
                                                     : HoldsItsPixels(picture, row.bitsPerPixel);
            const bool usable = picture.width > 0 && picture.height > 0 && whole;
            return usable && TakeLine(setup) == "%%EndResource" ? std::optional(std::move(picture)) : std::nullopt;
        }
    }
    return std::nullopt;
}

const FormRow& RowOf(Form form)
{
    return kForms[static_cast<std::size_t>(form)];
}

bool Asks(const std::string& jobOptions, const std::string& setting)
{
    const std::size_t at = jobOptions.find(setting);
    return at != std::string::npos;
}

} // namespace

std::optional<std::vector<DialectPicture>> TakeDialectPictures(std::string_view& setup)
{
    std::vector<DialectPicture> pictures;
    while (setup.starts_with("%%BeginResource: form I")) {
        auto picture = TakePicture(setup, "I" + std::to_string(pictures.size() + 1));
        if (!picture) {
            return std::nullopt;
        }
        pictures.push_back(std::move(*picture));
    }
    return pictures;
}

QPDFObjectHandle DialectPictureObjects::ObjectOf(DialectPicture& picture)
{
    const FormRow& row = RowOf(picture.form);
    const std::string dictionary = "<</Type/XObject /Subtype/Image /Width " + std::to_string(picture.width) +
                                   " /Height " + std::to_string(picture.height) + " " + std::string(row.pdf) +
                                   " /Filter/" + (row.bitsPerPixel == 0 ? "DCTDecode" : "FlateDecode") + ">>";
    const std::size_t hash = std::hash<std::string>{}(picture.data);
    const auto [first, last] = m_known.equal_range(hash);
    for (auto known = first; known != last; ++known) {
        const auto data = known->second.object.getRawStreamData();
        const std::string_view bytes(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
        if (known->second.dictionary == dictionary && bytes == picture.data) {
            return known->second.object;
        }
    }
    auto object = m_pdf.newStream(std::move(picture.data));
    object.replaceDict(QPDFObjectHandle::parse(dictionary));
    m_known.emplace(hash, Known{object, dictionary});
    return object;
}

QPDFObjectHandle DialectPictureObjects::Resources(std::vector<DialectPicture>& pictures)
{
    auto resources = QPDFObjectHandle::newDictionary();
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        resources.replaceKey("/I" + std::to_string(i + 1), ObjectOf(pictures[i]));
    }
    return resources;
}

bool JobOptionsKeepPictures(const std::string& jobOptions, const std::vector<DialectPicture>& pictures)
{
    for (const DialectPicture& picture : pictures) {
        if (picture.form == Form::ClearGray || picture.form == Form::ClearRgb) {
            continue; // its white must stay exactly white: the interpreter is told to leave it as well
        }
        const std::size_t bits = RowOf(picture.form).bitsPerPixel;
        const bool gray = picture.form == Form::Gray || picture.form == Form::JpegGray;
        const std::string kind = bits == 1 ? "Mono" : gray ? "Gray" : "Color";
        const bool reencodes = bits > 1 && !Asks(jobOptions, "/Encode" + kind + "Images false") &&
                               (Asks(jobOptions, "/AutoFilter" + kind + "Images true") ||
                                Asks(jobOptions, "/" + kind + "ImageFilter /DCTEncode"));
        if (Asks(jobOptions, "/Downsample" + kind + "Images true") || reencodes) {
            return false;
        }
    }
    return true;
}

} // namespace sm::publisher
