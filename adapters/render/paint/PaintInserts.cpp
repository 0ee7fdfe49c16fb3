#include "drawing/entities/AnnotationContexts.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/Inserts.h"
#include "paint/Painter.h"
#include "paint/PainterBuffers.h"
#include "render/ClipBox.h"

namespace sm::render {

namespace {

constexpr std::size_t kDeepestNesting = 64;

// Programs that convert units write the factor into the insert's scale; where nobody did, it is done here.
double UnitOf(const References::Guest& guest, const drawing::InsertData& insert)
{
    return std::abs(insert.scale.x) == 1 && std::abs(insert.scale.y) == 1 ? guest.unit : 1;
}

} // namespace

Matrix3 Placing(const drawing::InsertData& insert, Vec3 base, std::int32_t row, std::int32_t column, double unit)
{
    const double c = std::cos(Radians(insert.rotation));
    const double s = std::sin(Radians(insert.rotation));
    const Vec3 right{c, s, 0};
    const Vec3 up{-s, c, 0};
    const Vec3 at = insert.insertion + right * (column * insert.columnSpacing) + up * (row * insert.rowSpacing);
    Matrix3 inOcs{right * (insert.scale.x * unit), up * (insert.scale.y * unit), {0, 0, insert.scale.z * unit}, at};
    inOcs.origin = inOcs.Apply(base * -1);
    return IsPlanExtrusion(insert.extrusion) ? inOcs : Compose(OcsAxes(insert.extrusion), inOcs);
}

// The layer that hides all of an insert or dimension where its marks say so: the outermost counts.
std::optional<std::uint32_t> Painter::HidingLayer(const drawing::Entity& entity, const Frame& frame,
                                                  bool ofFrozen) const
{
    if (!m_options.everyLayer || frame.inherited.hiddenBy) {
        return frame.inherited.hiddenBy;
    }
    const std::uint32_t layer = EffectiveLayer(entity, frame.inherited);
    const auto& layers = m_drawing.Layers();
    const bool hides = layer < layers.size() && (ofFrozen ? layers[layer].frozen : !m_layers->Of(layer).plots);
    return hides ? std::optional(layer) : std::nullopt;
}

bool Painter::CanEnter(std::uint32_t block)
{
    if (block >= m_drawing.Blocks().size()) {
        Remark("a block that an insert names is missing");
        return false;
    }
    if (m_openBlocks.size() >= kDeepestNesting ||
        std::find(m_openBlocks.begin(), m_openBlocks.end(), block) != m_openBlocks.end()) {
        Remark("a block that holds itself left out");
        return false;
    }
    return true;
}

Outcome Painter::PaintInsert(const drawing::EntityRecord& record, const Frame& frame)
{
    const std::size_t depth = m_openBlocks.size();
    while (m_buffers->inserts.size() <= depth) {
        m_buffers->inserts.emplace_back();
    }
    drawing::InsertData& insert = m_buffers->inserts[depth];
    Read(m_drawing, record, insert);
    const LayerState& layer = m_layers->Of(EffectiveLayer(insert, frame.inherited));
    // An insert on a layer that is off still shows what its block holds on other layers; a frozen one shows nothing.
    if ((insert.invisible && m_hideLayers) || layer.frozen) {
        return Outcome::Hidden;
    }
    if (m_annotationScale != 0) {
        drawing::AdaptTo(m_drawing, record, m_annotationScale, insert);
    }
    const Style style = Resolve(insert, layer, frame.inherited);
    std::vector<Vec3> clip;
    const bool clipped = ReadInsertClip(m_drawing, record, clip);
    const Outcome copies = PaintCopies(insert, clipped ? clip : std::vector<Vec3>{}, frame, style);
    const Outcome attributes = PaintAttributes(insert, frame, style);
    const Outcome best = std::max(copies, attributes);
    return best == Outcome::NotReached ? Outcome::OffPage : best;
}

Outcome Painter::PaintCopies(const drawing::InsertData& insert, const std::vector<Vec3>& clip, const Frame& frame,
                             const Style& style)
{
    if (!CanEnter(insert.block)) {
        return Outcome::NotDrawn;
    }
    References::Guest* guest = nullptr;
    if (Referenced().IsXref(insert.block)) {
        guest = Referenced().GuestOf(insert.block);
        if (guest == nullptr && m_drawing.EntitiesOf(insert.block).empty()) {
            constexpr std::int32_t kOverlay = 8;
            const bool leftOut = !m_guest.layers.empty() && (m_drawing.Blocks()[insert.block].flags & kOverlay) != 0;
            return leftOut ? Outcome::Hidden : Outcome::NotDrawn;
        }
    }
    const OpenBlock open(m_openBlocks, insert.block);
    const Vec3 base = guest != nullptr ? guest->base : m_drawing.Blocks()[insert.block].base;
    const double unit = guest != nullptr ? UnitOf(*guest, insert) : 1;
    Frame inner;
    inner.inherited = {style, EffectiveLayer(insert, frame.inherited), HidingLayer(insert, frame, true)};
    inner.dashScale = frame.dashScale * std::abs(insert.scale.x) * unit;
    Outcome best = Outcome::NotReached;
    for (std::int32_t row = 0; row < insert.rows; ++row) {
        for (std::int32_t column = 0; column < insert.columns; ++column) {
            inner.toPaper = Compose(frame.toPaper, Placing(insert, base, row, column, unit));
            m_insert = insert.handle;
            best = std::max(best, clip.empty() ? PaintBlock(insert.block, inner)
                                               : PaintClippedBlock(insert.block, clip, inner));
            if (m_budget == 0) {
                return best;
            }
        }
    }
    return best;
}

// What of a block lies within a boundary of its own coordinates.
Outcome Painter::PaintClippedBlock(std::uint32_t block, const std::vector<Vec3>& clip, const Frame& frame)
{
    Path path;
    for (const Vec3 corner : clip) {
        const Vec2 at = frame.toPaper.Apply(corner);
        path.Empty() ? path.MoveTo(at) : path.LineTo(at);
    }
    path.Close();
    const Box2 hull = HullOf(path);
    if (!std::isfinite(hull.Width() + hull.Height())) {
        return PaintBlock(block, frame);
    }
    if (m_ink.Bounded() && !Overlaps(hull, m_ink.Clip())) {
        return Outcome::OffPage;
    }
    Outcome best = Outcome::OffPage;
    {
        const Ink::ClipGuard guard(m_ink, path, FillRule::EvenOdd);
        best = PaintBlock(block, frame);
    }
    constexpr std::int32_t kPlotted = 1; // 0 unseen, 2 seen on the screen alone
    if (m_drawing.HeaderInteger("$XCLIPFRAME", 0) == kPlotted) {
        const Style& style = frame.inherited.byBlock;
        m_ink.Stroke(path, {.color = style.color, .width = PenWidth(style.width)});
    }
    return best;
}

Outcome Painter::PaintAttributes(const drawing::InsertData& insert, const Frame& frame, const Style& style)
{
    Frame own = frame;
    own.inherited = {style, EffectiveLayer(insert, frame.inherited), HidingLayer(insert, frame, true)};
    Outcome best = Outcome::NotReached;
    for (const drawing::EntityRecord& attribute : insert.attributes) {
        best = std::max(best, Try(attribute, own)); // attributes don't count on their own
    }
    return best;
}

Outcome Painter::PaintDimension(const drawing::EntityRecord& record, const Frame& frame)
{
    drawing::DimensionData dimension;
    Read(m_drawing, record, dimension);
    if (Hidden(dimension, frame)) {
        return Outcome::Hidden;
    }
    if (m_drawing.EntitiesOf(dimension.block).empty()) { // no picture: the measurements themselves
        return PaintNote(record, frame);
    }
    if (!CanEnter(dimension.block)) {
        return Outcome::NotDrawn;
    }
    // The block holds the dimension's picture where it stands, in world coordinates.
    Frame inner = frame;
    inner.inherited = {Resolve(dimension, m_layers->Of(EffectiveLayer(dimension, frame.inherited)), frame.inherited),
                       EffectiveLayer(dimension, frame.inherited), HidingLayer(dimension, frame, false)};
    const OpenBlock open(m_openBlocks, dimension.block);
    const Outcome best = PaintBlock(dimension.block, inner);
    return best == Outcome::NotReached ? Outcome::OffPage : best;
}

} // namespace sm::render
