// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/Keywords.h"
#include "drawing/entities/DimStyles.h"
#include "entities/EntityTags.h"

#include <array>

namespace sm::drawing {

namespace {

/// A value's group in DIMSTYLE and in extended data, its header variable and its place.
template <class Value> struct StyleField {
    int code;
    const char* variable;
    Value DimStyle::*member;
};

constexpr std::array<StyleField<double>, 18> kReals{{{40, "$DIMSCALE", &DimStyle::scale},
                                                     {41, "$DIMASZ", &DimStyle::arrowSize},
                                                     {42, "$DIMEXO", &DimStyle::extensionGap},
                                                     {44, "$DIMEXE", &DimStyle::extensionPast},
                                                     {45, "$DIMRND", &DimStyle::rounding},
                                                     {46, "$DIMDLE", &DimStyle::dimensionPast},
                                                     {47, "$DIMTP", &DimStyle::plus},
                                                     {48, "$DIMTM", &DimStyle::minus},
                                                     {140, "$DIMTXT", &DimStyle::textHeight},
                                                     {141, "$DIMCEN", &DimStyle::centerMark},
                                                     {142, "$DIMTSZ", &DimStyle::tickSize},
                                                     {144, "$DIMLFAC", &DimStyle::lengthFactor},
                                                     {145, "$DIMTVP", &DimStyle::textShift},
                                                     {146, "$DIMTFAC", &DimStyle::toleranceFactor},
                                                     {147, "$DIMGAP", &DimStyle::textGap},
                                                     {143, "$DIMALTF", &DimStyle::alternateFactor},
                                                     {148, "$DIMALTRND", &DimStyle::alternateRounding},
                                                     {49, "$DIMFXL", &DimStyle::fixedExtension}}};

constexpr std::array<StyleField<std::int32_t>, 35> kIntegers{{{71, "$DIMTOL", &DimStyle::tolerances},
                                                              {72, "$DIMLIM", &DimStyle::limits},
                                                              {170, "$DIMALT", &DimStyle::alternates},
                                                              {171, "$DIMALTD", &DimStyle::alternateDecimals},
                                                              {273, "$DIMALTU", &DimStyle::alternateUnit},
                                                              {274, "$DIMALTTD", &DimStyle::alternateToleranceDecimals},
                                                              {284, "$DIMTZIN", &DimStyle::toleranceZeros},
                                                              {285, "$DIMALTZ", &DimStyle::alternateZeros},
                                                              {286, "$DIMALTTZ", &DimStyle::alternateToleranceZeros},
                                                              {73, "$DIMTIH", &DimStyle::textInsideLevel},
                                                              {74, "$DIMTOH", &DimStyle::textOutsideLevel},
                                                              {75, "$DIMSE1", &DimStyle::hideFirstExtension},
                                                              {76, "$DIMSE2", &DimStyle::hideSecondExtension},
                                                              {77, "$DIMTAD", &DimStyle::textAbove},
                                                              {78, "$DIMZIN", &DimStyle::zeros},
                                                              {79, "$DIMAZIN", &DimStyle::angleZeros},
                                                              {173, "$DIMSAH", &DimStyle::twoArrows},
                                                              {176, "$DIMCLRD", &DimStyle::dimensionColor},
                                                              {177, "$DIMCLRE", &DimStyle::extensionColor},
                                                              {178, "$DIMCLRT", &DimStyle::textColor},
                                                              {179, "$DIMADEC", &DimStyle::angleDecimals},
                                                              {271, "$DIMDEC", &DimStyle::decimals},
                                                              {272, "$DIMTDEC", &DimStyle::toleranceDecimals},
                                                              {275, "$DIMAUNIT", &DimStyle::angleUnit},
                                                              {276, "$DIMFRAC", &DimStyle::fraction},
                                                              {270, "$DIMUNIT", &DimStyle::lengthUnit},
                                                              {277, "$DIMLUNIT", &DimStyle::lengthUnit},
                                                              {278, "$DIMDSEP", &DimStyle::separator},
                                                              {280, "$DIMJUST", &DimStyle::textPlace},
                                                              {281, "$DIMSD1", &DimStyle::hideFirstHalf},
                                                              {282, "$DIMSD2", &DimStyle::hideSecondHalf},
                                                              {290, "$DIMFXLON", &DimStyle::extensionsFixed},
                                                              {371, "$DIMLWD", &DimStyle::dimensionWeight},
                                                              {372, "$DIMLWE", &DimStyle::extensionWeight},
                                                              {172, "$DIMTOFL", &DimStyle::lineBetween}}};

/// An arrow's block: by name in files up to R14, by handle later.
struct ArrowField {
    int nameCode, handleCode;
    const char* variable;
    ArrowHead DimStyle::*member;
};
constexpr std::array<ArrowField, 4> kArrows{{{5, 342, "$DIMBLK", &DimStyle::arrow},
                                             {6, 343, "$DIMBLK1", &DimStyle::first},
                                             {7, 344, "$DIMBLK2", &DimStyle::second},
                                             {-1, 341, "$DIMLDRBLK", &DimStyle::leaderArrow}}};

constexpr int kForm = 3, kAlternateForm = 4, kTextStyle = 340;

template <class List> auto* FieldOf(const List& list, int code)
{
    for (const auto& field : list)
        if (field.code == code)
            return &field;
    return static_cast<const typename List::value_type*>(nullptr);
}

bool TakeArrow(const Drawing& drawing, int code, const TagCursor& value, DimStyle& style)
{
    for (const ArrowField& field : kArrows) {
        if (code == field.handleCode) {
            style.*field.member = ArrowHeadOf(drawing, value.HandleValue());
            return true;
        }
        if (code == field.nameCode) {
            style.*field.member = ArrowHeadOf(drawing, drawing.Tags().text->Decode(value.Name()));
            return true;
        }
    }
    return false;
}

/// `value` stands on a tag that holds the value of group `code` of a DIMSTYLE.
void TakeValue(const Drawing& drawing, int code, const TagCursor& value, DimStyle& style)
{
    const Drawing::Source& source = drawing.Tags();
    if (const auto* real = FieldOf(kReals, code))
        style.*real->member = value.Real();
    else if (const auto* integer = FieldOf(kIntegers, code))
        style.*integer->member = value.Integer();
    else if (code == kForm)
        style.form = source.text->Decode(value.Text());
    else if (code == kAlternateForm)
        style.alternateForm = source.text->Decode(value.Text());
    else if (code == kTextStyle)
        style.textStyle = source.StyleOfHandle(value.HandleValue());
    else
        TakeArrow(drawing, code, value, style);
}

void ReadTable(const Drawing& drawing, const Slice& slice, DimStyle& style)
{
    const Drawing::Source& source = drawing.Tags();
    TagCursor tags = source.TagsOf(slice);
    bool inBraces = false;
    while (tags.Next() && tags.Code() < 1000) {
        if (tags.Code() == 102)
            inBraces = tags.Name().starts_with('{');
        else if (!inBraces)
            TakeValue(drawing, tags.Code(), tags, style);
    }
}

void ReadHeader(const Drawing& drawing, DimStyle& style)
{
    for (const auto& field : kReals)
        style.*field.member = drawing.HeaderReal(field.variable, style.*field.member);
    for (const auto& field : kIntegers)
        style.*field.member = drawing.HeaderInteger(field.variable, style.*field.member);
    for (const ArrowField& field : kArrows)
        style.*field.member = ArrowHeadOf(drawing, drawing.HeaderText(field.variable, ""));
    style.form = drawing.HeaderText("$DIMPOST", "");
    style.alternateForm = drawing.HeaderText("$DIMAPOST", "");
    style.textStyle = drawing.Tags().styles.FindUtf8(drawing.HeaderText("$DIMTXSTY", "")).value_or(0);
}

/// The entity's own changes: pairs of a group (1070) and its value in the list "DSTYLE" of application ACAD.
void ReadOwnChanges(const Drawing& drawing, TagCursor tags, DimStyle& style)
{
    bool mine = false, open = false;
    int code = 0;
    for (bool more = true; more; more = tags.Next() && tags.Code() != 0) {
        if (tags.Code() == 1001) {
            mine = tags.Name() == "ACAD";
            open = false;
        } else if (mine && tags.Code() == 1000 && tags.Name() == "DSTYLE") {
            open = true;
            code = 0;
        } else if (open && tags.Code() == 1002) {
            open = tags.Name() != "}";
        } else if (open && tags.Code() >= 1000 && code != 0) {
            TakeValue(drawing, code, tags, style);
            code = 0;
        } else if (open && tags.Code() == 1070) {
            code = tags.Integer();
        }
    }
}

void Bound(DimStyle& style)
{
    style.scale = style.scale > 0 ? style.scale : 1;
    style.lengthFactor = style.lengthFactor == 0 ? 1 : style.lengthFactor;
    style.angleDecimals = std::clamp(style.angleDecimals, -1, 8);
    for (std::int32_t DimStyle::*places : {&DimStyle::decimals, &DimStyle::toleranceDecimals,
                                           &DimStyle::alternateDecimals, &DimStyle::alternateToleranceDecimals})
        style.*places = std::clamp(style.*places, 0, 8);
}

} // namespace

ArrowHead ArrowHeadOf(const Drawing& drawing, const std::string& name)
{
    ArrowHead head;
    head.block = name.empty() ? kNoBlock : drawing.FindBlock(name);
    if (head.block == kNoBlock && !name.empty())
        head.block = drawing.FindBlock("_" + name);
    const std::string folded = base::UpperAscii(name);
    head.name = folded.starts_with('_') ? folded.substr(1) : folded;
    if (head.name == ".")
        head = {};
    return head;
}

ArrowHead ArrowHeadOf(const Drawing& drawing, Handle blockRecord)
{
    const std::uint32_t block = drawing.Tags().BlockOfHandle(blockRecord);
    return block < drawing.Blocks().size() ? ArrowHeadOf(drawing, drawing.Blocks()[block].name) : ArrowHead{};
}

void Read(const Drawing& drawing, const EntityRecord& record, DimStyle& style)
{
    style = {};
    const Drawing::Source& source = drawing.Tags();
    EntityTags tags(source, record);
    std::optional<std::uint32_t> entry;
    bool named = false;
    while (tags.Next()) {
        if (tags.Code() == kForm && !named) {
            entry = source.dimensionStyleNames.Find(tags.Name(), *source.text);
            named = true;
        }
    }
    if (!entry && !named)
        entry = source.dimensionStyleNames.FindUtf8("Standard");
    if (entry)
        ReadTable(drawing, source.dimensionStyles[*entry], style);
    else
        ReadHeader(drawing, style);
    ReadOwnChanges(drawing, tags.Cursor(), style);
    Bound(style);
}

} // namespace sm::drawing
