// SPDX-License-Identifier: GPL-3.0-or-later
#include "ink/Dasher.h"

#include "render/ClipBox.h"
#include "render/Projection.h"

namespace sm::render {

namespace {

constexpr double kDotLength = 0.02; // mm; a stroke without length shows nowhere with a butt end
constexpr double kTiny = 1e-9;
constexpr std::size_t kMostSymbols = 50'000;  // on one path
constexpr std::size_t kMostVerbs = 4'000'000; // a path with more dashes than that is drawn through from there on
constexpr int kDeepest = 24;                  // halves of halves of a curve
constexpr double kMostPeriods = 1e12;         // of a run; further along, a dash is below what its place is known to

} // namespace

void Dasher::Cut(const Path& path, std::span<const std::uint32_t> breaks, const DashPattern& pattern, double scale,
                 const Box2& visible, Path& out)
{
    m_pattern = &pattern;
    m_scale = scale;
    m_visible = visible;
    m_out = &out;
    m_run.clear();
    m_runLength = 0;
    m_symbols.clear();
    Vec2 start, at;
    const Vec2* point = path.points.data();
    std::size_t nextBreak = 0;
    for (std::uint32_t verb = 0; verb < path.verbs.size(); ++verb) {
        if (nextBreak < breaks.size() && breaks[nextBreak] == verb) {
            FlushRun();
            ++nextBreak;
        }
        switch (path.verbs[verb]) {
        case Verb::Move:
            FlushRun();
            start = at = *point++;
            break;
        case Verb::Line:
            AddPiece({{{at, at, *point, *point}}, true, Length(*point - at)});
            at = *point++;
            break;
        case Verb::Cubic: {
            const Cubic curve{{at, point[0], point[1], point[2]}};
            AddPiece({curve, false, CubicLength(curve).Total()});
            at = point[2];
            point += 3;
            break;
        }
        case Verb::Close:
            AddPiece({{{at, at, start, start}}, true, Length(start - at)});
            at = start;
            break;
        }
    }
    FlushRun();
}

void Dasher::AddPiece(const Piece& piece)
{
    if (piece.length > kTiny && std::isfinite(piece.length)) {
        m_run.push_back(piece);
        m_runLength += piece.length;
    }
}

void Dasher::FlushRun()
{
    const double period = m_pattern->period * m_scale;
    const double first = m_pattern->firstDash * m_scale;
    m_periods = std::floor(m_runLength / period + kTiny);
    m_shift = m_pattern->aligned ? (m_runLength - m_periods * period - first) / 2 : 0;
    double begin = 0;
    for (const Piece& piece : m_run) {
        CutPiece(piece, begin);
        if (!m_pattern->symbols.empty() && m_periods >= 1 && m_periods <= kMostPeriods) {
            PlaceSymbols(piece, begin, 0);
        }
        begin += piece.length;
    }
    m_run.clear();
    m_runLength = 0;
}

// The dashes of the k-th period, as stretches of the run.
template <class Emit> void Dasher::DashesOfPeriod(double k, const Emit& emit) const
{
    const double begin = m_shift + k * m_pattern->period * m_scale;
    bool first = m_pattern->aligned;
    for (const DashPattern::Mark& mark : m_pattern->marks) {
        double from = begin + mark.begin * m_scale;
        double to = begin + mark.end * m_scale;
        const bool dot = mark.begin == mark.end;
        if (first && !dot && k == 0) {
            from = 0;
        }
        if (first && !dot && k == m_periods) {
            to = m_runLength;
        }
        if (dot) {
            from = std::clamp(from - kDotLength / 2, 0.0, std::max(0.0, m_runLength - kDotLength));
            to = from + kDotLength;
        }
        emit(from, std::min(to, m_runLength));
        if (first && k == m_periods) {
            return;
        }
        first = false;
    }
}

template <class Emit> void Dasher::ForEachDash(double begin, double end, const Emit& emit) const
{
    const double period = m_pattern->period * m_scale;
    const double margin = kDotLength;
    const double from = std::max(0.0, std::floor((begin - margin - m_shift) / period));
    const double to = std::min(m_periods, std::floor((end + margin - m_shift) / period));
    const bool known = m_periods >= 1 && m_periods <= kMostPeriods;
    if (!known || m_out->verbs.size() > kMostVerbs || to - from > static_cast<double>(kMostVerbs)) {
        emit(begin, end);
        return;
    }
    const auto count = static_cast<std::int64_t>(to - from) + 1;
    for (std::int64_t i = 0; i < count; ++i) {
        DashesOfPeriod(from + static_cast<double>(i), [&](double dashBegin, double dashEnd) {
            const double a = std::max(dashBegin, begin);
            const double b = std::min(dashEnd, end);
            if (b > a + kTiny) {
                emit(a, b);
            }
        });
    }
}

// A dash goes on where the last one ended, over a vertex or from one run to the next, so that corners are joined.
void Dasher::Start(Vec2 point)
{
    constexpr double kSame = 1e-6;
    if (m_out->points.empty() || Length(m_out->points.back() - point) > kSame) {
        m_out->MoveTo(point);
    }
}

void Dasher::CutPiece(const Piece& piece, double begin)
{
    if (piece.straight) {
        CutLine(piece, begin);
    } else {
        CutCurve(piece.curve, piece.length, begin, 0);
    }
}

void Dasher::CutLine(const Piece& piece, double begin)
{
    const Vec2 a = piece.curve.p[0];
    const Vec2 b = piece.curve.p[3];
    double t0 = 0;
    double t1 = 1;
    if (!ClipLine(m_visible, a, b, t0, t1)) {
        return;
    }
    const auto at = [&](double s) { return a + (b - a) * ((s - begin) / piece.length); };
    ForEachDash(begin + t0 * piece.length, begin + t1 * piece.length, [&](double from, double to) {
        Start(at(from));
        m_out->LineTo(at(to));
    });
}

void Dasher::CutCurve(const Cubic& curve, double length, double begin, int depth)
{
    if (!Overlaps(curve.Hull(), m_visible)) {
        return;
    }
    const double diagonal = m_visible.Width() + m_visible.Height();
    const CubicLength lengths(curve);
    if (length > 2 * diagonal && depth < kDeepest) {
        const double middle = lengths.ParameterAt(length / 2);
        CutCurve(curve.Part(0, middle), length / 2, begin, depth + 1);
        CutCurve(curve.Part(middle, 1), length / 2, begin + length / 2, depth + 1);
        return;
    }
    ForEachDash(begin, begin + length, [&](double from, double to) {
        const Cubic dash = curve.Part(lengths.ParameterAt(from - begin), lengths.ParameterAt(to - begin));
        Start(dash.p[0]);
        m_out->CubicTo(dash.p[1], dash.p[2], dash.p[3]);
    });
}

// Of a long piece, only what shows.
void Dasher::PlaceSymbols(const Piece& piece, double begin, int depth)
{
    const Box2 shown = Grown(m_visible, m_pattern->reach * m_scale);
    if (piece.straight) {
        double t0 = 0;
        double t1 = 1;
        if (ClipLine(shown, piece.curve.p[0], piece.curve.p[3], t0, t1)) {
            PlaceSymbolsWithin(piece, begin, t0 * piece.length, t1 * piece.length);
        }
        return;
    }
    if (!Overlaps(piece.curve.Hull(), shown)) {
        return;
    }
    if (piece.length > 2 * (shown.Width() + shown.Height()) && depth < kDeepest) {
        const double half = piece.length / 2;
        const double middle = CubicLength(piece.curve).ParameterAt(half);
        PlaceSymbols({piece.curve.Part(0, middle), false, half}, begin, depth + 1);
        PlaceSymbols({piece.curve.Part(middle, 1), false, half}, begin + half, depth + 1);
        return;
    }
    PlaceSymbolsWithin(piece, begin, 0, piece.length);
}

void Dasher::PlaceSymbolsWithin(const Piece& piece, double begin, double shownFrom, double shownTo)
{
    const double period = m_pattern->period * m_scale;
    const double end = begin + piece.length;
    const bool last = end >= m_runLength - kTiny;
    const double from = std::max(0.0, std::floor((begin + shownFrom - m_shift) / period) - 1);
    const double to = std::min(m_periods, std::floor((begin + shownTo - m_shift) / period));
    if (!(to - from < static_cast<double>(kMostSymbols))) { // too close to tell one from the next
        return;
    }
    const auto count = static_cast<std::int64_t>(to - from) + 1;
    for (std::int64_t i = 0; i < count && m_symbols.size() < kMostSymbols; ++i) {
        for (const DashPattern::Symbol& symbol : m_pattern->symbols) {
            const double at = m_shift + (from + static_cast<double>(i)) * period + symbol.at * m_scale;
            if (at >= begin && (at < end || (last && at <= m_runLength + kTiny))) {
                PlaceSymbol(piece, std::min(at - begin, piece.length), symbol.element);
            }
        }
    }
}

void Dasher::PlaceSymbol(const Piece& piece, double along, std::uint32_t element)
{
    const auto& p = piece.curve.p;
    Vec2 at = p[0] + (p[3] - p[0]) * (along / piece.length);
    Vec2 direction = p[3] - p[0];
    if (!piece.straight) {
        const double t = CubicLength(piece.curve).ParameterAt(along);
        at = piece.curve.At(t);
        direction = piece.curve.Derivative(t);
    }
    const double length = Length(direction);
    const double reach = m_pattern->reach * m_scale;
    if (length > 0 && Overlaps(Grown(m_visible, reach), {at, at})) {
        m_symbols.push_back({element, at, direction * (1 / length)});
    }
}

} // namespace sm::render
