// SPDX-License-Identifier: GPL-3.0-or-later
// The sections of an LFF font, each a character's strokes.
#include "fonts/StrokeFont.h"

#include <charconv>
#include <cmath>
#include <optional>

namespace sm::render {

namespace {

constexpr int kDeepestCopy = 4;            // characters made of others
constexpr std::size_t kMostRead = 200'000; // bytes for one character, copies counted each time
constexpr double kLargest = 10000;         // coordinates beyond are damage

std::string_view TakeLine(std::string_view& text)
{
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) {
        line.remove_suffix(1);
    }
    return line;
}

std::optional<double> Number(std::string_view text)
{
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    (void)end;
    if (error != std::errc{} || !(std::fabs(value) <= kLargest)) {
        return std::nullopt;
    }
    return value;
}

std::optional<char32_t> Hex(std::string_view text)
{
    std::uint32_t value = 0;
    if (!text.empty() && text.front() == '#') {
        text.remove_prefix(1);
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc{} || end == text.data() || value > 0x10FFFF) {
        return std::nullopt;
    }
    return value;
}

std::string_view TakeField(std::string_view& text, char separator)
{
    const std::size_t end = text.find(separator);
    const std::string_view field = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return field;
}

/// The arc from the path's end with that bulge (tangent of a quarter of its angle), by cubic curves.
void AddArc(Path& path, Vec2 from, Vec2 to, double bulge)
{
    const double angle = 4 * std::atan(bulge);
    const Vec2 chord = to - from;
    const double length = std::hypot(chord.x, chord.y);
    if (length == 0 || std::fabs(angle) < 1e-6) {
        path.LineTo(to);
        return;
    }
    // The centre lies on the chord's bisector, left of it for a bulge in (0, 1).
    const double toCenter = (1 - bulge * bulge) / (4 * bulge);
    const Vec2 center = (from + to) * 0.5 + Vec2{-chord.y, chord.x} * toCenter;
    const int parts = static_cast<int>(std::ceil(std::fabs(angle) / 1.6));
    const double step = angle / parts, handle = 4.0 / 3 * std::tan(step / 4);
    Vec2 arm = from - center;
    for (int i = 0; i < parts; ++i) {
        const double c = std::cos(step), s = std::sin(step);
        const Vec2 next{arm.x * c - arm.y * s, arm.x * s + arm.y * c};
        const Vec2 end = i + 1 == parts ? to : center + next;
        path.CubicTo(center + arm + Vec2{-arm.y, arm.x} * handle, end - Vec2{-next.y, next.x} * handle, end);
        arm = next;
    }
}

void ReadPolyline(std::string_view line, Path& path)
{
    bool first = true;
    Vec2 last;
    while (!line.empty()) {
        std::string_view field = TakeField(line, ';');
        const auto x = Number(TakeField(field, ','));
        const auto y = Number(TakeField(field, ','));
        if (!x || !y) {
            continue;
        }
        const std::string_view extra = TakeField(field, ',');
        const auto bulge = extra.starts_with("A") ? Number(extra.substr(1)) : std::nullopt;
        const Vec2 point{*x, *y};
        if (first) {
            path.MoveTo(point);
        } else if (bulge && *bulge != 0) {
            AddArc(path, last, point, *bulge);
        } else {
            path.LineTo(point);
        }
        first = false;
        last = point;
    }
}

} // namespace

bool StrokeFont::Index()
{
    std::string_view rest = m_text;
    std::string_view* open = nullptr;
    while (!rest.empty()) {
        const char* begin = rest.data();
        const std::string_view line = TakeLine(rest);
        if (line.starts_with("#")) {
            ReadHead(line);
        } else if (line.starts_with("[")) {
            const auto character = Hex(line.substr(1));
            open = character ? &m_sections.try_emplace(*character).first->second : nullptr;
            if (open != nullptr) {
                *open = rest.substr(0, 0);
            }
        } else if (open != nullptr && !line.empty()) {
            const char* from = open->empty() ? begin : open->data();
            *open = {from, static_cast<std::size_t>(line.data() + line.size() - from)};
        }
    }
    return !m_sections.empty();
}

void StrokeFont::ReadHead(std::string_view line)
{
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) {
        return;
    }
    const bool letters = line.find("LetterSpacing") < colon, words = line.find("WordSpacing") < colon;
    line.remove_prefix(line.find_first_not_of(" \t", colon + 1) == std::string_view::npos
                           ? line.size()
                           : line.find_first_not_of(" \t", colon + 1));
    if (const auto value = Number(line)) {
        m_letterSpacing = letters ? *value : m_letterSpacing;
        m_wordSpacing = words ? *value : m_wordSpacing;
    }
}

void StrokeFont::ReadSection(std::string_view section, StrokeGlyph& glyph, int depth, std::size_t& read) const
{
    while (!section.empty()) {
        const std::string_view line = TakeLine(section);
        read += line.size() + 1;
        if (read > kMostRead) {
            return;
        }
        if (!line.starts_with("C")) {
            ReadPolyline(line, glyph.path);
            continue;
        }
        const auto character = Hex(line.substr(1));
        const auto other = character ? m_sections.find(*character) : m_sections.end();
        if (other != m_sections.end() && depth < kDeepestCopy) {
            ReadSection(other->second, glyph, depth + 1, read);
        }
    }
}

} // namespace sm::render
