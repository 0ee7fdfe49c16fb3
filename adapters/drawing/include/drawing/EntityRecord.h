// SPDX-License-Identifier: GPL-3.0-or-later
// Where an entity stands in its file.
#pragma once

#include <cstdint>

namespace sm::drawing {

class Drawing;

enum class EntityKind : std::uint8_t; ///< EntityKinds.h names them

/// One entity: a slice of the file. For POLYLINE and INSERT the slice covers their VERTEX, ATTRIB and SEQEND.
struct EntityRecord {
    std::uint64_t begin = 0;     ///< byte offset of the first tag after the entity's name
    std::uint32_t length = 0;    ///< bytes
    std::uint32_t line = 0;      ///< line number (ASCII) or tag number (binary) of its name
    EntityKind kind{};           ///< Unknown at first
    bool paperSpace = false;     ///< group 67
    std::uint16_t nameIndex = 0; ///< into the names of unknown kinds
};

} // namespace sm::drawing
