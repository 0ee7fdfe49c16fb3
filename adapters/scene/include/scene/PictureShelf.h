// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of one drawing's layouts that were shown lately, each with the view that the user left.
#pragma once

#include "scene/LayoutPicture.h"
#include "scene/ViewMap.h"

#include <list>
#include <memory>
#include <optional>
#include <string>

namespace sm::scene {

class PictureShelf {
public:
    struct Entry {
        std::size_t layout = 0;
        std::shared_ptr<const LayoutPicture> picture;
        std::optional<ViewMap> view; ///< nothing: the one that shows everything
    };

    /// Forgets all when it is another drawing, or one that has changed since.
    void DrawingIs(const drawing::Drawing& drawing);
    [[nodiscard]] bool Holds(const drawing::Drawing& drawing) const { return m_drawing == &drawing; }
    void Clear();
    /// Null when that layout isn't kept. Asking makes it the one shown last.
    Entry* Find(std::size_t layout);
    /// Keeps the picture and the one shown before it; of the others as many as fit into `kMostBytes` together.
    Entry& Keep(std::size_t layout, std::shared_ptr<const LayoutPicture> picture);

    static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

private:
    const drawing::Drawing* m_drawing = nullptr;
    std::string m_path;
    std::uint64_t m_entities = 0;
    std::list<Entry> m_entries; ///< the one shown last in front
};

} // namespace sm::scene
