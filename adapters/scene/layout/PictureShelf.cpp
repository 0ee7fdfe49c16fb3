// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/PictureShelf.h"

#include "drawing/Drawing.h"

#include <algorithm>
#include <utility>

namespace sm::scene {

void PictureShelf::DrawingIs(const drawing::Drawing& drawing)
{
    if (m_drawing == &drawing && m_path == drawing.Path() && m_entities == drawing.EntityCount())
        return;
    Clear();
    m_drawing = &drawing;
    m_path = drawing.Path();
    m_entities = drawing.EntityCount();
}

void PictureShelf::Clear()
{
    m_drawing = nullptr;
    m_entries.clear();
}

PictureShelf::Entry* PictureShelf::Find(std::size_t layout)
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& entry) { return entry.layout == layout; });
    if (found == m_entries.end())
        return nullptr;
    m_entries.splice(m_entries.begin(), m_entries, found);
    return &m_entries.front();
}

PictureShelf::Entry& PictureShelf::Keep(std::size_t layout, std::shared_ptr<const LayoutPicture> picture)
{
    std::erase_if(m_entries, [&](const Entry& entry) { return entry.layout == layout; });
    m_entries.push_front({layout, std::move(picture), {}});
    constexpr std::size_t kAlways = 2;
    std::size_t count = 0, bytes = 0;
    std::erase_if(m_entries, [&](const Entry& entry) {
        bytes += entry.picture->list.Bytes();
        return ++count > kAlways && bytes > kMostBytes;
    });
    return m_entries.front();
}

} // namespace sm::scene
