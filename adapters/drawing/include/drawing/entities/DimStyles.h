// SPDX-License-Identifier: GPL-3.0-or-later
// The style of dimensions, leaders and tolerance frames.
#pragma once

#include "drawing/EntityRecord.h"
#include "drawing/Properties.h"

#include <string>

namespace sm::drawing {

/// An arrow head: the block that draws it (its tip at the origin, pointing along x, 1 long), or the name of a
/// well-known one.
struct ArrowHead {
    std::string name;               ///< in capitals without a leading "_" ("ARCHTICK"); empty: closed and filled
    std::uint32_t block = kNoBlock; ///< kNoBlock: there is none in the file, the name counts
};

/// A dimension style (DXF reference, DIMSTYLE) with the entity's own changes to it. Lengths are drawing units before
/// `scale`; the defaults are those that writers leave out.
struct DimStyle {
    double scale = 1;                 ///< DIMSCALE, above 0
    double arrowSize = 0.18;          ///< DIMASZ
    double extensionGap = 0.0625;     ///< DIMEXO: from the measured point
    double extensionPast = 0.18;      ///< DIMEXE: beyond the dimension line
    double dimensionPast = 0;         ///< DIMDLE: beyond the extension lines, with ticks
    double textHeight = 0.18;         ///< DIMTXT
    double centerMark = 0.09;         ///< DIMCEN; negative: centre lines
    double tickSize = 0;              ///< DIMTSZ; above 0: slanted ticks in place of arrows
    double lengthFactor = 1;          ///< DIMLFAC
    double rounding = 0;              ///< DIMRND
    double textGap = 0.09;            ///< DIMGAP; negative: a frame round the text
    double textShift = 0;             ///< DIMTVP
    double plus = 0, minus = 0;       ///< DIMTP, DIMTM
    double toleranceFactor = 1;       ///< DIMTFAC
    double fixedExtension = 1;        ///< DIMFXL, with `extensionsFixed`
    std::int32_t extensionsFixed = 0; ///< DIMFXLON
    std::int32_t lineBetween = 0;     ///< DIMTOFL: a line between what is measured also where the arrows stand outside
    std::int32_t decimals = 4, toleranceDecimals = 4, angleDecimals = 0; ///< DIMDEC, DIMTDEC, DIMADEC
    std::int32_t lengthUnit =
        2; ///< DIMLUNIT: 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional, 6 system
    std::int32_t angleUnit = 0;    ///< DIMAUNIT: 0 degrees, 1 degrees minutes seconds, 2 grads, 3 radians
    std::int32_t alternates = 0;   ///< DIMALT: 1 shows the length in a second unit as well
    double alternateFactor = 25.4; ///< DIMALTF
    double alternateRounding = 0;  ///< DIMALTRND
    std::int32_t alternateDecimals = 2, alternateToleranceDecimals = 2; ///< DIMALTD, DIMALTTD
    std::int32_t alternateUnit =
        2; ///< DIMALTU: as DIMLUNIT, but 4 and 5 stacked, 6 and 7 the same not stacked, 8 system
    std::int32_t toleranceZeros = 0, alternateZeros = 0, alternateToleranceZeros = 0; ///< DIMTZIN, DIMALTZ, DIMALTTZ
    std::int32_t fraction = 0;                              ///< DIMFRAC: 0 horizontal, 1 diagonal, 2 not stacked
    std::int32_t zeros = 0, angleZeros = 0;                 ///< DIMZIN, DIMAZIN
    std::int32_t separator = '.';                           ///< DIMDSEP
    std::int32_t textAbove = 0;                             ///< DIMTAD: 0 centred in the line, else above it (4 below)
    std::int32_t textPlace = 0;                             ///< DIMJUST
    std::int32_t textInsideLevel = 1, textOutsideLevel = 1; ///< DIMTIH, DIMTOH
    std::int32_t tolerances = 0, limits = 0;                ///< DIMTOL, DIMLIM
    std::int32_t twoArrows = 0;                             ///< DIMSAH
    std::int32_t hideFirstExtension = 0, hideSecondExtension = 0; ///< DIMSE1, DIMSE2
    std::int32_t hideFirstHalf = 0, hideSecondHalf = 0;           ///< DIMSD1, DIMSD2
    std::int32_t dimensionColor = kByBlock, extensionColor = kByBlock,
                 textColor = kByBlock; ///< DIMCLRD, DIMCLRE, DIMCLRT
    std::int32_t dimensionWeight = kLineweightByBlock, extensionWeight = kLineweightByBlock; ///< DIMLWD, DIMLWE
    std::uint32_t textStyle = 0;
    std::string form;          ///< DIMPOST: "<> mm", or a suffix alone
    std::string alternateForm; ///< DIMAPOST: "[] mm", or a suffix alone
    ArrowHead arrow, first, second, leaderArrow;
};
/// The style of a DIMENSION, LEADER or TOLERANCE: the named entry of the table, in files without one the header's
/// variables, and over it what the entity's extended data "DSTYLE" changes.
void Read(const Drawing&, const EntityRecord&, DimStyle&);
/// The arrow head of a block, by the handle of its BLOCK_RECORD (0: closed and filled) or by name.
ArrowHead ArrowHeadOf(const Drawing&, Handle blockRecord);
ArrowHead ArrowHeadOf(const Drawing&, const std::string& name);

} // namespace sm::drawing
