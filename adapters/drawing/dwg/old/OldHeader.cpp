// SPDX-License-Identifier: GPL-3.0-or-later
// The header variables of R9 to R12: each release adds to those before it, and their number says where they end.
#include "dwg/file/CodePageNames.h"
#include "dwg/old/OldDrawing.h"

#include <array>

namespace sm::drawing::dwg {

namespace {

using Value = OldValue;

constexpr OldRow Point3(const char* name)
{
    return {Value::Point3, 10, 0, name};
}
constexpr OldRow Point2(const char* name)
{
    return {Value::Point2, 10, 0, name};
}
constexpr OldRow Real(const char* name)
{
    return {Value::Real, 40, 0, name};
}
constexpr OldRow Short(const char* name)
{
    return {Value::Short, 70, 0, name};
}
constexpr OldRow Byte(const char* name)
{
    return {Value::Byte, 70, 0, name};
}
constexpr OldRow Text(const char* name, std::uint8_t size)
{
    return {Value::Text, 1, size, name};
}
constexpr OldRow Date(const char* name)
{
    return {Value::Date, 40, 0, name};
}

constexpr std::array kFirst{Point3("$INSBASE")};
/// R9 has the number of entities here.
constexpr std::array kSecondOfR9{SkipBytes(2)};
constexpr std::array kSecond{Short("$PLINEGEN")};
constexpr std::array kLimits{
    Point3("$EXTMIN"),
    Point3("$EXTMAX"),
    Point2("$LIMMIN"),
    Point2("$LIMMAX"),
    Point3("$VIEWCTR"),
    Real("$VIEWSIZE"),
    Short("$SNAPMODE"),
    Point2("$SNAPUNIT"),
    Point2("$SNAPBASE"),
    OldRow{Value::Angle, 50, 0, "$SNAPANG"},
    Short("$SNAPSTYLE"),
    Short("$SNAPISOPAIR"),
    Short("$GRIDMODE"),
    Point2("$GRIDUNIT"),
    Short("$ORTHOMODE"),
    Short("$REGENMODE"),
    Short("$FILLMODE"),
    Short("$QTEXTMODE"),
    Short("$DRAGMODE"),
    Real("$LTSCALE"),
    Real("$TEXTSIZE"),
    Real("$TRACEWID"),
    OldRow{Value::Layer, 8, 0, "$CLAYER"},
    SkipBytes(8), // the colour of new entities in older releases
    SkipBytes(2),
};
constexpr std::array kScalesOfR9{SkipBytes(6)};
constexpr std::array kScales{Short("$PSLTSCALE"), Short("$TREEDEPTH"), SkipBytes(2)};
constexpr std::array kUnits{
    SkipBytes(8), // aspect of the screen
    Short("$LUNITS"),
    Short("$LUPREC"),
    Short("$AXISMODE"),
    Point2("$AXISUNIT"),
    Real("$SKETCHINC"),
    Real("$FILLETRAD"),
    Short("$AUNITS"),
    Short("$AUPREC"),
    OldRow{Value::Style, 7, 0, "$TEXTSTYLE"},
    Short("$OSMODE"),
    Short("$ATTMODE"),
    Text("$MENU", 15),
    Real("$DIMSCALE"),
    Real("$DIMASZ"),
    Real("$DIMEXO"),
    Real("$DIMDLI"),
    Real("$DIMEXE"),
    Real("$DIMTP"),
    Real("$DIMTM"),
    Real("$DIMTXT"),
    Real("$DIMCEN"),
    Real("$DIMTSZ"),
    Byte("$DIMTOL"),
    Byte("$DIMLIM"),
    Byte("$DIMTIH"),
    Byte("$DIMTOH"),
    Byte("$DIMSE1"),
    Byte("$DIMSE2"),
    Byte("$DIMTAD"),
    Byte("$LIMCHECK"),
    SkipBytes(46), // the rest of the menu's name
    Real("$ELEVATION"),
    Real("$THICKNESS"),
    Point3("$VIEWDIR"),
    SkipBytes(144), // axes of the view
    SkipBytes(2),
    Short("$BLIPMODE"),
    Byte("$DIMZIN"),
    Real("$DIMRND"),
    Real("$DIMDLE"),
    Text("$DIMBLK", 33),
    SkipBytes(2),
    Short("$COORDS"),
    OldRow{Value::Short, 62, 0, "$CECOLOR"},
    OldRow{Value::Linetype, 6, 0, "$CELTYPE"},
    Date("$TDCREATE"),
    Date("$TDUPDATE"),
    Date("$TDINDWG"),
    Date("$TDUSRTIMER"),
    Short("$USRTIMER"),
    Short("$FASTZOOM"),
    Short("$SKPOLY"),
    SkipBytes(14), // a date by its parts
    OldRow{Value::Angle, 50, 0, "$ANGBASE"},
    Short("$ANGDIR"),
    Short("$PDMODE"),
    Real("$PDSIZE"),
    Real("$PLINEWID"),
    Short("$USERI1"),
    Short("$USERI2"),
    Short("$USERI3"),
    Short("$USERI4"),
    Short("$USERI5"),
    Real("$USERR1"),
    Real("$USERR2"),
    Real("$USERR3"),
    Real("$USERR4"),
    Real("$USERR5"),
    Byte("$DIMALT"),
    Byte("$DIMALTD"),
    Byte("$DIMASO"),
    Byte("$DIMSHO"),
    Text("$DIMPOST", 16),
    Text("$DIMAPOST", 16),
    Real("$DIMALTF"),
    Real("$DIMLFAC"),
    Short("$SPLINESEGS"),
    Short("$SPLFRAME"),
    Short("$ATTREQ"),
    Short("$ATTDIA"),
    Real("$CHAMFERA"),
    Real("$CHAMFERB"),
    Short("$MIRRTEXT"),
};
constexpr std::uint8_t kTablePlace = 10;
constexpr std::array kSinceR10{
    SkipBytes(kTablePlace), // UCS
    SkipBytes(2),           // the code page
    Point3("$UCSORG"),
    Point3("$UCSXDIR"),
    Point3("$UCSYDIR"),
    SkipBytes(24 + 32), // target and lens of the view
    SkipBytes(2),
    Byte("$DIMTOFL"),
    Text("$DIMBLK1", 33),
    Text("$DIMBLK2", 33),
    Byte("$DIMSAH"),
    Byte("$DIMTIX"),
    Byte("$DIMSOXD"),
    Real("$DIMTVP"),
    SkipBytes(33),
    Short("$HANDLING"),
    OldRow{Value::Handle, 5, 0, "$HANDSEED"},
    Short("$SURFU"),
    Short("$SURFV"),
    Short("$SURFTYPE"),
    Short("$SURFTAB1"),
    Short("$SURFTAB2"),
    SkipBytes(kTablePlace), // VPORT
    Short("$FLATLAND"),
    Short("$SPLINETYPE"),
    SkipBytes(2 + 2), // the icon of the coordinate system and its name
};
constexpr std::array kSinceR11{
    SkipBytes(kTablePlace), // APPID
    Short("$WORLDVIEW"),
    SkipBytes(4),
    SkipBytes(kTablePlace), // DIMSTYLE
    SkipBytes(5),
    Short("$DIMCLRD"),
    Short("$DIMCLRE"),
    Short("$DIMCLRT"),
    Short("$SHADEDGE"),
    Short("$SHADEDIF"),
    SkipBytes(2),
    Short("$UNITMODE"),
    SkipBytes(4 * 8 + 4 * 32), // conversions of units
    Real("$DIMTFAC"),
    Point3("$PUCSORG"),
    Point3("$PUCSXDIR"),
    Point3("$PUCSYDIR"),
    SkipBytes(2),
    Short("$TILEMODE"),
    Short("$PLIMCHECK"),
    SkipBytes(2),
    Point3("$PEXTMIN"),
    Point3("$PEXTMAX"),
    Point2("$PLIMMIN"),
    Point2("$PLIMMAX"),
    Point3("$PINSBASE"),
    SkipBytes(kTablePlace), // viewports of the sheet
    Short("$MAXACTVP"),
    Real("$DIMGAP"),
    Real("$PELEVATION"),
    Short("$VISRETAIN"),
};

} // namespace

void PutHeader(const OldFile& file, TagSink& sink)
{
    constexpr std::uint64_t kFirstVariable = 0x5E, kEndOfR11 = 0x6BD;
    sink.Variable("$ACADVER");
    sink.Text(1, file.bytes.substr(0, 6));
    // A page of number 0 was never set: texts are in that of the machine they were written on.
    if (const std::string_view page = CodePageName(file.codePage); file.codePage != 0 && !page.empty()) {
        sink.Variable("$DWGCODEPAGE");
        sink.Text(3, page);
    }
    const std::uint64_t end = std::min({file.entities.begin, kEndOfR11, std::uint64_t{file.bytes.size()}});
    OldBytes bytes(SliceOf(file.bytes, kFirstVariable, end > kFirstVariable ? end - kFirstVariable : 0));
    const bool oldest = file.release == OldRelease::R9;
    PutRows(file, kFirst, bytes, sink);
    PutRows(file, oldest ? std::span<const OldRow>(kSecondOfR9) : kSecond, bytes, sink);
    PutRows(file, kLimits, bytes, sink);
    PutRows(file, oldest ? std::span<const OldRow>(kScalesOfR9) : kScales, bytes, sink);
    PutRows(file, kUnits, bytes, sink);
    if (!oldest)
        PutRows(file, kSinceR10, bytes, sink);
    if (file.release == OldRelease::R11)
        PutRows(file, kSinceR11, bytes, sink);
    sink.Close();
}

} // namespace sm::drawing::dwg
