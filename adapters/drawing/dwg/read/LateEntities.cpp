// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/read/LateEntities.h"

#include <atomic>
#include <new>
#include <utility>

namespace sm::drawing::dwg {

namespace {

/// An entity of layer 0 that isn't shown.
TagBytes InvisibleTags()
{
    TagSink sink;
    sink.Object("");
    sink.Text(8, "0");
    sink.Integer(60, 1);
    return sink.Finish().bytes;
}

} // namespace

LateEntities::LateEntities(const FileBytes& file, const std::string& path, FindingList& findings)
    : m_file(file), m_container(Container::Open(m_file.View(), path, findings)),
      m_reading(m_container, m_file.View().size(), findings), m_most(MostTags(m_file.View().size()))
{
    m_reading.LetThemWait();
}

DecodedTags LateEntities::Read()
{
    return m_reading.Run();
}

FileBytes LateEntities::Join(std::string_view tags)
{
    const TagBytes kept = InvisibleTags();
    const std::string_view invisible = kept;
    m_places.resize(m_reading.Waiting().size());
    m_invisible = {tags.size(), invisible.size()};
    m_used = tags.size() + invisible.size();
    m_room = m_used + m_most;
    // The system gives memory where it is written to.
    m_tags = std::shared_ptr<char>(static_cast<char*>(std::malloc(m_room)), std::free);
    if (m_tags == nullptr)
        throw std::bad_alloc();
    tags.copy(m_tags.get(), tags.size());
    invisible.copy(m_tags.get() + tags.size(), invisible.size());
    return FileBytes::Share(m_tags, {m_tags.get(), static_cast<std::size_t>(m_room)});
}

Slice LateEntities::TagsOf(std::uint64_t begin)
{
    const std::uint64_t index = begin - kFirst;
    if (index >= m_places.size())
        return {};
    Place& place = m_places[index];
    const std::atomic_ref<std::uint64_t> made(place.begin);
    if (made.load(std::memory_order_acquire) == 0) {
        const std::lock_guard lock(m_making);
        if (made.load(std::memory_order_relaxed) == 0) {
            const Place at = Make(index);
            place.length = at.length;
            made.store(at.begin, std::memory_order_release);
        }
    }
    return {place.begin, place.length, 0};
}

LateEntities::Place LateEntities::Make(std::uint64_t index)
{
    IndexedObject& object = *m_reading.Waiting()[index];
    const bool isRecord = m_reading.IsRecord(object);
    const auto tags = m_reading.TagsOfWaiting(object, m_lost);
    if (!tags || tags->size() > m_room - m_used) {
        if (tags)
            ++(isRecord ? m_lost.objects : m_lost.entities);
        return isRecord ? Place{m_invisible.begin, 0} : m_invisible;
    }
    const Place place{m_used, tags->size()};
    tags->copy(m_tags.get() + m_used, tags->size());
    m_used += tags->size();
    return place;
}

Handle LateEntities::HandleOf(std::uint64_t begin) const
{
    const std::uint64_t index = begin - kFirst;
    return index < m_places.size() ? m_reading.Waiting()[index]->handle : 0;
}

LateTags::Lost LateEntities::TakeLost()
{
    const std::lock_guard lock(m_making);
    return std::exchange(m_lost, {});
}

} // namespace sm::drawing::dwg
