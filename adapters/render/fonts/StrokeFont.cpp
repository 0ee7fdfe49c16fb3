#include "fonts/StrokeFont.h"

#include "fonts/FontNames.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <optional>
#include <sstream>

namespace sm::render {

namespace {

constexpr double kCapital = 9;     // font units
constexpr int kDeepest = 4;        // characters made of others
constexpr double kLargest = 10000; // coordinates beyond are damage

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

/// A file's name as fonts are named: letters, digits and hyphens.
std::string SafeName(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    std::string name;
    for (const char c : path.substr(slash == std::string::npos ? 0 : slash + 1)) {
        const bool kept = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
        if (c == '.' || name.size() >= 60) {
            break;
        }
        name += kept ? c : '-';
    }
    return name.empty() ? "strokes" : name;
}

StrokeGlyph Box()
{
    StrokeGlyph box;
    box.path.MoveTo({0.1, 0});
    for (const Vec2 corner : {Vec2{0.7, 0}, Vec2{0.7, 1}, Vec2{0.1, 1}, Vec2{0.1, 0}}) {
        box.path.LineTo(corner);
    }
    box.advance = 0.9;
    return box;
}

} // namespace

std::unique_ptr<StrokeFont> StrokeFont::Open(const std::string& path)
{
    if (EndingOf(path) == ".shx") {
        return FromShapes(ShapeFile::Open(path), SafeName(path));
    }
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (!file || !(text << file.rdbuf())) {
        return nullptr;
    }
    return FromText(std::move(text).str(), SafeName(path));
}

std::unique_ptr<StrokeFont> StrokeFont::FromText(std::string text, std::string name)
{
    auto font = std::make_unique<StrokeFont>();
    font->m_text = std::move(text);
    font->m_name = std::move(name);
    return font->Index() ? std::move(font) : nullptr;
}

const StrokeFont& StrokeFont::Boxes()
{
    static const StrokeFont kBoxes;
    return kBoxes;
}

const StrokeGlyph& StrokeFont::At(std::uint32_t glyph) const
{
    static const StrokeGlyph kBox = Box();
    const StrokeGlyph* found = glyph != kMissing ? Find(glyph) : nullptr;
    return found != nullptr ? *found : kBox;
}

std::uint16_t StrokeFont::Advance(std::uint32_t glyph) const
{
    return static_cast<std::uint16_t>(
        std::clamp(std::round(At(glyph).advance * kCapHeight * UnitsPerEm()), 0.0, 65535.0));
}

void StrokeFont::Outline(std::uint32_t glyph, Path& out) const
{
    out = At(glyph).path;
    for (Vec2& point : out.points) {
        point = point * kCapHeight;
    }
}

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

const StrokeGlyph* StrokeFont::Find(char32_t character) const
{
    if (const auto known = m_glyphs.find(character); known != m_glyphs.end()) {
        return &known->second;
    }
    if (m_shapes) {
        return FindShape(character);
    }
    const bool blank = character == U' ' || character == 0xA0;
    const auto section = m_sections.find(character);
    if (section == m_sections.end() && !blank) {
        return nullptr;
    }
    StrokeGlyph& glyph = m_glyphs[character];
    if (section != m_sections.end()) {
        ReadSection(section->second, glyph, 0);
    }
    SetWidth(character, glyph);
    for (Vec2& point : glyph.path.points) {
        point = point * (1 / kCapital);
    }
    return &glyph;
}

double StrokeFont::LetterWidth() const
{
    const StrokeGlyph* glyph = Find(U'H');
    return glyph != nullptr ? glyph->advance - glyph->gap : 0;
}

double StrokeFont::LetterGap() const
{
    const StrokeGlyph* glyph = Find(U'H');
    return glyph != nullptr ? glyph->gap : 0;
}

const StrokeGlyph& StrokeFont::Adopt(char32_t character, StrokeGlyph glyph)
{
    return m_glyphs[character] = std::move(glyph);
}

void StrokeFont::SetMetrics(const StrokeMetrics& metrics, double width)
{
    const double unit = kCapital / width;
    m_letterSpacing = metrics.gap ? *metrics.gap * unit : m_letterSpacing;
    m_wordSpacing = metrics.space ? *metrics.space * unit : m_wordSpacing;
    for (const auto& [character, advance] : metrics.advances) {
        m_advances[character] = advance * unit;
    }
}

/// Letters are fitted into the width laid down for them; what is much narrower is put in its middle.
void StrokeFont::SetWidth(char32_t character, StrokeGlyph& glyph) const
{
    double right = 0;
    for (const Vec2 point : glyph.path.points) {
        right = std::max(right, point.x);
    }
    const bool blank = glyph.path.Empty();
    const auto known = m_advances.find(character);
    const double advance = known != m_advances.end() ? known->second : blank ? m_wordSpacing : right + m_letterSpacing;
    glyph.advance = advance / kCapital;
    glyph.gap = blank ? 0 : m_letterSpacing / kCapital;
    const double room = advance - m_letterSpacing;
    if (known == m_advances.end() || blank || room < 0) {
        return;
    }
    const double wider = right > 0 ? room / right : 0;
    const bool fits = wider > 0.5 && wider < 1.7;
    glyph.gap += fits ? 0 : (room - right) / 2 / kCapital;
    for (Vec2& point : glyph.path.points) {
        point.x = fits ? point.x * wider : point.x + (room - right) / 2;
    }
}

void StrokeFont::ReadSection(std::string_view section, StrokeGlyph& glyph, int depth) const
{
    while (!section.empty()) {
        const std::string_view line = TakeLine(section);
        if (!line.starts_with("C")) {
            ReadPolyline(line, glyph.path);
            continue;
        }
        const auto character = Hex(line.substr(1));
        const auto other = character ? m_sections.find(*character) : m_sections.end();
        if (other != m_sections.end() && depth < kDeepest) {
            ReadSection(other->second, glyph, depth + 1);
        }
    }
}

} // namespace sm::render
