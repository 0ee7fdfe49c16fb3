#include "drawing/Solids.h"
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

} // namespace sm::drawing
