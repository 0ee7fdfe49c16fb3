// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/WalkDrawing.h"

#include "drawing/Annotation.h"
#include "drawing/EntityKinds.h"
#include "drawing/Finding.h"
#include "drawing/entities/AnnotationContexts.h"
#include "drawing/entities/Curves.h"
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/Graphics.h"
#include "drawing/entities/Hatches.h"
#include "drawing/entities/Hyperlinks.h"
#include "drawing/entities/Images.h"
#include "drawing/entities/Inserts.h"
#include "drawing/entities/MLines.h"
#include "drawing/entities/MultiLeaders.h"
#include "drawing/entities/Points.h"
#include "drawing/entities/Polylines.h"
#include "drawing/entities/Solids.h"
#include "drawing/entities/TableEntities.h"
#include "drawing/entities/TaggedPoints.h"
#include "drawing/entities/Texts.h"
#include "drawing/entities/Viewports.h"

namespace sm::drawing::testing {

namespace {

/// Any scale: annotative forms are looked up by it.
constexpr Handle kScale = 0x40;

template <class Data> std::uint64_t As(const Drawing& drawing, const EntityRecord& record)
{
    Data data;
    Read(drawing, record, data);
    return 1;
}

template <class Data> std::uint64_t Annotative(const Drawing& drawing, const EntityRecord& record)
{
    Data data;
    Read(drawing, record, data);
    AdaptTo(drawing, record, kScale, data);
    return 1;
}

std::uint64_t AsInsert(const Drawing& drawing, const EntityRecord& record)
{
    InsertData insert;
    Read(drawing, record, insert);
    std::uint64_t read = 1;
    for (const EntityRecord& attribute : insert.attributes)
        read += As<TextData>(drawing, attribute);
    std::vector<Vec3> clip;
    (void)ReadInsertClip(drawing, record, clip);
    AdaptTo(drawing, record, kScale, insert);
    return read + clip.size();
}

std::uint64_t AsDimension(const Drawing& drawing, const EntityRecord& record)
{
    DimStyle style;
    Read(drawing, record, style);
    return As<DimensionData>(drawing, record);
}

std::uint64_t AsLeader(const Drawing& drawing, const EntityRecord& record)
{
    DimStyle style;
    Read(drawing, record, style);
    return As<LeaderData>(drawing, record);
}

std::uint64_t AsTable(const Drawing& drawing, const EntityRecord& record)
{
    return As<TableData>(drawing, record) + As<InsertData>(drawing, record) +
           static_cast<std::uint64_t>(ReadTableSize(drawing, record).x > 0);
}

std::uint64_t AsViewport(const Drawing& drawing, const EntityRecord& record)
{
    return As<ViewportData>(drawing, record) + AnnotationScaleOf(drawing, record);
}

using Reader = std::uint64_t (*)(const Drawing&, const EntityRecord&);

Reader ReaderOf(EntityKind kind)
{
    switch (kind) {
    case EntityKind::Line:
    case EntityKind::XLine:
    case EntityKind::Ray:
        return As<LineData>;
    case EntityKind::Circle:
        return As<CircleData>;
    case EntityKind::Arc:
        return As<ArcData>;
    case EntityKind::Ellipse:
        return As<EllipseData>;
    case EntityKind::LwPolyline:
    case EntityKind::Polyline:
        return As<PolylineData>;
    case EntityKind::Spline:
    case EntityKind::Helix:
        return As<SplineData>;
    case EntityKind::Point:
        return As<PointData>;
    case EntityKind::Shape:
        return As<ShapeData>;
    case EntityKind::Solid:
    case EntityKind::Trace:
    case EntityKind::Face3d:
        return As<QuadData>;
    case EntityKind::Text:
    case EntityKind::Attrib:
    case EntityKind::Attdef:
        return Annotative<TextData>;
    case EntityKind::MText:
        return Annotative<MTextData>;
    case EntityKind::Insert:
        return AsInsert;
    case EntityKind::Dimension:
        return AsDimension;
    case EntityKind::Leader:
        return AsLeader;
    case EntityKind::Tolerance:
        return As<ToleranceData>;
    case EntityKind::MultiLeader:
        return As<MultiLeaderData>;
    case EntityKind::MLine:
        return As<MLineData>;
    case EntityKind::Table:
        return AsTable;
    case EntityKind::Hatch:
    case EntityKind::MPolygon:
        return As<HatchData>;
    case EntityKind::Viewport:
        return AsViewport;
    case EntityKind::Image:
    case EntityKind::Wipeout:
    case EntityKind::Underlay:
        return As<ImageData>;
    case EntityKind::Mesh:
        return As<MeshData>;
    case EntityKind::Region:
    case EntityKind::Solid3d:
    case EntityKind::Body:
    case EntityKind::Surface:
        return As<SolidData>;
    default:
        return As<Entity>;
    }
}

std::uint64_t ReadEverything(const Drawing& drawing, const EntityRecord& record)
{
    std::uint64_t read = ReaderOf(record.kind)(drawing, record) + As<GraphicsData>(drawing, record);
    std::vector<Hyperlink> links;
    ReadHyperlinks(drawing, record, links);
    std::vector<TaggedPoint> points;
    ReadPoints(drawing, record, points);
    read += links.size() + points.size() + drawing.EntityName(record).size() + drawing.RecordIndex(record);
    return read;
}

} // namespace

std::uint64_t Walk(const Drawing& drawing)
{
    std::uint64_t read = 0;
    for (std::uint32_t block = 0; block < drawing.Blocks().size(); ++block) {
        for (const EntityRecord& record : drawing.EntitiesOf(block))
            read += ReadEverything(drawing, record);
        read += SheetViewportOf(drawing, block) != nullptr ? 1 : 0;
    }
    for (const Layout& layout : drawing.Layouts())
        read += layout.name.size();
    for (const PlotSettings& setup : drawing.PageSetups())
        read += setup.pageSetupName.size();
    read += drawing.FindEntity(kScale) != nullptr ? 1 : 0;
    read += drawing.RecordOf("ACAD").size() + drawing.HeaderText("$CLAYER", "").size();
    read += ArrowHeadOf(drawing, "_DOT").block + static_cast<std::uint64_t>(ModelLinetypeUnit(drawing) > 1);
    return read + drawing.Findings().size();
}

} // namespace sm::drawing::testing
