// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/objects/HeaderRows.h"

#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::array kVersions{"AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"};

/// The names of code pages by their number, as the variable $DWGCODEPAGE spells them.
constexpr std::array kCodePages{
    "UTF-8",     "US-ASCII",  "ISO8859-1", "ISO8859-2", "ISO8859-3", "ISO8859-4", "ISO8859-5", "ISO8859-6",
    "ISO8859-7", "ISO8859-8", "ISO8859-9", "DOS437",    "DOS850",    "DOS852",    "DOS855",    "DOS857",
    "DOS860",    "DOS861",    "DOS863",    "DOS864",    "DOS865",    "DOS869",    "DOS932",    "MAC-ROMAN",
    "BIG5",      "KSC5601",   "JOHAB",     "DOS866",    "ANSI_1250", "ANSI_1251", "ANSI_1252", "GB2312",
    "ANSI_1253", "ANSI_1254", "ANSI_1255", "ANSI_1256", "ANSI_1257", "ANSI_874",  "ANSI_932",  "ANSI_936",
    "ANSI_949",  "ANSI_950",  "ANSI_1361", "UTF-16",    "ANSI_1258"};

struct LinkRow {
    std::string_view name;
    Handle HeaderLinks::*member;
};
constexpr std::array kLinks{LinkRow{"#blocks", &HeaderLinks::blocks},
                            LinkRow{"#layers", &HeaderLinks::layers},
                            LinkRow{"#styles", &HeaderLinks::styles},
                            LinkRow{"#linetypes", &HeaderLinks::linetypes},
                            LinkRow{"#views", &HeaderLinks::views},
                            LinkRow{"#systems", &HeaderLinks::systems},
                            LinkRow{"#viewports", &HeaderLinks::viewports},
                            LinkRow{"#applications", &HeaderLinks::applications},
                            LinkRow{"#dimensionStyles", &HeaderLinks::dimensionStyles},
                            LinkRow{"#dictionary", &HeaderLinks::dictionary},
                            LinkRow{"#paperSpace", &HeaderLinks::paperSpace},
                            LinkRow{"#modelSpace", &HeaderLinks::modelSpace}};

} // namespace

bool OpenHeader(Object& object, const Container& container)
{
    const std::string_view bytes = container.Header();
    BitReader bits(bytes);
    const std::uint64_t size = bits.RL();
    if (container.HasLongSizes())
        (void)bits.RL();
    if (bits.Overrun() || size == 0)
        return false;
    const std::uint64_t first = bits.At();
    bits.EndAt(first + size * 8);
    if (object.Before(Release::R2007)) {
        object.Fields::Open(bits);
        return true;
    }
    const std::uint64_t bitSize = bits.RL();
    const std::uint64_t links = first + bitSize;
    if (bits.Overrun() || links > bits.End())
        return false;
    object.Fields::Open(bits);
    object.data.EndAt(links);
    object.FindTexts(bytes, links);
    object.SetLinks(BitReader(bytes, links, bits.End()));
    return true;
}

HeaderLinks LinksAmong(const LinkedRows& links)
{
    HeaderLinks found;
    for (const LinkedRow& link : links)
        for (const LinkRow& row : kLinks)
            if (row.name == link.row->name)
                found.*row.member = link.handle;
    return found;
}

LinkedRows WriteHeader(Object& object, const Container& container)
{
    TagSink& sink = object.sink;
    sink.Variable("$ACADVER");
    sink.Text(1, kVersions[static_cast<std::size_t>(container.FileRelease())]);
    const std::size_t page = container.Facts().codePage;
    sink.Variable("$DWGCODEPAGE");
    sink.Text(3, object.Since(Release::R2007) || page >= kCodePages.size() ? "ANSI_1252" : kCodePages[page]);
    if (container.Measurement()) {
        sink.Variable("$MEASUREMENT");
        sink.Integer(70, *container.Measurement());
    }
    LinkedRows links;
    if (!OpenHeader(object, container))
        return links;
    object.own = 0;
    constexpr std::size_t kUsual = 64;
    links.reserve(kUsual);
    WriteVariables(object, LeadingHeaderRows(), links);
    WriteVariables(object, DimensionRows(), links);
    WriteVariables(object, TrailingHeaderRows(), links);
    sink.Close();
    return links;
}

} // namespace sm::drawing::dwg
