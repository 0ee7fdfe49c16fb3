// SPDX-License-Identifier: GPL-3.0-or-later
#include "postscript/PsDocument.h"

#include "base/Units.h"
#include "base/files/AtomicFile.h"
#include "base/text/NumberText.h"
#include "prologue/Procedures.h"

namespace sm::plotter {

namespace {

std::string Decimal(double value, int digits)
{
    char room[base::kNumberRoom];
    return {room, base::PutDecimal(room, value, digits)};
}

/// A text in parentheses as the structuring conventions want it: seven bits, at most 200 characters.
std::string DscText(const std::string& text)
{
    std::string out = "(";
    for (const char c : text) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (out.size() > 200) {
            break;
        }
        if (byte < 32 || byte > 126) {
            out += '\\';
            for (const int shift : {6, 3, 0}) {
                out += static_cast<char>('0' + (byte >> shift & 7));
            }
            continue;
        }
        if (c == '(' || c == ')' || c == '\\') {
            out += '\\';
        }
        out += c;
    }
    return out + ")";
}

/// The conventions' way to say which way is up: the first column and row of the map from readable to plotted axes.
const char* ViewingOrientation(std::int32_t rotation)
{
    constexpr const char* kTurns[] = {"1 0 0 1", "0 1 -1 0", "-1 0 0 -1", "0 -1 1 0"};
    return kTurns[rotation >= 0 && rotation < 4 ? rotation : 0];
}

std::string LayerComments(const PsDocument& d)
{
    constexpr const char* kSights[] = {"on", "off", "unplotted"};
    constexpr const char* kHexDigits = "0123456789ABCDEF";
    std::string out;
    for (const PsDocument::Layer& layer : d.layers) {
        out += "%SheetmakerLayer: " + std::to_string(layer.number) + " " +
               kSights[static_cast<std::size_t>(layer.sight)] + " <";
        for (const char c : layer.name) {
            const auto byte = static_cast<unsigned char>(c);
            out += kHexDigits[byte >> 4];
            out += kHexDigits[byte & 0xF];
        }
        out += ">\n";
    }
    return out;
}

std::string Comments(const PsDocument& d, const FontBook& fonts, const char* level)
{
    const std::string width = Decimal(base::PointsOfMillimetres(d.width), 4),
                      height = Decimal(base::PointsOfMillimetres(d.height), 4);
    std::string out = "%!PS-Adobe-3.0\n";
    out += "%%Title: " + DscText(d.title) + "\n%%Creator: " + DscText(d.creator) + "\n";
    out += "%%BoundingBox: 0 0 " + Decimal(std::ceil(base::PointsOfMillimetres(d.width) - 1e-4), 1) + " " +
           Decimal(std::ceil(base::PointsOfMillimetres(d.height) - 1e-4), 1) + "\n%%HiResBoundingBox: 0 0 " + width +
           " " + height + "\n";
    out += "%%DocumentMedia: Sheet " + width + " " + height + " 0 () ()\n%%LanguageLevel: " + level +
           "\n%%Pages: 1\n"
           "%%PageOrder: Ascend\n%%DocumentData: Clean7Bit\n%%DocumentNeededResources:\n"
           "%%DocumentSuppliedResources: procset SheetmakerPage 1.0 0\n";
    if (!fonts.Empty()) {
        out += "%%+ font " + fonts.Names() + "\n";
    }
    return out + "%%EndComments\n" + LayerComments(d);
}

std::string Prolog(const PsDocument& d, const FontBook& fonts, const char* level)
{
    std::string out = Comments(d, fonts, level);
    out += "%%BeginProlog\n";
    out += dialect::kProcedures;
    out += "%%EndProlog\n%%BeginSetup\n";
    return out + "<</PageSize[" + Decimal(base::PointsOfMillimetres(d.width), 4) + " " +
           Decimal(base::PointsOfMillimetres(d.height), 4) + "]>>setpagedevice\n";
}

std::string FontsAndPage(const PsDocument& d, const FontBook& fonts)
{
    std::string out = fonts.Definitions();
    out += "%%EndSetup\n%%Page: 1 1\n";
    out += std::string("%%ViewingOrientation: ") + ViewingOrientation(d.rotation) + "\n";
    const std::string scale = Decimal(base::kPointsPerInch / d.unitsPerInch, 6);
    return out + "q\n" + scale + " 0 0 " + scale + " 0 0 cm\n";
}

constexpr const char* kTail = "Q\n%%PageTrailer\nshowpage\n%%Trailer\n%%EOF\n";

} // namespace

void WriteDocument(const PsDocument& document, PsWriter& writer, const std::string& path)
{
    writer.Finish();
    // The publisher reads the file in a moment: a failure of the machine may take it.
    base::AtomicFile file(path, base::AtomicFile::Keeping::ForNow);
    const auto write = [&file](std::string_view piece) { file.Write(piece); };
    // Pictures can be read again and again, for each place that shows them, in level 3 alone.
    file.Write(Prolog(document, writer.Fonts(), writer.Pictures().Empty() ? "2" : "3"));
    writer.Pictures().WriteTo(write);
    file.Write(FontsAndPage(document, writer.Fonts()));
    writer.Body().WriteTo(write);
    file.Write(kTail);
    file.Commit();
}

} // namespace sm::plotter
