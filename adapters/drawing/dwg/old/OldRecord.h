// SPDX-License-Identifier: GPL-3.0-or-later
// One entity of R9 to R12 as it stands in the file.
#pragma once

#include "dwg/TagSink.h"
#include "dwg/old/OldBytes.h"
#include "dwg/old/OldFile.h"

#include <numbers>
#include <optional>

namespace sm::drawing::dwg {

inline constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;

/// A point of a flat entity, at the elevation that the record gives once.
inline Vec3 Raised(const Vec2& flat, double elevation)
{
    return {flat.x, flat.y, elevation};
}

/// Types of records; an erased one has the highest bit set.
enum class OldType : std::uint8_t {
    Line = 1,
    Point = 2,
    Circle = 3,
    Shape = 4,
    Text = 7,
    Arc = 8,
    Trace = 9,
    Solid = 11,
    Block = 12,
    EndBlock = 13,
    Insert = 14,
    AttributeDefinition = 15,
    Attribute = 16,
    SequenceEnd = 17,
    Jump = 18,
    Polyline = 19,
    Vertex = 20,
    Line3d = 21,
    Face3d = 22,
    Dimension = 23,
    Viewport = 24
};

struct OldRecord {
    OldType type = OldType::Line;
    OldRelease release = OldRelease::R11;
    bool erased = false;
    bool hasMembers = false; ///< attributes or vertices follow
    bool isFlat = false;     ///< points of types that know a z have none
    bool paperSpace = false;
    std::uint16_t layer = 0;
    unsigned options = 0;     ///< which of the own fields are there
    std::uint64_t handle = 0; ///< 0: none
    std::optional<std::uint8_t> color;
    std::optional<std::uint16_t> linetype;
    double elevation = 0, thickness = 0;
    std::string_view extended; ///< extended data
    OldBytes fields;           ///< the own ones

    [[nodiscard]] bool Has(unsigned option) const { return (options & option) != 0; }
};

/// The smallest record: type, flags and size.
inline constexpr std::uint64_t kOldRecordHead = 4;

/// The record whose bytes (without checksum) are `bytes`.
OldRecord ReadOldRecord(const OldFile& file, std::string_view bytes);

/// Handle, layer, linetype, colour, thickness and the like.
void PutCommon(const OldFile& file, const OldRecord& record, TagSink& sink);
/// What is special to its type; moves record.fields to the end of them.
void PutOwnFields(const OldFile& file, OldRecord& record, TagSink& sink);
/// The same for TEXT, ATTDEF, ATTRIB, DIMENSION, INSERT and VIEWPORT.
void PutNoteFields(const OldFile& file, OldRecord& record, TagSink& sink);
void PutExtended(const OldFile& file, const OldRecord& record, TagSink& sink);

} // namespace sm::drawing::dwg
