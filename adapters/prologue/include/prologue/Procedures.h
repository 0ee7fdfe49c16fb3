// SPDX-License-Identifier: GPL-3.0-or-later
// What begins every page of our own PostScript: the plotter writes it, and the publisher makes pages itself that begin
// with it to the letter. Other procedures could mean anything: such pages go to the interpreter.
#pragma once

#include <string_view>

namespace sm::dialect {

/// The operators of PDF content streams (ISO 32000-1, annex A), as PostScript procedures.
inline constexpr std::string_view kProcedures = R"(%%BeginResource: procset SheetmakerPage 1.0 0
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

} // namespace sm::dialect
