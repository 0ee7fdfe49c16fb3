#include "drawing/EntityKinds.h"
#include "geometry/HatchBoundary.h"
#include "paint/Painter.h"

namespace sm::render {

namespace {

/// Keeps all lines that are drawn.
class PathCatcher final : public ICanvas {
public:
    explicit PathCatcher(Path& path) : m_path(path) {}
    void PushClip(const Path&, FillRule) override {}
    void PopClip() override {}
    void Stroke(const Path& path, const StrokeStyle&) override { Take(path); }
    void Fill(const Path& path, std::uint32_t, FillRule) override { Take(path); }
    void Text(const TextRun&) override {}

private:
    void Take(const Path& path)
    {
        m_path.verbs.insert(m_path.verbs.end(), path.verbs.begin(), path.verbs.end());
        m_path.points.insert(m_path.points.end(), path.points.begin(), path.points.end());
    }
    Path& m_path;
};

bool IsBoundary(drawing::EntityKind kind)
{
    using drawing::EntityKind;
    switch (kind) {
    case EntityKind::Line:
    case EntityKind::Arc:
    case EntityKind::Circle:
    case EntityKind::Ellipse:
    case EntityKind::LwPolyline:
    case EntityKind::Polyline:
    case EntityKind::Spline:
    case EntityKind::Helix:
    case EntityKind::Solid:
    case EntityKind::Trace:
    case EntityKind::Face3d:
    case EntityKind::Region:
        return true;
    default:
        return false;
    }
}

} // namespace

std::vector<Path> PiecesOf(const Path& path)
{
    std::vector<Path> pieces;
    const Vec2* point = path.points.data();
    for (const Verb verb : path.verbs) {
        if (verb == Verb::Move || pieces.empty()) {
            pieces.emplace_back();
        }
        const int count = verb == Verb::Cubic ? 3 : verb == Verb::Close ? 0 : 1;
        pieces.back().verbs.push_back(verb);
        pieces.back().points.insert(pieces.back().points.end(), point, point + count);
        point += count;
    }
    return pieces;
}

// The outline of an entity that bounds something else, whether it is visible or not.
bool Painter::CatchPath(const drawing::EntityRecord& record, const Frame& frame, Path& path)
{
    if (!IsBoundary(record.kind)) {
        return false;
    }
    PathCatcher catcher(path);
    PaintOptions options = m_options;
    options.boxesOnly = true;
    options.lineweights = false;
    Painter painter(m_drawing, catcher, m_text, nullptr, Box2{}, options, false);
    painter.PaintEntity(record, frame);
    return path.verbs.size() > 1;
}

} // namespace sm::render
