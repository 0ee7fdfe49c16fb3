#include "plotter/PsDocument.h"

#include "plotter/PsNumber.h"

#include <cerrno>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace sm::plotter {

namespace {

/// The operators of PDF content streams, as PostScript procedures.
constexpr const char* kProcedures = R"(%%BeginResource: procset SheetmakerPage 1.0 0
/m/moveto load def
/l/lineto load def
/c/curveto load def
/h/closepath load def
/S/stroke load def
/f/fill load def
/f*/eofill load def
/q/gsave load def
/Q/grestore load def
/W/clip load def
/W*/eoclip load def
/n/newpath load def
/cm{6 array astore concat}bind def
/w/setlinewidth load def
/J/setlinecap load def
/j/setlinejoin load def
/M/setmiterlimit load def
/g/setgray load def
/G/setgray load def
/rg/setrgbcolor load def
/RG/setrgbcolor load def
/Di{dup/Data get dup 0 setfileposition 1 index/Filter get filter 1 index exch/DataSource exch put
dup/Space get dup null eq{pop imagemask}{setcolorspace image}ifelse}bind def
/Do{load dup/ImageType get 4 eq/currentdistillerparams where{pop}{pop false}ifelse{currentdistillerparams exch
<</AutoFilterColorImages false/ColorImageFilter/FlateEncode/DownsampleColorImages false/AutoFilterGrayImages false
/GrayImageFilter/FlateEncode/DownsampleGrayImages false>>setdistillerparams Di setdistillerparams}{Di}ifelse}bind def
/BT/gsave load def
/ET/grestore load def
/Tr/pop load def
/Tf/selectfont load def
/Tm{6 array astore concat 0 0 moveto}bind def
/Td/moveto load def
/Tj/show load def
/TJ{{dup type/stringtype eq{show}{-.001 mul 0 rmoveto}ifelse}forall}bind def
/d1/setcachedevice load def
/BDC{pop pop}bind def
/EMC{}def
/gs/pop load def
%%EndResource
)";

std::string Decimal(double value, int digits)
{
    char room[kNumberRoom];
    return {room, PutDecimal(room, value, digits)};
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

double Points(double millimetres)
{
    return millimetres * 72 / 25.4;
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
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string out;
    for (const PsDocument::Layer& layer : d.layers) {
        out += "%SheetmakerLayer: " + std::to_string(layer.number) + " " +
               kSights[static_cast<std::size_t>(layer.sight)] + " <";
        for (const char c : layer.name) {
            const auto byte = static_cast<unsigned char>(c);
            out += kDigits[byte >> 4];
            out += kDigits[byte & 0xF];
        }
        out += ">\n";
    }
    return out;
}

std::string Comments(const PsDocument& d, const FontBook& fonts, const char* level)
{
    const std::string width = Decimal(Points(d.width), 4), height = Decimal(Points(d.height), 4);
    std::string out = "%!PS-Adobe-3.0\n";
    out += "%%Title: " + DscText(d.title) + "\n%%Creator: " + DscText(d.creator) + "\n";
    out += "%%BoundingBox: 0 0 " + Decimal(std::ceil(Points(d.width) - 1e-4), 1) + " " +
           Decimal(std::ceil(Points(d.height) - 1e-4), 1) + "\n%%HiResBoundingBox: 0 0 " + width + " " + height + "\n";
    out += "%%DocumentMedia: Sheet " + width + " " + height + " 0 () ()\n%%LanguageLevel: " + level +
           "\n%%Pages: 1\n"
           "%%PageOrder: Ascend\n%%DocumentData: Clean7Bit\n%%DocumentNeededResources:\n"
           "%%DocumentSuppliedResources: procset SheetmakerPage 1.0 0\n";
    if (!fonts.Empty()) {
        out += "%%+ font " + fonts.Names() + "\n";
    }
    return out + "%%EndComments\n" + LayerComments(d);
}

std::string TemporaryBeside(const std::string& path, int& fd)
{
    std::string name = path + ".XXXXXX";
    fd = mkostemp(name.data(), O_CLOEXEC);
    if (fd < 0) {
        throw std::system_error(errno, std::generic_category(), "can't be created");
    }
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(fd, 0666 & ~mask);
    return name;
}

} // namespace

namespace {

std::string Prolog(const PsDocument& d, const FontBook& fonts, const char* level)
{
    std::string out = Comments(d, fonts, level);
    out += "%%BeginProlog\n";
    out += kProcedures;
    out += "%%EndProlog\n%%BeginSetup\n";
    return out + "<</PageSize[" + Decimal(Points(d.width), 4) + " " + Decimal(Points(d.height), 4) +
           "]>>setpagedevice\n";
}

std::string FontsAndPage(const PsDocument& d, const FontBook& fonts)
{
    std::string out = fonts.Definitions();
    out += "%%EndSetup\n%%Page: 1 1\n";
    out += std::string("%%ViewingOrientation: ") + ViewingOrientation(d.rotation) + "\n";
    const std::string scale = Decimal(72 / d.resolution, 6);
    return out + "q\n" + scale + " 0 0 " + scale + " 0 0 cm\n";
}

} // namespace

std::string PsHead(const PsDocument& d, const FontBook& fonts)
{
    return Prolog(d, fonts, "2") + FontsAndPage(d, fonts);
}

std::string PsTail()
{
    return "Q\n%%PageTrailer\nshowpage\n%%Trailer\n%%EOF\n";
}

void WriteDocument(const PsDocument& document, PsWriter& writer, const std::string& path)
{
    writer.Finish();
    int fd = -1;
    const std::string temporary = TemporaryBeside(path, fd);
    try {
        // Pictures can be read again and again, for each place that shows them, in level 3 alone.
        WriteAll(fd, Prolog(document, writer.Fonts(), writer.Pictures().Empty() ? "2" : "3"));
        writer.Pictures().WriteTo(fd);
        WriteAll(fd, FontsAndPage(document, writer.Fonts()));
        writer.Body().WriteTo(fd);
        WriteAll(fd, PsTail());
        const bool closed = ::close(fd) == 0;
        fd = -1;
        if (!closed || ::rename(temporary.c_str(), path.c_str()) != 0) {
            throw std::system_error(errno, std::generic_category(), "can't be written");
        }
    } catch (...) {
        if (fd >= 0) {
            ::close(fd);
        }
        ::unlink(temporary.c_str());
        throw;
    }
}

} // namespace sm::plotter
