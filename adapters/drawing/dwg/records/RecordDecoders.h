// SPDX-License-Identifier: GPL-3.0-or-later
// What each kind of object becomes in OBJECTS: one table from type number and class name to decoder. For this room
// only.
#pragma once

#include "dwg/objects/Object.h"

namespace sm::drawing::dwg {

/// Reads what follows the common head of an object and writes its tags.
using DecodeRecord = void (*)(Object&);

struct RecordRow {
    std::uint32_t type;    ///< 0: known by its class alone
    std::string_view name; ///< of its class, and in DXF
    DecodeRecord decode;
    bool waits = false; ///< nothing asks for it while a drawing is opened
};

/// Null for what nobody reads.
const RecordRow* FindRecordRow(std::uint32_t type);
const RecordRow* FindRecordRow(std::string_view className);

// Dictionaries.cpp
void DecodeDictionary(Object& object);
void DecodeDictionaryWithDefault(Object& object);
void DecodeDictionaryVariable(Object& object);
void DecodeXRecord(Object& object);
// Layouts.cpp
void DecodeLayout(Object& object);
void DecodePlotSettings(Object& object);
// Definitions.cpp
void DecodeImageDefinition(Object& object);
void DecodeUnderlayDefinition(Object& object);
void DecodeRasterVariables(Object& object);
void DecodeWipeoutVariables(Object& object);
void DecodeScale(Object& object);
void DecodeSortTable(Object& object);
void DecodeSpatialFilter(Object& object);
void DecodeField(Object& object);
void DecodePlaceholder(Object& object);
// Styles.cpp
void DecodeMLineStyle(Object& object);
void DecodeMLeaderStyle(Object& object);
void DecodeTableStyle(Object& object);
// Contexts.cpp
void DecodeAnyContext(Object& object);
void DecodeTextContext(Object& object);
void DecodeMTextContext(Object& object);
void DecodeInsertContext(Object& object);

} // namespace sm::drawing::dwg
