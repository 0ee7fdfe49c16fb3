// SPDX-License-Identifier: GPL-3.0-or-later
// The objects of a DWG by handle, with their types, and the classes that say what the types from 500 on are.
#pragma once

#include "dwg/entities/EntityDecoders.h"
#include "dwg/records/RecordDecoders.h"

#include <vector>

namespace sm::drawing::dwg {

/// Reads the class section; fewer classes when it is damaged.
std::vector<ObjectClass> ReadClasses(const Container& container);

struct IndexedObject {
    Handle handle = 0;
    std::uint64_t offset = 0;
    std::uint32_t type = 0;
    bool taken = false;  ///< written already
    bool listed = false; ///< in a table: each entry counts once
};

class ObjectIndex {
public:
    ObjectIndex(const Container& container, const std::vector<ObjectClass>& classes, FindingList& findings);

    /// Null when there is none. Neighbours of the object found last are found at once.
    [[nodiscard]] IndexedObject* Find(Handle handle);
    [[nodiscard]] std::vector<IndexedObject>& All() { return m_objects; }

    /// How a type is decoded; null for what is no entity that is known, no object that is read.
    [[nodiscard]] const EntityRow* EntityOf(std::uint32_t type) const;
    [[nodiscard]] const RecordRow* RecordOf(std::uint32_t type) const;
    /// Null for a type that has no class.
    [[nodiscard]] const ObjectClass* ClassOf(std::uint32_t type) const;

private:
    struct ClassRows {
        const ObjectClass* own = nullptr;
        const EntityRow* entity = nullptr;
        const RecordRow* record = nullptr;
    };
    [[nodiscard]] const ClassRows* RowsOf(std::uint32_t type) const;

    std::vector<IndexedObject> m_objects;
    std::vector<ClassRows> m_classes; ///< from 500 on
    std::size_t m_last = 0;
};

} // namespace sm::drawing::dwg
