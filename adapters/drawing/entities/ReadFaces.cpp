// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Solids.h"
#include "entities/EntityTags.h"

namespace sm::drawing {

void Read(const Drawing& drawing, const EntityRecord& record, MeshData& data)
{
    std::vector<Vec3> vertices = std::move(data.vertices);
    std::vector<std::int32_t> faces = std::move(data.faces);
    data = {};
    vertices.clear();
    faces.clear();
    data.vertices = std::move(vertices);
    data.faces = std::move(faces);
    enum class Part : std::uint8_t { Head, Vertices, Faces, Rest } part = Part::Head;
    EntityTags tags(drawing.Tags(), record);
    while (tags.Next()) {
        switch (tags.Code()) {
        case 92: // also the size of a preview, before the entity's own groups
            part = part == Part::Head ? Part::Vertices : part;
            break;
        case 93:
            part = part == Part::Vertices ? Part::Faces : part;
            break;
        case 94:
            part = part == Part::Faces ? Part::Rest : part;
            break;
        case 10:
            data.vertices.push_back({tags.Real(), 0, 0});
            break;
        case 20:
            if (!data.vertices.empty())
                data.vertices.back().y = tags.Real();
            break;
        case 30:
            if (!data.vertices.empty())
                data.vertices.back().z = tags.Real();
            break;
        case 90:
            if (part == Part::Faces)
                data.faces.push_back(tags.Integer());
            break;
        default:
            tags.TakeCommon(data);
        }
    }
}

void Read(const Drawing& drawing, const EntityRecord& record, QuadData& data)
{
    data = {};
    EntityTags tags(drawing.Tags(), record);
    bool hasZ = false, hasFourth = false;
    while (tags.Next()) {
        const int code = tags.Code();
        const int corner = code % 10;
        if (code >= 10 && code <= 39 && corner <= 3) {
            tags.Take(10 + corner, data.corners[static_cast<std::size_t>(corner)]);
            hasZ = hasZ || code >= 30;
            hasFourth = hasFourth || corner == 3;
        } else if (code == 70) {
            data.invisibleEdges = tags.Integer();
        } else {
            tags.TakeCommon(data);
        }
    }
    if (!hasFourth)
        data.corners[3] = data.corners[2];
    for (Vec3& corner : data.corners)
        if (!hasZ)
            corner.z = data.elevation;
}

} // namespace sm::drawing
