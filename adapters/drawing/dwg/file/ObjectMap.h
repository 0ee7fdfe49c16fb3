// SPDX-License-Identifier: GPL-3.0-or-later
// The list of objects: handles with their places.
#pragma once

#include "dwg/file/Container.h"

namespace sm::drawing::dwg {

struct ObjectMap {
    std::vector<ObjectPlace> places; ///< ascending by handle, each once
    bool complete = false;           ///< every chunk is there, up to the empty one that ends the map
    bool checksumsHold = true;
};

/// Reads the chunks of `bytes`. Places outside [0, end) are left out, and the map isn't complete then.
ObjectMap ReadObjectMap(std::string_view bytes, std::uint64_t end);

/// Sorts by handle; of one handle the last stays.
void SortPlaces(std::vector<ObjectPlace>& places);

} // namespace sm::drawing::dwg
