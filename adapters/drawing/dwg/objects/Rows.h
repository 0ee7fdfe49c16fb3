// SPDX-License-Identifier: GPL-3.0-or-later
// Long lists of plain fields as tables: the header variables and the dimension styles. For this room only.
#pragma once

#include "dwg/objects/Object.h"

#include <span>
#include <vector>

namespace sm::drawing::dwg {

/// What a field is in the file.
enum class Field : std::uint8_t {
    Bit,
    Char,
    Short,
    Long,
    LongLong,
    Double,
    Text,
    Color,
    Handle,     ///< of the handle stream where there is one
    DataHandle, ///< in the data in every release
    Point2,     ///< two raw doubles
    Point3,
    Date,  ///< days and milliseconds
    Flags, ///< $CELWEIGHT and others in one number
    Style, ///< $CEPSNTYPE, and a handle for one of its values
};

/// A field of the releases from `first` to `last`. Without a name it is read and left out.
struct Row {
    Field field;
    const char* name = nullptr;
    int code = 0; ///< of a header variable when the usual one of its kind isn't right; of a style: the group
    Release first = Release::R13, last = Release::R2018;
};

/// The dimension variables in the order of the header, which is that of dimension styles.
std::span<const Row> DimensionRows();

/// A link of the header, whatever it is for.
struct LinkedRow {
    const Row* row = nullptr;
    drawing::Handle handle = 0;
};
using LinkedRows = std::vector<LinkedRow>;

/// Reads the fields of the object's release as header variables. Links go into `links`: the names that their variables
/// need are known later.
void WriteVariables(Object& object, std::span<const Row> rows, LinkedRows& links);
/// The variables among them.
void WriteLinked(const Object& object, const LinkedRows& links);
/// Reads the fields of the object's release as groups of the open entry.
void WriteGroups(Object& object, std::span<const Row> rows);

/// The handles of control objects and dictionaries that the header names.
struct HeaderLinks {
    Handle blocks = 0, layers = 0, styles = 0, linetypes = 0, views = 0, systems = 0, viewports = 0, applications = 0,
           dimensionStyles = 0, dictionary = 0, modelSpace = 0, paperSpace = 0;
};

/// Where the header's fields begin; sets the object's streams. False: the header is unreadable.
bool OpenHeader(Object& object, const Container& container);
/// The variables but for those in the result, and those that stand elsewhere in the file.
LinkedRows WriteHeader(Object& object, const Container& container);
HeaderLinks LinksAmong(const LinkedRows& links);

} // namespace sm::drawing::dwg
