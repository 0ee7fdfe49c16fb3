// SPDX-License-Identifier: GPL-3.0-or-later
// The data section of R2013 and later: the bodies of solids and regions, and previews.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace sm::drawing::dwg {

struct BodyStore {
    /// The body of an entity by its handle, in the binary form of solids. Views of the section or of `joined`.
    std::unordered_map<std::uint64_t, std::string_view> bodies;
    std::deque<std::string> joined; ///< bodies that lie in several pieces
};

/// What `section` (Container::DataStore) holds of bodies. Damaged records are left out; all bodies together are never
/// longer than the section.
BodyStore ReadBodies(std::string_view section);

} // namespace sm::drawing::dwg
