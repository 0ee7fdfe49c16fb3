// SPDX-License-Identifier: GPL-3.0-or-later
#include "postscript/PsPictures.h"

#include "base/text/NumberText.h"

#include <array>
#include <libdeflate.h>
#include <memory>
#include <new>

namespace sm::plotter {

namespace {

using Form = render::Picture::Form;

constexpr int kLevel = 6;
constexpr std::size_t kLineLength = 75;

/// Bytes as seven-bit text: groups of four as five digits of base 85 ("PostScript language", ASCII85Encode filter).
class Ascii85 {
public:
    explicit Ascii85(BodyText& out) : m_out(out) {}

    void Write(std::string_view bytes)
    {
        for (std::size_t i = 0; i < bytes.size(); i += 4) {
            WriteGroup(bytes.substr(i, 4));
        }
        m_out.Append(m_line);
        m_out.Append("\n~>\n");
    }

private:
    void WriteGroup(std::string_view group)
    {
        std::uint32_t word = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            word = word << 8 | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0U);
        }
        std::array<char, 5> digits{};
        for (std::size_t i = digits.size(); i-- > 0; word /= 85) {
            digits[i] = static_cast<char>('!' + word % 85);
        }
        const bool zeros = group.size() == 4 && digits == std::array{'!', '!', '!', '!', '!'};
        Put(zeros ? std::string_view("z") : std::string_view(digits.data(), group.size() + 1));
    }

    void Put(std::string_view digits)
    {
        if (m_line.size() + digits.size() > kLineLength) {
            m_line += '\n';
            m_out.Append(m_line);
            m_line.clear();
        }
        if (m_line.empty() && digits.front() == '%') { // no line may look like a comment
            m_line += ' ';
        }
        m_line += digits;
    }

    BodyText& m_out;
    std::string m_line;
};

std::string Deflated(std::string_view bytes)
{
    const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor(
        libdeflate_alloc_compressor(kLevel), libdeflate_free_compressor);
    if (compressor == nullptr) {
        throw std::bad_alloc();
    }
    std::string packed(libdeflate_zlib_compress_bound(compressor.get(), bytes.size()), '\0');
    packed.resize(libdeflate_zlib_compress(compressor.get(), bytes.data(), bytes.size(), packed.data(), packed.size()));
    return packed;
}

std::string Number(std::int32_t value)
{
    char room[base::kNumberRoom];
    return {room, base::PutInteger(room, value)};
}

/// The image dictionary; the publisher's reader expects it to the letter.
std::string Dictionary(const render::Picture& picture, const std::string& name, bool isJpeg)
{
    const std::string width = Number(picture.width), height = Number(picture.height);
    const bool isMask = picture.form == Form::Mask;
    const bool isGray = picture.form == Form::Gray || picture.form == Form::JpegGray;
    const bool clear = picture.whiteIsClear && !isMask && !isJpeg;
    std::string out = "/" + name + "<</ImageType " + (clear ? "4" : "1") + "/Width " + width + "/Height " + height;
    out += isMask ? "/BitsPerComponent 1/Decode[1 0]"
                  : std::string("/BitsPerComponent 8/Decode[") + (isGray ? "0 1]" : "0 1 0 1 0 1]");
    if (clear) {
        out += isGray ? "/MaskColor[255]" : "/MaskColor[255 255 255]";
    }
    out += "/ImageMatrix[" + width + " 0 0 -" + height + " 0 " + height + "]/Space ";
    out += isMask ? "null" : isGray ? "/DeviceGray" : "/DeviceRGB";
    return out + "/Filter/" + (isJpeg ? "DCTDecode" : "FlateDecode") + "/DataSource null/Data " + name + "s>>def\n";
}

} // namespace

std::size_t PsPictures::Add(const render::Picture& picture)
{
    const auto [at, isNew] = m_numbers.emplace(picture.id, m_numbers.size() + 1);
    if (isNew) {
        const std::string name = "I" + Number(static_cast<std::int32_t>(at->second));
        const bool isJpeg = picture.form == Form::JpegGray || picture.form == Form::JpegRgb;
        m_text.Append("%%BeginResource: form " + name + "\n/" + name +
                      "s currentfile/ASCII85Decode filter/ReusableStreamDecode filter\n");
        Ascii85(m_text).Write(isJpeg ? std::string_view(picture.bytes) : Deflated(picture.bytes));
        m_text.Append("def\n" + Dictionary(picture, name, isJpeg) + "%%EndResource\n");
    }
    return at->second;
}

} // namespace sm::plotter
