#include "publisher/DialectPage.h"

namespace sm::publisher {

namespace {

/// The procedures of the dialect, to the letter: other ones could mean anything.
constexpr std::string_view kProlog = R"(%%BeginProlog
%%BeginResource: procset SheetmakerPage 1.0 0
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
%%EndProlog
%%BeginSetup
)";
constexpr std::string_view kPageBegins = "%%EndSetup\n%%Page: 1 1\n%%ViewingOrientation: ";
constexpr std::string_view kTail = "\n%%PageTrailer\nshowpage\n%%Trailer\n%%EOF\n";

/// Cuts `text` behind the first `mark`; nothing when it isn't there.
std::optional<std::string_view> Before(std::string_view& text, std::string_view mark)
{
    const std::size_t at = text.find(mark);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view part = text.substr(0, at);
    text.remove_prefix(at + mark.size());
    return part;
}

/// True when every line of the head is a comment.
bool IsComments(std::string_view head)
{
    for (std::size_t at = 0; at < head.size(); at = head.find('\n', at) + 1) {
        if (head[at] != '%') {
            return false;
        }
        if (head.find('\n', at) == std::string_view::npos) {
            return false;
        }
    }
    return true;
}

bool IsPageSize(std::string_view line)
{
    constexpr std::string_view kBegin = "<</PageSize[", kEnd = "]>>setpagedevice";
    return line.starts_with(kBegin) && line.ends_with(kEnd) &&
           line.substr(kBegin.size(), line.size() - kBegin.size() - kEnd.size()).find_first_not_of("0123456789. ") ==
               std::string_view::npos;
}

} // namespace

std::optional<DialectPage> ReadDialectPage(std::string_view file)
{
    if (!file.starts_with("%!PS-Adobe-3.0\n%%Title: ")) {
        return std::nullopt;
    }
    const auto head = Before(file, kProlog);
    const auto pageSize = Before(file, "\n");
    auto setup = Before(file, kPageBegins);
    const auto orientation = Before(file, "\n");
    if (!head || !IsComments(*head) || !pageSize || !IsPageSize(*pageSize) || !setup || !orientation ||
        !file.ends_with(kTail)) {
        return std::nullopt;
    }
    file.remove_suffix(kTail.size());
    auto pictures = TakeDialectPictures(*setup);
    auto fonts = pictures ? ReadDialectFonts(*setup) : std::nullopt;
    auto layers = ReadDialectLayers(*head);
    if (!fonts || !layers) {
        return std::nullopt;
    }
    return DialectPage{std::move(*fonts), std::move(*pictures), std::move(*layers), file};
}

} // namespace sm::publisher
