// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/DisplayList.h"

#include "render/ClipBox.h"

namespace sm::scene {

Box2 DisplayList::Extents() const
{
    Box2 box;
    for (const Item& item : items) {
        if (item.endless)
            continue;
        box.Add(item.clip == 0 ? item.Box() : render::Intersection(item.Box(), clips[item.clip].box));
    }
    return box;
}

std::size_t DisplayList::Bytes() const
{
    const auto bytes = [](const auto& list) { return list.capacity() * sizeof(list[0]); };
    return bytes(items) + bytes(chunks) + bytes(points) + bytes(verbs) + bytes(runs) + bytes(placed);
}

} // namespace sm::scene
