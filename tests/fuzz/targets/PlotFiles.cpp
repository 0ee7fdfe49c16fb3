// SPDX-License-Identifier: GPL-3.0-or-later
// Files that say how plots are made: plot style tables, plotter configurations.
#include "devices/ReadPc3.h"
#include "fuzz/Target.h"
#include "fuzz/targets/Targets.h"
#include "plotstyle/PlotPens.h"
#include "ports/HostError.h"
#include "render/PlotStyleTable.h"

#include <cmath>
#include <libdeflate.h>
#include <memory>

namespace sm::fuzz {

namespace {

std::string DoubleWord(std::size_t value)
{
    std::string bytes;
    for (int i = 0; i < 4; ++i, value >>= 8U)
        bytes += static_cast<char>(value & 0xFFU);
    return bytes;
}

/// The text as files hold it: deflated, with sizes and sum in front.
std::string Compressed(std::string_view text)
{
    const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> deflater(
        libdeflate_alloc_compressor(1), libdeflate_free_compressor);
    std::string stream(libdeflate_zlib_compress_bound(deflater.get(), text.size()), '\0');
    stream.resize(libdeflate_zlib_compress(deflater.get(), text.data(), text.size(), stream.data(), stream.size()));
    return "PIAFILEVERSION_2.0,CTBVER1,compress\r\npmzlibcodec" +
           DoubleWord(libdeflate_adler32(1, text.data(), text.size())) + DoubleWord(text.size()) +
           DoubleWord(stream.size()) + stream;
}

std::string TableOf(const std::string& styles)
{
    return "description=\"Two\naci_table_available=TRUE\nscale_factor=2.5\napply_factor=TRUE\n"
           "custom_lineweight_display_units=1\naci_table{\n 0=\"Color_1\n 1=\"B\n}\nplot_style{\n" +
           styles + "}\ncustom_lineweight_table{\n 0=0.0\n 1=0.05\n 2=2.11\n}\n";
}

const std::string& OneStyle()
{
    static const std::string kStyle = " 0{\n  name=\"Color_1\n  localized_name=\"Color_1\n  description=\"\n"
                                      "  color=-1024751852\n  mode_color=-1\n  color_policy=3\n"
                                      "  physical_pen_number=0\n  virtual_pen_number=0\n  screen=70\n"
                                      "  linepattern_size=0.8\n  linetype=30\n  adaptive_linetype=FALSE\n"
                                      "  lineweight=1\n  fill_style=67\n  end_style=1\n  join_style=3\n }\n";
    return kStyle;
}

} // namespace

/// What begins with 'Z' is deflated first.
void FuzzPlotStyles(std::string_view input)
{
    try {
        const render::PlotStyleTable table = render::ParsePlotStyleTable(
            input.starts_with('Z') ? Compressed(input.substr(1)) : std::string(input), "x.ctb");
        const render::PlotPens pens(table, {{0x20, "B"}, {0x21, "none"}}, "ANSI_1252");
        render::Style style;
        for (const int index : {0, 1, 7, 255, -1}) {
            style.index = static_cast<decltype(style.index)>(index);
            const render::PlotPen& pen = pens.Of(style);
            if (pen.width && !(*pen.width >= 0 && std::isfinite(*pen.width)))
                Fail("pens have a width");
            (void)pen.ColorOf(0x80FF00U);
        }
    } catch (const render::PlotStyleError& error) {
        CheckReason(error.what());
    }
}

void FuzzPc3(std::string_view input)
{
    try {
        const cadhost::Pc3File file = cadhost::ParsePc3(input, "x.pc3");
        for (const cadhost::Medium& medium : file.media)
            if (!(medium.width > 0 && medium.height > 0) || file.FindMedium(medium.canonicalName) == nullptr)
                Fail("each medium has a size and is found by its name");
        if (file.resolution <= 0)
            Fail("a plotter has a resolution");
    } catch (const HostError& error) {
        CheckReason(error.what(), "x.pc3");
    }
}

Inputs PlotStyleSeeds()
{
    const std::string one = TableOf(OneStyle()), none = TableOf("");
    std::string named = one;
    named.replace(named.find("TRUE"), 4, "FALSE");
    return {one,       none,        named,           "PIAFILEVERSION_2.0,CTBVER1,compress\r\n" + one,
            "Z" + one, "Z" + named, Compressed(none)};
}

Inputs Pc3Seeds()
{
    const std::string head = "# ours\nFormat: 1\nDevice: Own PS8 HighRes\nDriver: ps8.hdi\nResolution: 1200\n";
    return {head + "Margins: 5 5 5 5\n[Media]\nA4 | A4 (210 x 297) | 210 | 297\nA3 | A3 | 297 | 420\n",
            head + "Margins: 5 5.5 5 5\n[Media]\nA4 | A4 | 210 | 297 | 3 3 3 3\n", head,
            "PIAFILEVERSION_2.0,PC3VER1\nmeta{\n driver_pathname=\"ps8.hdi\n localized_model_name=\"Own\n}\nmedia{\n "
            "size{\n"
            "  name=\"A4\n  media_description{\n   printable_bounds_llx=5.0\n   media_bounds{\n    urx=210.0 (AB)\n"
            "    ury=297.0\n   }\n  }\n }\n}\nres_color_mem{\n resolution{\n  phys_resolution_x=600.0\n }\n}\n"};
}

} // namespace sm::fuzz
