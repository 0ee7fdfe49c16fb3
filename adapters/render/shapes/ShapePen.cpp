// SPDX-License-Identifier: GPL-3.0-or-later
#include "shapes/ShapePen.h"

#include "render/Arcs.h"

#include <array>

namespace sm::render {

namespace {

constexpr double kOctant = 45; // degrees
constexpr int kDeepestSubshape = 8;
constexpr std::size_t kMostKept = 64;

// The 16 directions, counter-clockwise from the right; the odd ones reach as far as their longer part.
constexpr std::array<Vec2, 16> kDirections{{{1, 0},
                                            {1, 0.5},
                                            {1, 1},
                                            {0.5, 1},
                                            {0, 1},
                                            {-0.5, 1},
                                            {-1, 1},
                                            {-1, 0.5},
                                            {-1, 0},
                                            {-1, -0.5},
                                            {-1, -1},
                                            {-0.5, -1},
                                            {0, -1},
                                            {0.5, -1},
                                            {1, -1},
                                            {1, -0.5}}};

/// Sign, first octant and number of octants of an arc's last byte.
struct Octants {
    explicit Octants(std::uint8_t byte)
        : clockwise((byte & 0x80) != 0), first(byte >> 4 & 7), count((byte & 7) == 0 ? 8 : byte & 7)
    {
    }
    bool clockwise;
    int first, count;
};

} // namespace

Vec2 ShapePen::StepOf(Reader& reader)
{
    const double x = reader.Signed();
    return {x, reader.Signed()};
}

void ShapePen::Draw(std::uint16_t number, int depth)
{
    Reader reader{m_file.Codes(number)};
    while (!reader.AtEnd() && m_budget-- > 0) {
        const std::uint8_t code = reader.Byte();
        if (code == 0) {
            return;
        }
        Obey(code, reader, depth);
    }
}

void ShapePen::Obey(std::uint8_t code, Reader& reader, int depth)
{
    switch (code) {
    case 1:
    case 2:
        m_down = code == 1;
        m_started = false;
        break;
    case 3:
    case 4: {
        const double factor = std::max<double>(1, reader.Byte());
        m_unit = code == 3 ? m_unit / factor : m_unit * factor;
        break;
    }
    case 5:
        if (m_kept.size() < kMostKept) {
            m_kept.push_back(m_at);
        }
        break;
    case 6:
        if (!m_kept.empty()) {
            m_at = m_kept.back();
            m_kept.pop_back();
            m_started = false;
        }
        break;
    case 7:
        Nested(reader, depth);
        break;
    case 8:
        Step(StepOf(reader));
        break;
    case 9:
        for (Vec2 by = StepOf(reader); !(by == Vec2{}); by = StepOf(reader)) {
            Step(by);
        }
        break;
    case 14: // for vertical text alone
        Skip(reader);
        break;
    default:
        code > 15 ? Vector(code) : Arc(code, reader);
    }
}

void ShapePen::Arc(std::uint8_t code, Reader& reader)
{
    switch (code) {
    case 10:
        OctantArc(reader);
        break;
    case 11:
        FractionalArc(reader);
        break;
    case 12: {
        const Vec2 by = StepOf(reader);
        Bulge(by, reader.Signed());
        break;
    }
    case 13:
        for (Vec2 by = StepOf(reader); !(by == Vec2{}); by = StepOf(reader)) {
            Bulge(by, reader.Signed());
        }
        break;
    default:
        break;
    }
}

// The code behind a 14, with all that belongs to it.
void ShapePen::Skip(Reader& reader)
{
    Path nowhere;
    ShapePen other(m_file, nowhere);
    other.m_budget = std::min(m_budget, 100);
    other.Obey(reader.Byte(), reader, kDeepestSubshape);
}

void ShapePen::Nested(Reader& reader, int depth)
{
    std::uint16_t number = reader.Byte();
    if (number == 0 && m_file.IsBigFont()) {
        Resized(reader, depth);
        return;
    }
    if (m_file.IsUnifont()) {
        number = static_cast<std::uint16_t>(number << 8 | reader.Byte());
    }
    if (depth < kDeepestSubshape) {
        Draw(number, depth + 1);
    }
}

/// A figure of a big font, fitted into a box of its own: number, corner, width and height. The pen stays where it is.
void ShapePen::Resized(Reader& reader, int depth)
{
    const auto high = static_cast<unsigned>(reader.Byte());
    const auto number = static_cast<std::uint16_t>(high << 8 | reader.Byte());
    const Vec2 corner = StepOf(reader);
    const double width = reader.Byte(), height = reader.Byte();
    const Vec2 cell = m_file.Cell();
    if (depth >= kDeepestSubshape || !m_file.Has(number) || cell.x <= 0 || cell.y <= 0) {
        return;
    }
    Path figure;
    ShapePen other(m_file, figure);
    other.m_budget = m_budget;
    other.Draw(number, depth + 1);
    m_budget = other.m_budget;
    for (const Vec2 p : figure.points) {
        m_path.points.push_back((corner + Vec2{p.x * width / cell.x, p.y * height / cell.y}) * m_unit);
    }
    m_path.verbs.insert(m_path.verbs.end(), figure.verbs.begin(), figure.verbs.end());
    m_started = false;
}

void ShapePen::Reach()
{
    if (!m_started) {
        m_path.MoveTo(m_at);
        m_started = true;
    }
}

void ShapePen::Step(Vec2 by)
{
    if (m_down) {
        Reach();
    }
    m_at = m_at + by * m_unit;
    if (m_down) {
        m_path.LineTo(m_at);
    }
}

void ShapePen::Vector(std::uint8_t code)
{
    Step(kDirections[code & 15] * (code >> 4));
}

void ShapePen::OctantArc(Reader& reader)
{
    const double radius = reader.Byte();
    const Octants octants(reader.Byte());
    Turn(radius, octants.first * kOctant, (octants.clockwise ? -1 : 1) * octants.count * kOctant);
}

// Starts and ends within its octants, by 256ths of one.
void ShapePen::FractionalArc(Reader& reader)
{
    const double from = reader.Byte() * kOctant / 256;
    const double to = reader.Byte() * kOctant / 256;
    const double high = reader.Byte() * 256.0;
    const double radius = high + reader.Byte();
    const Octants octants(reader.Byte());
    const double sign = octants.clockwise ? -1 : 1;
    const double whole = (octants.count - (to > 0 ? 1 : 0)) * kOctant;
    Turn(radius, octants.first * kOctant + sign * from, sign * (whole - from + to));
}

void ShapePen::Turn(double radius, double startDegrees, double sweepDegrees)
{
    const double r = radius * m_unit;
    const double start = Radians(startDegrees);
    const Vec2 center = m_at - Vec2{std::cos(start), std::sin(start)} * r;
    const EllipseArc arc{center, {r, 0}, {0, r}, start, Radians(sweepDegrees)};
    if (m_down) {
        Reach();
        AppendArc(m_path, arc, Join::Continue);
    }
    m_at = arc.At(start + arc.sweep);
}

void ShapePen::Bulge(Vec2 by, double bulge)
{
    constexpr double kHalfCircle = 127;
    const Vec2 to = m_at + by * m_unit;
    if (bulge == 0 || by == Vec2{}) {
        Step(by);
        return;
    }
    if (m_down) {
        Reach();
        AppendArc(m_path, BulgeArc(m_at, to, bulge / kHalfCircle), Join::Continue);
    }
    m_at = to;
}

bool AppendShape(const ShapeFile& file, std::uint16_t number, Path& path)
{
    Vec2 end;
    return AppendShape(file, number, path, end);
}

bool AppendShape(const ShapeFile& file, std::uint16_t number, Path& path, Vec2& end)
{
    if (!file.Has(number)) {
        return false;
    }
    ShapePen pen(file, path);
    pen.Draw(number, 0);
    end = pen.At();
    return true;
}

} // namespace sm::render
