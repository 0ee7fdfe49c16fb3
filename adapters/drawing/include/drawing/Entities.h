// Entities: where each stands in the file, and its typed content, read on demand.
//
// The drawing keeps 24 bytes an entity; a `Read` walks its tags and fills a struct that the caller reuses, so that the
// hot road allocates nothing. Values are as in the file: coordinates in the entity's own system (OCS where the DXF
// reference says so), angles in degrees. Nothing is trusted: counts are bounded by the entity's tags, non-finite
// numbers become 0.
#pragma once

#include "drawing/Tables.h"

#include <array>
#include <string>
#include <vector>

namespace sm::drawing {

class Drawing;

enum class EntityKind : std::uint8_t {
    Unknown,
    Line,
    Circle,
    Arc,
    Ellipse,
    LwPolyline,
    Polyline,
    Spline,
    Helix,
    Point,
    Solid,
    Trace,
    Face3d,
    Text,
    Attrib,
    Attdef,
    MText,
    Insert,
    Dimension,
    Hatch,
    MPolygon,
    Viewport,
    Leader,
    MultiLeader,
    MLine,
    Tolerance,
    Shape,
    XLine,
    Ray,
    Image,
    Wipeout,
    Underlay,
    Table,
    Mesh,
    Region,
    Solid3d,
    Body,
    Surface,
    Proxy,
    OleFrame,
    Light,
    Sun,
    Section,
    GeoPosition,
    Count
};

/// The DXF name of a kind ("LINE"); for Unknown the record's own name is asked with `Drawing::EntityName`.
const char* KindName(EntityKind kind);

/// One entity: a slice of the file. For POLYLINE and INSERT the slice covers their VERTEX, ATTRIB and SEQEND.
struct EntityRecord {
    std::uint64_t begin = 0;  ///< byte offset of the first tag after the entity's name
    std::uint32_t length = 0; ///< bytes
    std::uint32_t line = 0;   ///< line number (ASCII) or tag number (binary) of its name
    EntityKind kind = EntityKind::Unknown;
    bool paperSpace = false;     ///< group 67
    std::uint16_t nameIndex = 0; ///< into the names of unknown kinds
};

/// Properties that every entity has.
struct Entity {
    Handle handle = 0, owner = 0;
    std::uint32_t layer = 0;    ///< index into the layers; layer "0" when the named one is missing
    std::uint32_t linetype = 0; ///< index into the linetypes; ByLayer when not given
    double linetypeScale = 1;
    std::int16_t color = kByLayer;
    std::optional<std::uint32_t> trueColor; ///< 0xRRGGBB
    std::int16_t lineweight = kLineweightByLayer;
    bool invisible = false;
    Vec3 extrusion{0, 0, 1};
    double thickness = 0;
    double elevation = 0;                     ///< group 38
    std::optional<std::uint8_t> transparency; ///< 0 clear to 255 opaque, when given by value
    bool transparencyByBlock = false;
    /// Where the named plot style comes from (DXF reference, common group 380).
    enum class StyleSource : std::uint8_t { Layer, Block, Default, Own } plotStyleSource = StyleSource::Layer;
    Handle plotStyle = 0; ///< when it is its own
};

struct LineData : Entity {
    Vec3 start, end;
}; // WCS; also RAY, XLINE: start and direction in `end`
struct CircleData : Entity {
    Vec3 center;
    double radius = 0;
}; // OCS
struct ArcData : Entity {
    Vec3 center;
    double radius = 0, startAngle = 0, endAngle = 0;
};                            // OCS, counter-clockwise
struct EllipseData : Entity { // WCS
    Vec3 center, majorAxis;
    double ratio = 1, startParameter = 0, endParameter = 6.283185307179586; ///< radians
};
struct PolyVertex {
    Vec3 point;
    double bulge = 0, startWidth = 0, endWidth = 0;
    std::uint8_t flags = 0;             ///< group 70 of VERTEX
    std::array<std::int32_t, 4> face{}; ///< 71 to 74 of a polyface's face record, 1-based, negative: edge hidden
};
/// LWPOLYLINE, and POLYLINE with its vertices.
struct PolylineData : Entity {
    std::vector<PolyVertex> vertices;
    bool closed = false;
    bool is3d = false, isMesh = false, isPolyface = false; ///< WCS when any is set, OCS else
    bool plinegen = false;                                 ///< line type runs on over the vertices
    double constantWidth = 0;
    double defaultStartWidth = 0, defaultEndWidth = 0;
    std::int32_t curveType = 0;                     ///< 75: 5 quadratic, 6 cubic B-spline, 8 Bezier
    bool splineFitted = false, curveFitted = false; ///< 70 bits 4, 2: frame points (vertex flag 16) aren't drawn
    std::int32_t meshM = 0, meshN = 0;              ///< bounded by the vertices found
    bool meshClosedM = false, meshClosedN = false;
};
struct SplineData : Entity { // WCS
    std::int32_t degree = 3;
    bool closed = false, periodic = false, rational = false;
    std::vector<double> knots, weights;
    std::vector<Vec3> controlPoints, fitPoints;
    std::optional<Vec3> startTangent, endTangent;
};
struct PointData : Entity {
    Vec3 location;
    double angle = 0;
};
/// SOLID, TRACE (OCS) and 3DFACE (WCS). The third and fourth corner are crossed in SOLID and TRACE, as in the file.
struct QuadData : Entity {
    std::array<Vec3, 4> corners{};
    std::int32_t invisibleEdges = 0;
};
/// TEXT, ATTRIB, ATTDEF. OCS.
struct TextData : Entity {
    Vec3 insertion, alignment;
    bool hasAlignment = false;
    std::string text;        ///< UTF-8, %%-codes still in it
    std::string tag, prompt; ///< ATTRIB, ATTDEF
    std::uint32_t style = 0;
    double height = 0, rotation = 0, widthFactor = 1, oblique = 0;
    bool backward = false, upsideDown = false;
    std::int32_t horizontal = 0;               ///< 72: 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit
    std::int32_t vertical = 0;                 ///< 73 (TEXT) or 74 (ATTRIB): 0 baseline, 1 bottom, 2 middle, 3 top
    std::int32_t attributeFlags = 0;           ///< 70: 1 invisible, 2 constant, 4 verify, 8 preset
    std::optional<EntityRecord> embeddedMText; ///< a multi-line attribute's own MTEXT tags
};
struct MTextData : Entity {
    Vec3 insertion;
    Vec3 direction{1, 0, 0}; ///< WCS x axis of the text
    bool hasDirection = false;
    std::string text; ///< UTF-8, formatting still in it, all 3 and 1 groups joined
    std::uint32_t style = 0;
    double height = 0, width = 0, rotation = 0; ///< width 0: no wrapping
    std::int32_t attachment = 1;                ///< 1 top left to 9 bottom right
    double lineSpacing = 1;
    std::int32_t lineSpacingStyle = 1; ///< 1 at least, 2 exact
    std::int32_t backgroundFlags = 0;  ///< 1 filled, 2 in the paper's colour, 16 framed
    double backgroundScale = 1.5;
    std::int16_t backgroundColor = 0;
    std::optional<std::uint32_t> backgroundTrueColor;
    std::int32_t columnType = 0, columnCount = 0; ///< type: 0 none, 1 static, 2 dynamic
    double columnWidth = 0, columnGutter = 0;
    bool columnsReversed = false, columnAutoHeight = false;
    double definedHeight = 0;          ///< of each column; 0: none
    std::vector<double> columnHeights; ///< of the columns one by one; 0: no limit
};
struct InsertData : Entity { // OCS
    std::uint32_t block = 0; ///< index into the blocks; kNoBlock when missing
    std::string blockName;
    Vec3 insertion;
    Vec3 scale{1, 1, 1};
    double rotation = 0;
    std::int32_t columns = 1, rows = 1; ///< at least 1; at most a million altogether
    double columnSpacing = 0, rowSpacing = 0;
    std::vector<EntityRecord> attributes; ///< its ATTRIBs
};
inline constexpr std::uint32_t kNoBlock = 0xFFFFFFFF;
struct HatchEdge {
    enum class Kind : std::uint8_t { Line, Arc, EllipticArc, Spline } kind = Kind::Line;
    Vec2 start, end;                                            ///< Line
    Vec2 center, majorAxis;                                     ///< Arc, EllipticArc
    double radius = 0, ratio = 1, startAngle = 0, endAngle = 0; ///< degrees
    bool counterClockwise = true;
    std::int32_t degree = 3;
    std::vector<double> knots, weights;
    std::vector<Vec2> points; ///< control points
    std::vector<Vec2> fitPoints;
};
struct HatchPath {
    std::int32_t flags = 0;           ///< 92: 1 external, 2 polyline, 16 outermost
    std::vector<PolyVertex> polyline; ///< when flag 2 is set
    bool closed = true;
    std::vector<HatchEdge> edges;
    std::vector<Handle> sources; ///< 330: the objects that an associative boundary was made of
};
struct HatchLine {
    double angle = 0;
    Vec2 base, offset;
    std::vector<double> dashes;
}; ///< as scaled in the file
/// HATCH and MPOLYGON. OCS.
struct HatchData : Entity {
    bool solid = false;
    std::string patternName;
    std::int32_t style = 0; ///< 75: 0 odd parity, 1 outermost, 2 whole area
    double patternAngle = 0, patternScale = 1;
    bool patternDouble = false;
    std::vector<HatchPath> paths;
    std::vector<HatchLine> lines;
    bool gradient = false;
    std::string gradientName;
    double gradientAngle = 0, gradientShift = 0; ///< radians; 0 to 1
    double gradientTint = 0.5;                   ///< of the second colour when there is one alone
    std::vector<std::uint32_t> gradientColors;   ///< 0xRRGGBB
};
struct ViewportData : Entity {
    Vec3 center; ///< paper units
    double width = 0, height = 0;
    std::int32_t status = 0, id = 0; ///< 68, 69
    std::int32_t flags = 0;          ///< 90; 0x20000 off
    Vec2 viewCenter;                 ///< DCS of the view
    double viewHeight = 0;           ///< model units
    Vec3 direction{0, 0, 1}, target;
    double twist = 0;                        ///< degrees
    std::vector<std::uint32_t> frozenLayers; ///< indexes into the layers
    Handle clipEntity = 0;                   ///< 340
    [[nodiscard]] bool Perspective() const { return (flags & 1) != 0; }
    [[nodiscard]] bool Off() const { return (flags & 0x20000) != 0; }
};
/// IMAGE, WIPEOUT (WCS); PDF/DWF/DGN UNDERLAY (OCS).
struct ImageData : Entity {
    Vec3 insertion, u, v; ///< lower-left corner; vectors of one pixel, of one inch of an underlay's page
    Vec2 size;            ///< pixels; 0 for underlays
    Handle definition = 0;
    std::int32_t flags = 0, clipType = 0; ///< IMAGE 70: 1 shown, 8 transparent; UNDERLAY 280: 2 shown, 4 monochrome
    std::vector<Vec2> clip;    ///< images: pixels from the middle of the first one, y down; underlays: inches, y up
    bool clipping = false;     ///< IMAGE, WIPEOUT: group 280 and flag 4; UNDERLAY: flag 1
    bool clipInverted = false; ///< group 290: what the boundary holds is left out
    std::int32_t brightness = 50, contrast = 50, fade = 0; ///< 0 to 100; an underlay's contrast is 100 as it is
};

void Read(const Drawing&, const EntityRecord&, Entity&);
void Read(const Drawing&, const EntityRecord&, LineData&);
void Read(const Drawing&, const EntityRecord&, CircleData&);
void Read(const Drawing&, const EntityRecord&, ArcData&);
void Read(const Drawing&, const EntityRecord&, EllipseData&);
void Read(const Drawing&, const EntityRecord&, PolylineData&);
void Read(const Drawing&, const EntityRecord&, SplineData&);
void Read(const Drawing&, const EntityRecord&, PointData&);
void Read(const Drawing&, const EntityRecord&, QuadData&);
void Read(const Drawing&, const EntityRecord&, TextData&);
void Read(const Drawing&, const EntityRecord&, MTextData&);
void Read(const Drawing&, const EntityRecord&, InsertData&);
void Read(const Drawing&, const EntityRecord&, HatchData&);
void Read(const Drawing&, const EntityRecord&, ViewportData&);
void Read(const Drawing&, const EntityRecord&, ImageData&);

/// A point among an entity's own tags: its x stands in group `code` (10 to 18), y and z in those 10 and 20 above.
struct TaggedPoint {
    int code = 10;
    Vec3 point;
};
/// Fills `points` (cleared first) with all of them in file order, whatever they mean: also directions and sizes. For
/// the kinds that have no reader of their own.
void ReadPoints(const Drawing&, const EntityRecord&, std::vector<TaggedPoint>& points);
/// Width and height of an ACAD_TABLE: the sums of its columns (group 142) and rows (141).
Vec2 ReadTableSize(const Drawing&, const EntityRecord&);

/// The boundary that clips an insert's block (its extension dictionary's spatial filter), in the block's coordinates;
/// false, and `boundary` not to be used, when nothing is clipped.
bool ReadInsertClip(const Drawing&, const EntityRecord&, std::vector<Vec3>& boundary);

/// One hyperlink of an entity: extended data of application "PE_URL", of the entity itself or of its text's fields.
struct Hyperlink {
    std::string url, description, subLocation;
};
/// Fills `links` (cleared first) with the entity's hyperlinks, in file order: its own, or else those of the FIELD
/// objects in its extension dictionary.
void ReadHyperlinks(const Drawing&, const EntityRecord&, std::vector<Hyperlink>& links);

} // namespace sm::drawing
