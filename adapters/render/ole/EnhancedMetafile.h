// SPDX-License-Identifier: GPL-3.0-or-later
// Enhanced metafiles: records of 32-bit numbers, a type, a size and the rest, with a world of their own.
#pragma once

#include "ole/LittleEndian.h"
#include "ole/MetafilePen.h"

#include <map>

namespace sm::render {

class EnhancedMetafile {
public:
    EnhancedMetafile(std::string_view bytes, OlePicture& picture) : m_bytes(bytes), m_pen(picture) {}
    void Read();

private:
    /// From the logical plane to the device.
    struct World {
        Vec2 windowOrigin, windowExtent{1, 1}, viewOrigin, viewExtent{1, 1};
        Matrix2 transform;
        bool scaled = false; ///< the window and the view count
    };

    void Play(unsigned type, std::string_view record);
    bool PlayWorld(unsigned type, std::string_view record);
    bool PlayState(unsigned type, std::string_view record);
    bool PlayObject(unsigned type, std::string_view record);
    bool PlayPath(unsigned type);
    bool PlayLines(unsigned type, std::string_view record);
    bool PlayShape(unsigned type, std::string_view record);
    bool PlayImage(unsigned type, std::string_view record);
    void PlayText(std::string_view record, bool wide);
    void SetTransform(const Matrix2& matrix, unsigned mode);
    void SetClip(std::string_view record);
    void SelectStock(unsigned number);
    void UpdateMap();
    /// Draws a shape, or adds it to the open path.
    void Put(const Path& path, bool filled);
    void AppendPoints(Path& path, std::string_view record, std::uint64_t at, unsigned count, bool small, bool curve);
    void ContinueLine(Path path);

    [[nodiscard]] static Vec2 PointAt(std::string_view record, std::uint64_t at, bool small)
    {
        return small ? Vec2{static_cast<double>(S16(record, at)), static_cast<double>(S16(record, at + 2))}
                     : Vec2{static_cast<double>(S32(record, at)), static_cast<double>(S32(record, at + 4))};
    }

    std::string_view m_bytes;
    MetafilePen m_pen;
    Matrix2 m_toPlane; ///< from the device
    World m_world;
    std::vector<World> m_saved;
    std::map<unsigned, MetaObject> m_objects;
    Path m_path;
    bool m_pathOpen = false;
};

} // namespace sm::render
