// SPDX-License-Identifier: GPL-3.0-or-later
// Objects are proven to stand where the list of objects says, and searched for where it is wrong.
#pragma once

#include "dwg/file/Container.h"

namespace sm::drawing::dwg {

/// Types from here on are the classes of the file.
inline constexpr std::uint32_t kFirstClass = 500;

/// The frame in front of an object: enough to tell an object from other bytes.
struct ObjectFrame {
    std::uint64_t handle = 0;
    std::uint64_t end = 0; ///< offset of the checksum behind the object
    std::uint32_t type = 0;
};

/// An object that stands where it is said to.
struct FoundObject : ObjectPlace {
    std::uint32_t type = 0;
};

/// The frame at `offset` of the container's objects; nothing when no object can start there. Classes are
/// numbered below `typeEnd`.
std::optional<ObjectFrame> FrameAt(const Container& container, std::uint64_t offset, std::uint32_t typeEnd);

/// The places of all objects, ascending by handle: those of the container's map at which an object of that handle
/// stands, and, when one of them is wrong or the map is damaged, those that a search by frames and checksums finds.
/// `typeEnd` is one above the highest class number; 0 when the classes can't be read.
std::vector<FoundObject> ProvenPlaces(const Container& container, std::uint32_t typeEnd, FindingList& findings);

/// Every object of the stream whose checksum is right, in the order of the stream.
std::vector<ObjectPlace> SearchObjects(const Container& container, std::uint32_t typeEnd);

} // namespace sm::drawing::dwg
