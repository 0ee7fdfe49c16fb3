// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FileKind.h"

#include "drawing/DrawingError.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace sm::drawing {

namespace {

constexpr std::string_view kSentinel("AutoCAD Binary DXF\r\n\x1a\0", 22);

struct Magic {
    std::string_view bytes;
    const char* what;
};

constexpr std::array kMagics{
    Magic{"%PDF", "a PDF"},
    Magic{"%!PS", "a PostScript file"},
    Magic{"\x89PNG", "a picture (PNG)"},
    Magic{"\xFF\xD8\xFF", "a picture (JPEG)"},
    Magic{"GIF8", "a picture (GIF)"},
    Magic{"II*", "a picture (TIFF)"},
    Magic{"MM\0*", "a picture (TIFF)"},
    Magic{"PK\x03\x04", "a ZIP archive; unpack it first"},
    Magic{"\x1F\x8B", "a compressed file; unpack it first"},
    Magic{"\x7F"
          "ELF",
          "a program"},
    Magic{"(DWF V", "a DWF"},
    Magic{"SQLite format 3", "a database"},
    Magic{"{\\rtf", "a text document"},
};

/// The magics of DWG files with the release that writes them.
constexpr std::array kDwgReleases{
    Magic{"MC0.0", "R1.1"},  Magic{"AC1.2", "R1.2"},  Magic{"AC1.4", "R1.4"},  Magic{"AC1.50", "R2.0"},
    Magic{"AC2.10", "R2.1"}, Magic{"AC2.2", "R2.2"},  Magic{"AC1001", "R2.2"}, Magic{"AC1002", "R2.5"},
    Magic{"AC1003", "R2.6"}, Magic{"AC1004", "R9"},   Magic{"AC1006", "R10"},  Magic{"AC1009", "R11 or R12"},
    Magic{"AC1012", "R13"},  Magic{"AC1014", "R14"},  Magic{"AC1015", "2000"}, Magic{"AC1018", "2004"},
    Magic{"AC1021", "2007"}, Magic{"AC1024", "2010"}, Magic{"AC1027", "2013"}, Magic{"AC1032", "2018"},
};

[[noreturn]] void ThrowIsOther(const std::string& path, const std::string& what)
{
    throw DrawingError(path + ": the first bytes are those of " + what + ", not of a drawing; name a DXF or DWG file");
}

bool StartsLikeMarkup(std::string_view bytes)
{
    const std::size_t at = bytes.find_first_not_of(" \t\r\n");
    return at != std::string_view::npos && bytes[at] == '<';
}

bool IsUtf16(std::string_view bytes)
{
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

void RefuseDwg(std::string_view bytes, const std::string& path)
{
    if (const std::string release = DwgRelease(bytes); !release.empty())
        throw DrawingError(path + ": this is a DWG of " + release + ", not a DXF; save it as DXF");
}

DxfKind BinaryKind(std::string_view bytes, const std::string& path)
{
    if (bytes.size() < kSentinel.size() + 4)
        throw DrawingError(path + ": the binary DXF is cut off behind its first bytes; save the drawing again");
    // The first tag is "0 SECTION": two zero bytes in front of the name mean two-byte codes.
    const bool wide = bytes[kSentinel.size()] == 0 && bytes[kSentinel.size() + 1] == 0;
    return {wide ? TagFormat::BinaryLong : TagFormat::BinaryShort, kSentinel.size()};
}

} // namespace

std::string DwgRelease(std::string_view bytes)
{
    for (const Magic& release : kDwgReleases)
        if (bytes.starts_with(release.bytes))
            return std::string("release ") + release.what;
    const auto isDigit = [&](std::size_t at) { return std::isdigit(static_cast<unsigned char>(bytes[at])) != 0; };
    if (bytes.size() >= 6 && bytes.starts_with("AC10") && isDigit(4) && isDigit(5))
        return "an unknown release (" + std::string(bytes.substr(0, 6)) + ")";
    return {};
}

DwgForm FormOfDwg(std::string_view bytes)
{
    if (DwgRelease(bytes).empty())
        return DwgForm::NoDwg;
    if (!bytes.starts_with("AC10") || bytes.size() < 6)
        return DwgForm::Converted;
    const int number = 10 * (bytes[4] - '0') + (bytes[5] - '0');
    constexpr int kFirstWithObjects = 12;
    if (number >= kFirstWithObjects)
        return DwgForm::Objects;
    return number == 4 || number == 6 || number == 9 ? DwgForm::Records : DwgForm::Converted;
}

DxfKind RecogniseDxf(std::string_view bytes, const std::string& path)
{
    if (bytes.starts_with(kSentinel))
        return BinaryKind(bytes, path);
    RefuseDwg(bytes, path);
    for (const Magic& magic : kMagics)
        if (bytes.starts_with(magic.bytes))
            ThrowIsOther(path, magic.what);
    if (IsUtf16(bytes))
        ThrowIsOther(path, "UTF-16 text");
    if (StartsLikeMarkup(bytes))
        ThrowIsOther(path, "an HTML or XML page");
    return {TagFormat::Ascii, bytes.starts_with("\xEF\xBB\xBF") ? std::uint64_t{3} : std::uint64_t{0}};
}

void ThrowNothingUsable(std::string_view bytes, const std::string& path, std::uint32_t tags)
{
    if (Trimmed(bytes.substr(0, std::min<std::size_t>(bytes.size(), 65536))).empty())
        throw DrawingError(path + ": the file holds blanks only; save the drawing again");
    if (tags > 0)
        throw DrawingError(path + ": the DXF ends or is damaged before anything usable, at group " +
                           std::to_string(tags) + "; save the drawing again");
    const std::size_t probe = std::min<std::size_t>(bytes.size(), 4096);
    const bool text = bytes.substr(0, probe).find('\0') == std::string_view::npos;
    throw DrawingError(path + ": line 1 is no DXF group code: this is " +
                       (text ? "some other text" : "some other file") + ", not a drawing; name a DXF or DWG file");
}

} // namespace sm::drawing
