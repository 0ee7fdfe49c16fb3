// Drafting notes: leaders, dimensions, tolerance frames, multilines and tables, with what their styles say already in
// place.
//
// Reading keeps to the rules of Entities.h. Colours and line types of the parts follow the entity where they are
// BYBLOCK and its layer where they are BYLAYER.
#pragma once

#include "drawing/Entities.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

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
    std::int32_t lineBetween = 0; ///< DIMTOFL: a line between the extension lines also where the arrows stand outside
    std::int32_t decimals = 4, toleranceDecimals = 4, angleDecimals = 0; ///< DIMDEC, DIMTDEC, DIMADEC
    std::int32_t lengthUnit =
        2; ///< DIMLUNIT: 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional, 6 system
    std::int32_t angleUnit = 0;             ///< DIMAUNIT: 0 degrees, 1 degrees minutes seconds, 2 grads, 3 radians
    std::int32_t fraction = 0;              ///< DIMFRAC: 0 horizontal, 1 diagonal, 2 not stacked
    std::int32_t zeros = 0, angleZeros = 0; ///< DIMZIN, DIMAZIN
    std::int32_t separator = '.';           ///< DIMDSEP
    std::int32_t textAbove = 0;             ///< DIMTAD: 0 centred in the line, else above it (4 below)
    std::int32_t textPlace = 0;             ///< DIMJUST
    std::int32_t textInsideLevel = 1, textOutsideLevel = 1;       ///< DIMTIH, DIMTOH
    std::int32_t tolerances = 0, limits = 0;                      ///< DIMTOL, DIMLIM
    std::int32_t twoArrows = 0;                                   ///< DIMSAH
    std::int32_t hideFirstExtension = 0, hideSecondExtension = 0; ///< DIMSE1, DIMSE2
    std::int32_t hideFirstHalf = 0, hideSecondHalf = 0;           ///< DIMSD1, DIMSD2
    std::int32_t dimensionColor = kByBlock, extensionColor = kByBlock,
                 textColor = kByBlock; ///< DIMCLRD, DIMCLRE, DIMCLRT
    std::int32_t dimensionWeight = kLineweightByBlock, extensionWeight = kLineweightByBlock; ///< DIMLWD, DIMLWE
    std::uint32_t textStyle = 0;
    std::string form; ///< DIMPOST: "<> mm", or a suffix alone
    ArrowHead arrow, first, second, leaderArrow;
};
/// The style of a DIMENSION, LEADER or TOLERANCE: the named entry of the table, in files without one the header's
/// variables, and over it what the entity's extended data "DSTYLE" changes.
void Read(const Drawing&, const EntityRecord&, DimStyle&);
/// The arrow head of a block, by the handle of its BLOCK_RECORD (0: closed and filled) or by name.
ArrowHead ArrowHeadOf(const Drawing&, Handle blockRecord);
ArrowHead ArrowHeadOf(const Drawing&, const std::string& name);

/// LEADER; all points and directions in the WCS.
struct LeaderData : Entity {
    std::vector<Vec3> vertices; ///< tip first; a hook line is the last segment
    bool spline = false;
    bool arrowHead = true;
    Vec3 horizontal{1, 0, 0};    ///< the direction of hook lines
    bool hook = false;           ///< the last segment is a hook line
    std::int32_t annotation = 3; ///< 0 text, 1 tolerance, 2 block, 3 none
    double textWidth = 0;
};
void Read(const Drawing&, const EntityRecord&, LeaderData&);

/// DIMENSION and its relatives. `textMidpoint` and `arcPoint` are in the OCS, the others in the WCS.
struct DimensionData : Entity {
    enum class Form : std::uint8_t { Rotated, Aligned, Angular, Diameter, Radius, ThreePoint, Ordinate, Arc, Jogged };
    std::uint32_t block = kNoBlock; ///< the anonymous block that holds its picture
    std::string blockName;
    std::int32_t type = 0; ///< 70: a form and flags; 64 ordinate of x, 128 text placed by hand
    Form form = Form::Rotated;
    Vec3 definitionPoint;                                               ///< 10
    Vec3 textMidpoint;                                                  ///< 11
    Vec3 first, second, third;                                          ///< 13, 14, 15
    Vec3 arcPoint;                                                      ///< 16
    std::string text;                                                   ///< empty or "<>": the measurement; " ": none
    double rotation = 0, oblique = 0, textRotation = 0, horizontal = 0; ///< 50, 52, 53, 51; degrees
};
void Read(const Drawing&, const EntityRecord&, DimensionData&);

/// TOLERANCE: rows of cells. Insertion is the middle of the first row's left end, WCS.
struct ToleranceData : Entity {
    Vec3 insertion;
    Vec3 direction{1, 0, 0};
    std::string text; ///< rows apart by line ends, cells by "%%v"
};
void Read(const Drawing&, const EntityRecord&, ToleranceData&);

/// The text of an attribute that a note's block gets, by the handle of its definition.
struct NoteAttribute {
    Handle definition = 0;
    std::string text;
};

/// MULTILEADER. Places and directions in the WCS; lengths as drawn, all scales included.
struct MultiLeaderData : Entity {
    struct Gap {
        Vec3 start, end;
    };
    struct Line {
        std::vector<Vec3> vertices; ///< tip first
        std::vector<Gap> gaps;      ///< where other lines cross
        Entity pen;                 ///< colour, line type, lineweight
        double arrowSize = 0;
        ArrowHead arrow;
    };
    struct Leader {
        std::vector<Line> lines;
        Vec3 end; ///< where the lines meet
        bool hasEnd = false;
        std::vector<Gap> gaps; ///< of the dogleg
        Vec3 dogleg;           ///< direction from `end` to the content
        double doglegLength = 0;
        bool vertical = false; ///< comes from above or below the content
    };
    enum class Content : std::uint8_t { None, Block, Text };

    std::vector<Leader> leaders;
    Entity pen; ///< of doglegs, text frames and underlines
    bool hidden = false, spline = false;
    bool dogleg = true;
    double landingGap = 0;
    Content content = Content::None;
    MTextData text; ///< its colour in `text.color`, `text.trueColor`
    bool textFrame = false;
    std::int32_t leftAttachment = 1, rightAttachment = 1; ///< DXF reference, MLEADERSTYLE 174 and 178
    InsertData block;                                     ///< of Content::Block; no attributes of its own
    std::vector<NoteAttribute> attributes;
};
void Read(const Drawing&, const EntityRecord&, MultiLeaderData&);

/// MLINE with its style. Points and directions in the WCS.
struct MLineData : Entity {
    struct Vertex {
        Vec3 point, direction, miter;       ///< `direction` of the segment that begins here
        std::uint32_t first = 0, count = 0; ///< its pieces, one for each element of the style
    };
    /// Lengths along the miter (one) and along the segment (all that follow).
    struct Piece {
        std::uint32_t first = 0, count = 0, fillCount = 0; ///< into `lengths`; those of the fill come last
    };
    struct Element {
        double offset = 0;
        Entity pen;
    };
    std::vector<Vertex> vertices;
    std::vector<Piece> pieces;
    std::vector<double> lengths;
    bool closed = false, noStartCap = false, noEndCap = false;
    std::vector<Element> elements; ///< of the style
    std::int32_t styleFlags = 0;   ///< DXF reference, MLINESTYLE 70
    Entity fill;                   ///< its colour
    double startAngle = 90, endAngle = 90;
};
void Read(const Drawing&, const EntityRecord&, MLineData&);

/// ACAD_TABLE: its picture block, or what the entity itself holds of its cells and its style of them.
struct TableData : Entity {
    /// What all cells of a kind share.
    struct Kind {
        std::uint32_t style = 0; ///< text style
        double textHeight = 0.18;
        std::int32_t alignment = 2; ///< 1 top left to 9 bottom right
        std::int16_t textColor = kByBlock, fillColor = kByBlock;
        bool filled = false;
    };
    /// A cell's own ways with one of its edges.
    struct Border {
        std::optional<std::int16_t> color, lineweight;
        bool hidden = false;
        [[nodiscard]] bool Own() const { return color || lineweight || hidden; }
    };
    enum Side : std::uint8_t { Top, Right, Bottom, Left };
    struct Cell {
        bool isBlock = false, hidden = false; ///< `hidden`: covered by a merged neighbour
        std::int32_t columns = 1, rows = 1;
        std::string text; ///< as of an MTEXT
        std::uint32_t block = kNoBlock;
        double blockScale = 1, rotation = 0; ///< rotation in degrees
        double textHeight = 0;               ///< 0: that of its kind; so are the others that are not given
        std::int32_t alignment = 0;
        std::optional<std::uint32_t> style;
        std::optional<std::int16_t> textColor, fillColor;
        std::optional<bool> filled;
        std::array<Border, 4> borders; ///< by Side
        std::vector<NoteAttribute> attributes;
    };
    std::uint32_t block = kNoBlock;
    Vec3 insertion, direction{1, 0, 0};
    std::vector<double> columnWidths, rowHeights;
    std::vector<Cell> cells;          ///< row by row, at most columns times rows
    std::array<Kind, 3> kinds;        ///< data, title, header
    bool title = true, header = true; ///< the first row, and the one after it
    double marginX = 0.06, marginY = 0.06;
    [[nodiscard]] const Kind& KindOfRow(std::size_t row) const
    {
        const bool isTitle = title && row == 0, isHeader = header && row == (title ? 1U : 0U);
        return kinds[isTitle ? 1 : isHeader ? 2 : 0];
    }
};
void Read(const Drawing&, const EntityRecord&, TableData&);

} // namespace sm::drawing
