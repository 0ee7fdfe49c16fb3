// SPDX-License-Identifier: GPL-3.0-or-later
// What stands for a handle in tags: the names of table entries, the colours of books. For this room only.
#pragma once

#include "drawing/Properties.h"
#include "dwg/objects/Fields.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace sm::drawing::dwg {

/// A class of the file: what objects of the numbers from 500 on are.
struct ObjectClass {
    std::uint32_t number = 0;
    std::string name; ///< as in DXF
    bool isEntity = false;
};

struct Names {
    /// Layers, line types, styles, views, blocks, ... by handle: the name as tags hold it.
    std::unordered_map<Handle, std::string> entries;
    std::unordered_map<Handle, Color> colors;
    std::vector<ObjectClass> classes; ///< ascending by number
    std::vector<Handle> linetypes;    ///< in the order of their table
    Handle modelSpace = 0, paperSpace = 0;

    /// Empty when there is none.
    [[nodiscard]] std::string_view Of(Handle handle) const
    {
        const auto found = entries.find(handle);
        return found == entries.end() ? std::string_view() : std::string_view(found->second);
    }
    /// Null when there is none.
    [[nodiscard]] const ObjectClass* ClassOf(std::uint32_t type) const;
};

} // namespace sm::drawing::dwg
