// SPDX-License-Identifier: GPL-3.0-or-later
// Reads drawings to their complete models, every entity's own data included, and says how long that took.
//
//     build/release/bench/reading DRAWING...       one line each: entities, values, seconds
#include "drawing/Drawing.h"
#include "drawing/EntityKinds.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/Hatches.h"
#include "drawing/entities/Images.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/Points.h"
#include "drawing/entities/Polylines.h"
#include "drawing/entities/Solids.h"
#include "drawing/entities/Texts.h"
#include "drawing/entities/Viewports.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <memory>

namespace {

using namespace sm::drawing;

/// The structs that are filled again and again.
struct Room {
    Entity entity;
    LineData line;
    CircleData circle;
    ArcData arc;
    EllipseData ellipse;
    PolylineData polyline;
    SplineData spline;
    PointData point;
    QuadData quad;
    TextData text;
    MTextData mtext;
    InsertData insert;
    HatchData hatch;
    ViewportData viewport;
    ImageData image;
};

void ReadOne(const Drawing& drawing, const EntityRecord& record, Room& room)
{
    switch (record.kind) {
    case EntityKind::Line:
    case EntityKind::XLine:
    case EntityKind::Ray:
        return Read(drawing, record, room.line);
    case EntityKind::Circle:
        return Read(drawing, record, room.circle);
    case EntityKind::Arc:
        return Read(drawing, record, room.arc);
    case EntityKind::Ellipse:
        return Read(drawing, record, room.ellipse);
    case EntityKind::LwPolyline:
    case EntityKind::Polyline:
        return Read(drawing, record, room.polyline);
    case EntityKind::Spline:
    case EntityKind::Helix:
        return Read(drawing, record, room.spline);
    case EntityKind::Point:
        return Read(drawing, record, room.point);
    case EntityKind::Solid:
    case EntityKind::Trace:
    case EntityKind::Face3d:
        return Read(drawing, record, room.quad);
    case EntityKind::Text:
    case EntityKind::Attrib:
    case EntityKind::Attdef:
        return Read(drawing, record, room.text);
    case EntityKind::MText:
        return Read(drawing, record, room.mtext);
    case EntityKind::Insert:
        return Read(drawing, record, room.insert);
    case EntityKind::Hatch:
    case EntityKind::MPolygon:
        return Read(drawing, record, room.hatch);
    case EntityKind::Viewport:
        return Read(drawing, record, room.viewport);
    case EntityKind::Image:
    case EntityKind::Wipeout:
        return Read(drawing, record, room.image);
    default:
        return Read(drawing, record, room.entity);
    }
}

void Measure(const char* path)
{
    const auto start = std::chrono::steady_clock::now();
    const auto drawing = Drawing::Open(path);
    Room room;
    unsigned long entities = 0, attributes = 0;
    for (std::uint32_t block = 0; block < drawing->Blocks().size(); ++block) {
        for (const EntityRecord& record : drawing->EntitiesOf(block)) {
            ReadOne(*drawing, record, room);
            attributes += record.kind == EntityKind::Insert ? room.insert.attributes.size() : 0;
            ++entities;
        }
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    std::printf("%s: %lu entities, %lu attributes, %zu layers, %zu blocks, %.3f s\n", path, entities, attributes,
                drawing->Layers().size(), drawing->Blocks().size(), took.count());
}

} // namespace

int main(int count, char** words)
{
    for (int i = 1; i < count; ++i) {
        try {
            Measure(words[i]);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            return 1;
        }
    }
    return 0;
}
