// SPDX-License-Identifier: GPL-3.0-or-later
// Where the shapes of a drawing come from: shape files beside it or in the font folders, else our own strokes for the
// symbols that line types commonly use.
#pragma once

#include "fonts/FontFolders.h"
#include "render/Canvas.h"
#include "shapes/ShapeFile.h"

#include <map>
#include <memory>

namespace sm::drawing {
class Drawing;
} // namespace sm::drawing

namespace sm::render {

class ShapeLibrary {
public:
    /// `drawing` outlives it.
    explicit ShapeLibrary(const drawing::Drawing& drawing);
    /// The strokes of a shape in shape units, of the file that text style `style` names; null when unknown. The result
    /// lives as long as the library.
    const Path* Find(std::uint32_t style, std::uint16_t number);
    /// The same by name, in all shape files that the drawing loads (SHAPE entities don't say which).
    const Path* Find(std::string_view name);

private:
    struct Key {
        std::string file;
        std::uint16_t number = 0;
        friend auto operator<=>(const Key&, const Key&) = default;
    };
    const ShapeFile* FileOf(const std::string& name);
    const Path* Keep(const Key& key, const ShapeFile* file);

    const drawing::Drawing& m_drawing;
    FontFolders m_folders;
    std::map<std::string, std::unique_ptr<ShapeFile>> m_files;
    std::map<Key, Path> m_paths; ///< empty: unknown
};

} // namespace sm::render
