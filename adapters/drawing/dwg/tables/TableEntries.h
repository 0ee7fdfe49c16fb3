// SPDX-License-Identifier: GPL-3.0-or-later
// The entries of the tables: each becomes an entry of TABLES. For this room only.
#pragma once

#include "dwg/objects/Object.h"

#include <vector>

namespace sm::drawing::dwg {

/// What the types of the entries are.
enum class Table : std::uint8_t { Block, Layer, Style, Linetype, View, Viewport, Application, DimensionStyle, Count };

/// The type numbers of a table's control object and of its entries.
struct TableTypes {
    std::uint32_t control, entry;
};
TableTypes TypesOf(Table table);

/// The entries that a control object lists, 0 for those that are gone; `object` is open on it, in front of its head.
std::vector<Handle> ReadControl(Object& object, Table table);

/// The name at the head of an entry; `object` is open on it.
std::string ReadEntryName(Object& object);

/// Reads the entry that `object` is open on and writes it. Blocks are no part of this (see BlockHeader.h).
void WriteTableEntry(Object& object, Table table);

/// The rest of an entry's head behind its name; true: the entry belongs to an external reference.
bool ReadEntryFlags(Object& object);

} // namespace sm::drawing::dwg
