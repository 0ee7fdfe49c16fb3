// SPDX-License-Identifier: GPL-3.0-or-later
// Values in the order of the file with the group codes they become: what header variables and tables of R9 to R12
// share.
#pragma once

#include "dwg/TagSink.h"
#include "dwg/old/OldBytes.h"
#include "dwg/old/OldFile.h"

#include <span>

namespace sm::drawing::dwg {

enum class OldValue : std::uint8_t {
    Skip,     ///< `size` bytes
    Byte,     ///< one byte, unsigned
    Short,    ///< two bytes, signed
    Real,     ///< eight bytes
    Angle,    ///< the same, radians
    Point2,   ///< two reals
    Point3,   ///< three reals
    Text,     ///< `size` bytes, up to a NUL
    Date,     ///< days and milliseconds, four bytes each
    Handle,   ///< eight bytes, the highest first
    Layer,    ///< two bytes: an index into the table
    Style,    ///< the same
    Linetype, ///< the same, with values of its own for by layer and by block
};

struct OldRow {
    OldValue value = OldValue::Skip;
    std::int16_t code = 0;
    std::uint8_t size = 0;
    const char* name = nullptr; ///< of a header variable
};

constexpr OldRow SkipBytes(std::uint8_t count)
{
    return {OldValue::Skip, 0, count, nullptr};
}

/// Writes what a row stands for; a header variable's entry is opened before.
void PutRow(const OldFile& file, const OldRow& row, OldBytes& bytes, TagSink& sink);

/// All rows, up to the end of the bytes.
void PutRows(const OldFile& file, std::span<const OldRow> rows, OldBytes& bytes, TagSink& sink);

} // namespace sm::drawing::dwg
