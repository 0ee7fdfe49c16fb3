// SPDX-License-Identifier: GPL-3.0-or-later
// The header variables behind those of dimensions. A row that starts with # is a link, not a variable.
#include "dwg/objects/HeaderRows.h"

#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::array<Row, 72> kTailRows{{
    {Field::Handle, "#blocks"},
    {Field::Handle, "#layers"},
    {Field::Handle, "#styles"},
    {Field::Handle, "#linetypes"},
    {Field::Handle, "#views"},
    {Field::Handle, "#systems"},
    {Field::Handle, "#viewports"},
    {Field::Handle, "#applications"},
    {Field::Handle, "#dimensionStyles"},
    {Field::Handle, nullptr, 0, Release::R13, Release::R2000},
    {Field::Handle},
    {Field::Handle},
    {Field::Handle, "#dictionary"},
    {Field::Short, nullptr, 0, Release::R2000},
    {Field::Short, nullptr, 0, Release::R2000},
    {Field::Text, "$HYPERLINKBASE", 0, Release::R2000},
    {Field::Text, "$STYLESHEET", 0, Release::R2000},
    {Field::Handle, nullptr, 0, Release::R2000},
    {Field::Handle, nullptr, 0, Release::R2000},
    {Field::Handle, nullptr, 0, Release::R2000},
    {Field::Handle, nullptr, 0, Release::R2004},
    {Field::Handle, nullptr, 0, Release::R2004},
    {Field::Handle, nullptr, 0, Release::R2007},
    {Field::Handle, nullptr, 0, Release::R2013},
    {Field::Flags, nullptr, 0, Release::R2000},
    {Field::Short, "$INSUNITS", 0, Release::R2000},
    {Field::Style, "$CEPSNTYPE", 0, Release::R2000},
    {Field::Text, "$FINGERPRINTGUID", 0, Release::R2000},
    {Field::Text, "$VERSIONGUID", 0, Release::R2000},
    {Field::Char, "$SORTENTS", 280, Release::R2004},
    {Field::Char, "$INDEXCTL", 280, Release::R2004},
    {Field::Char, "$HIDETEXT", 280, Release::R2004},
    {Field::Char, "$XCLIPFRAME", 280, Release::R2004},
    {Field::Char, "$DIMASSOC", 280, Release::R2004},
    {Field::Char, "$HALOGAP", 280, Release::R2004},
    {Field::Short, "$OBSCOLOR", 0, Release::R2004},
    {Field::Short, "$INTERSECTIONCOLOR", 0, Release::R2004},
    {Field::Char, "$OBSLTYPE", 280, Release::R2004},
    {Field::Char, "$INTERSECTIONDISPLAY", 280, Release::R2004},
    {Field::Text, "$PROJECTNAME", 0, Release::R2004},
    {Field::Handle, "#paperSpace"},
    {Field::Handle, "#modelSpace"},
    {Field::Handle},
    {Field::Handle},
    {Field::Handle},
    {Field::Bit, "$CAMERADISPLAY", 0, Release::R2007},
    {Field::Long, nullptr, 0, Release::R2007},
    {Field::Long, nullptr, 0, Release::R2007},
    {Field::Double, nullptr, 0, Release::R2007},
    {Field::Double, "$STEPSPERSEC", 0, Release::R2007},
    {Field::Double, "$STEPSIZE", 0, Release::R2007},
    {Field::Double, "$3DDWFPREC", 0, Release::R2007},
    {Field::Double, "$LENSLENGTH", 0, Release::R2007},
    {Field::Double, "$CAMERAHEIGHT", 0, Release::R2007},
    {Field::Char, "$SOLIDHIST", 280, Release::R2007},
    {Field::Char, "$SHOWHIST", 280, Release::R2007},
    {Field::Double, "$PSOLWIDTH", 0, Release::R2007},
    {Field::Double, "$PSOLHEIGHT", 0, Release::R2007},
    {Field::Double, "$LOFTANG1", 0, Release::R2007},
    {Field::Double, "$LOFTANG2", 0, Release::R2007},
    {Field::Double, "$LOFTMAG1", 0, Release::R2007},
    {Field::Double, "$LOFTMAG2", 0, Release::R2007},
    {Field::Short, "$LOFTPARAM", 0, Release::R2007},
    {Field::Char, "$LOFTNORMALS", 280, Release::R2007},
    {Field::Double, "$LATITUDE", 0, Release::R2007},
    {Field::Double, "$LONGITUDE", 0, Release::R2007},
    {Field::Double, "$NORTHDIRECTION", 0, Release::R2007},
    {Field::Long, "$TIMEZONE", 0, Release::R2007},
    {Field::Char, "$LIGHTGLYPHDISPLAY", 280, Release::R2007},
    {Field::Char, "$TILEMODELIGHTSYNCH", 280, Release::R2007},
    {Field::Char, "$DWFFRAME", 280, Release::R2007},
    {Field::Char, "$DGNFRAME", 280, Release::R2007},
}};

} // namespace

std::span<const Row> TrailingHeaderRows()
{
    return kTailRows;
}

} // namespace sm::drawing::dwg
