// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/records/RecordDecoders.h"

#include <array>

namespace sm::drawing::dwg {

namespace {

constexpr std::array kRows{
    RecordRow{42, "DICTIONARY", DecodeDictionary},
    RecordRow{73, "MLINESTYLE", DecodeMLineStyle},
    RecordRow{79, "XRECORD", DecodeXRecord, true},
    RecordRow{80, "ACDBPLACEHOLDER", DecodePlaceholder},
    RecordRow{82, "LAYOUT", DecodeLayout},
    RecordRow{0, "ACDBDICTIONARYWDFLT", DecodeDictionaryWithDefault},
    RecordRow{0, "DICTIONARYVAR", DecodeDictionaryVariable, true},
    RecordRow{0, "PLOTSETTINGS", DecodePlotSettings},
    RecordRow{0, "SORTENTSTABLE", DecodeSortTable},
    RecordRow{0, "IMAGEDEF", DecodeImageDefinition},
    RecordRow{0, "RASTERVARIABLES", DecodeRasterVariables},
    RecordRow{0, "WIPEOUTVARIABLES", DecodeWipeoutVariables},
    RecordRow{0, "PDFDEFINITION", DecodeUnderlayDefinition},
    RecordRow{0, "DWFDEFINITION", DecodeUnderlayDefinition},
    RecordRow{0, "DGNDEFINITION", DecodeUnderlayDefinition},
    RecordRow{0, "MLEADERSTYLE", DecodeMLeaderStyle},
    RecordRow{0, "TABLESTYLE", DecodeTableStyle},
    RecordRow{0, "FIELD", DecodeField},
    RecordRow{0, "SPATIAL_FILTER", DecodeSpatialFilter, true},
    RecordRow{0, "SCALE", DecodeScale, true},
    RecordRow{0, "ACDB_TEXTOBJECTCONTEXTDATA_CLASS", DecodeTextContext, true},
    RecordRow{0, "ACDB_MTEXTOBJECTCONTEXTDATA_CLASS", DecodeMTextContext, true},
    RecordRow{0, "ACDB_BLKREFOBJECTCONTEXTDATA_CLASS", DecodeInsertContext, true},
    RecordRow{0, "ACDB_ALDIMOBJECTCONTEXTDATA_CLASS", DecodeAnyContext, true},
    RecordRow{0, "ACDB_ANGDIMOBJECTCONTEXTDATA_CLASS", DecodeAnyContext, true},
    RecordRow{0, "ACDB_DMDIMOBJECTCONTEXTDATA_CLASS", DecodeAnyContext, true},
    RecordRow{0, "ACDB_ORDDIMOBJECTCONTEXTDATA_CLASS", DecodeAnyContext, true},
    RecordRow{0, "ACDB_RADIMOBJECTCONTEXTDATA_CLASS", DecodeAnyContext, true},
    RecordRow{0, "ACDB_RADIMLGOBJECTCONTEXTDATA_CLASS", DecodeAnyContext, true},
    RecordRow{0, "ACDB_LEADEROBJECTCONTEXTDATA_CLASS", DecodeAnyContext, true},
    RecordRow{0, "ACDB_MLEADEROBJECTCONTEXTDATA_CLASS", DecodeAnyContext, true},
    RecordRow{0, "ACDB_FCFOBJECTCONTEXTDATA_CLASS", DecodeAnyContext, true},
    RecordRow{0, "ACDB_MTEXTATTRIBUTEOBJECTCONTEXTDATA_CLASS", DecodeAnyContext, true},
    RecordRow{0, "ACDB_HATCHSCALECONTEXTDATA_CLASS", DecodeAnyContext, true},
};

/// The rows of the fixed types by their number.
constexpr std::size_t kFixed = 83;
constexpr std::array<const RecordRow*, kFixed> kByType = [] {
    std::array<const RecordRow*, kFixed> rows{};
    for (const RecordRow& row : kRows)
        if (row.type != 0)
            rows[row.type] = &row;
    return rows;
}();

} // namespace

const RecordRow* FindRecordRow(std::uint32_t type)
{
    return type < kFixed ? kByType[type] : nullptr;
}

const RecordRow* FindRecordRow(std::string_view className)
{
    for (const RecordRow& row : kRows)
        if (className == row.name)
            return &row;
    return nullptr;
}

} // namespace sm::drawing::dwg
