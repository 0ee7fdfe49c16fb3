// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/MLines.h"
#include "notes/NotePicture.h"
#include "render/Arcs.h"

#include <span>

namespace sm::render {

namespace {

using drawing::MLineData;

// DXF reference, MLINESTYLE 70.
constexpr std::int32_t kFilled = 1, kJoints = 2;
struct CapFlags {
    std::int32_t straight, innerArcs, outerArc;
};
constexpr CapFlags kStart{0x10, 0x20, 0x40}, kEnd{0x100, 0x200, 0x400};

/// The multiline in its plane.
class Builder {
public:
    Builder(const MLineData& mline, NotePicture& picture) : m_mline(mline), m_picture(picture)
    {
        m_count = mline.elements.size();
        for (const MLineData::Vertex& vertex : mline.vertices) {
            m_count = std::max<std::size_t>(m_count, vertex.count);
        }
        for (const MLineData::Vertex& vertex : mline.vertices) {
            m_count = std::min<std::size_t>(m_count, vertex.count);
        }
        SetOrder();
    }

    void Run()
    {
        const std::size_t segments = m_mline.closed ? m_mline.vertices.size() : m_mline.vertices.size() - 1;
        if (m_count == 0) {
            return;
        }
        if ((m_mline.styleFlags & kFilled) != 0) {
            AddFill(segments);
        }
        for (std::size_t element = 0; element < m_count; ++element) {
            AddElement(element, segments);
        }
        AddJoints();
        if (!m_mline.closed) {
            AddCaps(0, kStart, m_mline.noStartCap);
            AddCaps(m_mline.vertices.size() - 1, kEnd, m_mline.noEndCap);
        }
    }

private:
    using Index = std::size_t;

    [[nodiscard]] const MLineData::Vertex& Vertex(Index vertex) const
    {
        return m_mline.vertices[vertex % m_mline.vertices.size()];
    }
    [[nodiscard]] std::span<const double> Lengths(Index vertex, Index element) const
    {
        const MLineData::Piece& piece = m_mline.pieces[Vertex(vertex).first + element];
        return std::span(m_mline.lengths).subspan(piece.first, piece.count);
    }
    [[nodiscard]] Vec2 Along(Index vertex) const { return m_picture.ToPlane(Vertex(vertex).direction); }
    /// Where an element crosses the miter of a vertex.
    [[nodiscard]] Vec2 At(Index vertex, Index element) const
    {
        const std::span<const double> lengths = Lengths(vertex, element);
        const double offset = lengths.empty() ? 0 : lengths.front();
        return m_picture.ToPlane(Vertex(vertex).point) + m_picture.ToPlane(Vertex(vertex).miter) * offset;
    }
    [[nodiscard]] drawing::Entity PenOf(Index element) const
    {
        drawing::Entity pen;
        pen.linetype = 1;
        if (element < m_mline.elements.size()) {
            pen = m_mline.elements[element].pen;
        }
        pen.lineweight = drawing::kLineweightByBlock;
        // BYLAYER in a style is what the entity itself has.
        if (pen.color == drawing::kByLayer && !pen.trueColor) {
            pen.color = drawing::kByBlock;
        }
        pen.linetype = pen.linetype == 0 ? 1 : pen.linetype;
        return pen;
    }

    /// The elements from one side to the other.
    void SetOrder()
    {
        for (Index i = 0; i < m_count; ++i) {
            m_order.push_back(i);
        }
        const auto offset = [this](Index i) {
            const std::span<const double> lengths = Lengths(0, i);
            return lengths.empty() ? 0 : lengths.front();
        };
        if (!m_mline.vertices.empty()) {
            std::stable_sort(m_order.begin(), m_order.end(), [&](Index a, Index b) { return offset(a) > offset(b); });
        }
    }

    void AddElement(Index element, Index segments)
    {
        Path& path = m_picture.Add(PenOf(element));
        for (Index segment = 0; segment < segments; ++segment) {
            const std::span<const double> lengths = Lengths(segment, element);
            const Vec2 start = At(segment, element), end = At(segment + 1, element), along = Along(segment);
            bool drawn = true;
            Vec2 from = start;
            for (Index i = 1; i < lengths.size(); ++i) { // on at the first, off at the second, and so on
                const Vec2 at = start + along * lengths[i];
                drawn = i % 2 == 1;
                if (!drawn) {
                    AddPart(path, from, at);
                }
                from = at;
            }
            if (drawn) {
                AddPart(path, from, end);
            }
        }
        if (path.Empty()) {
            m_picture.shapes.pop_back();
        }
    }

    static void AddPart(Path& path, Vec2 from, Vec2 to)
    {
        if (path.Empty() || !(path.points.back() == from)) {
            path.MoveTo(from);
        }
        path.LineTo(to);
    }

    void AddFill(Index segments)
    {
        drawing::Entity pen = m_mline.fill;
        pen.color = pen.color == drawing::kByLayer ? drawing::kByBlock : pen.color;
        const Index near = m_order.front(), far = m_order.back();
        for (Index i = 0; i < segments; ++i) {
            m_picture.AddPolygon({At(i, near), At(i + 1, near), At(i + 1, far), At(i, far)}, pen, true);
        }
    }

    void AddJoints()
    {
        if ((m_mline.styleFlags & kJoints) == 0) {
            return;
        }
        const Index last = m_mline.vertices.size() - 1;
        for (Index i = m_mline.closed ? 0 : 1; i < (m_mline.closed ? last + 1 : last); ++i) {
            m_picture.AddLine(At(i, m_order.front()), At(i, m_order.back()), PenOf(m_order.front()));
        }
    }

    void AddCaps(Index vertex, const CapFlags& flags, bool suppressed)
    {
        if (suppressed || m_count < 2) {
            return;
        }
        const bool atStart = vertex == 0;
        const Vec2 outwards = Along(atStart ? 0 : vertex) * (atStart ? -1.0 : 1.0);
        if ((m_mline.styleFlags & flags.straight) != 0) {
            m_picture.AddLine(At(vertex, m_order.front()), At(vertex, m_order.back()), PenOf(m_order.front()));
        }
        if ((m_mline.styleFlags & flags.outerArc) != 0) {
            AddArcCap(vertex, 0, outwards);
        }
        if ((m_mline.styleFlags & flags.innerArcs) != 0) {
            for (Index pair = 1; 2 * pair + 1 < m_order.size(); ++pair) {
                AddArcCap(vertex, pair, outwards);
            }
        }
    }

    /// A half circle from the `pair`-th element to the `pair`-th from the other side; each half has its own colour.
    void AddArcCap(Index vertex, Index pair, Vec2 outwards)
    {
        const Index near = m_order[pair], far = m_order[m_order.size() - 1 - pair];
        const Vec2 a = At(vertex, near), b = At(vertex, far);
        const Vec2 center = (a + b) * 0.5, u = a - center;
        const Vec2 v = Unit(outwards) * Length(u);
        constexpr double kQuarter = kTurn / 4;
        AppendArc(m_picture.Add(PenOf(near)), {center, u, v, 0, kQuarter}, Join::Move);
        AppendArc(m_picture.Add(PenOf(far)), {center, u, v, kQuarter, kQuarter}, Join::Move);
    }

    const MLineData& m_mline;
    NotePicture& m_picture;
    Index m_count = 0;
    std::vector<Index> m_order;
};

} // namespace

void Build(const drawing::MLineData& mline, const NoteTools&, NotePicture& picture)
{
    if (mline.vertices.size() < 2) {
        return;
    }
    picture.SetPlane(mline.extrusion, mline.vertices.front().point);
    Builder(mline, picture).Run();
}

} // namespace sm::render
