// SPDX-License-Identifier: GPL-3.0-or-later
// Where everything stands in a drawing file: what one pass over it finds.
#pragma once

#include "drawing/EntityRecord.h"
#include "tags/FindingList.h"
#include "tags/TagCursor.h"

#include <string_view>
#include <vector>

namespace sm::drawing {

/// The tags of one entry, without the tag that names it.
struct Slice {
    std::uint64_t begin = 0;
    std::uint64_t length = 0;
    std::uint32_t line = 0; ///< of the name
};

/// An entry of OBJECTS, of a table or a header variable with its name.
struct NamedSlice {
    std::string_view name; ///< bytes of the file
    Slice slice;
};

struct ScannedBlock {
    Slice header;          ///< of BLOCK
    std::size_t first = 0; ///< into Structure::blockEntities
    std::size_t count = 0;
};

struct Structure {
    std::vector<NamedSlice> variables;
    std::vector<NamedSlice> tableEntries; ///< LAYER, LTYPE, STYLE, VIEW, VPORT, APPID, BLOCK_RECORD, ...
    std::vector<NamedSlice> objects;      ///< of the kinds that are read
    std::vector<ScannedBlock> blocks;
    std::vector<EntityRecord> blockEntities;
    std::vector<EntityRecord> modelEntities;    ///< of ENTITIES, without group 67
    std::vector<EntityRecord> paperEntities;    ///< of ENTITIES, with group 67
    std::vector<std::string_view> unknownNames; ///< of entities; EntityRecord::nameIndex
    std::string_view comment;                   ///< the first 999 group
    std::uint64_t begin = 0;                    ///< of the first tag
    bool hasObjects = false;
    std::uint32_t tags = 0; ///< groups read
};

/// Finds the entries of `file`, from byte `begin` on. Never fails: what can't be used goes into `findings`.
Structure ScanStructure(std::string_view file, TagFormat format, std::uint64_t begin, FindingList& findings);

/// The cursor over an entry's tags.
TagCursor TagsOf(std::string_view file, TagFormat format, const Slice& slice);

} // namespace sm::drawing
