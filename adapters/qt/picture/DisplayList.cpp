#include "picture/DisplayList.h"

#include "render/ClipBox.h"

namespace sm::qt {

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

void AppendShape(const DisplayList& list, const Item& item, Vec2 from, Path& out)
{
    const Vec2 shift = item.origin - from;
    const auto points = list.PointsOf(item);
    std::size_t next = 0;
    const auto take = [&] {
        const Spot spot = points[next++];
        return Vec2{shift.x + static_cast<double>(spot.x), shift.y + static_cast<double>(spot.y)};
    };
    for (const render::Verb verb : list.VerbsOf(item)) {
        out.verbs.push_back(verb);
        if (verb == render::Verb::Close)
            continue;
        for (int i = verb == render::Verb::Cubic ? 3 : 1; i > 0; --i)
            out.points.push_back(take());
    }
}

} // namespace sm::qt
