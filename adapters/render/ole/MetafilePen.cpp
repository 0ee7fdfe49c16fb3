// SPDX-License-Identifier: GPL-3.0-or-later
#include "ole/MetafilePen.h"

#include "render/ClipBox.h"
#include "render/Projection.h"

#include <algorithm>
#include <cmath>

namespace sm::render {

void MetafilePen::Begin(Vec2 origin, Vec2 extent)
{
    const auto sound = [](double length) { return std::isfinite(length) && length != 0 ? length : 1.0; };
    state.origin = origin;
    state.extent = {sound(extent.x), sound(extent.y)};
    m_picture.width = std::abs(state.extent.x);
    m_picture.height = std::abs(state.extent.y);
    EndClip();
}

void MetafilePen::Restore(int which)
{
    const auto count = static_cast<int>(m_saved.size());
    const int index = which < 0 ? count + which : which - 1;
    if (index < 0 || index >= count) {
        return;
    }
    state = m_saved[static_cast<std::size_t>(index)];
    m_saved.resize(static_cast<std::size_t>(index));
}

void MetafilePen::Select(const MetaObject& object)
{
    if (const auto* pen = std::get_if<MetaPen>(&object)) {
        state.pen = *pen;
    } else if (const auto* brush = std::get_if<MetaBrush>(&object)) {
        state.brush = *brush;
    } else if (const auto* font = std::get_if<MetaFont>(&object)) {
        state.font = *font;
    }
}

void MetafilePen::ClipTo(Vec2 a, Vec2 b)
{
    Box2 box;
    box.Add(Map(a));
    box.Add(Map(b));
    state.clip = Intersection(state.clip, box);
}

void MetafilePen::EndClip()
{
    state.clip = {{0, 0}, {m_picture.width, m_picture.height}};
}

Vec2 MetafilePen::Map(Vec2 logical) const
{
    if (state.map) {
        return state.map->Apply(logical);
    }
    const Vec2 from = logical - state.origin;
    return {from.x / state.extent.x * m_picture.width, m_picture.height - from.y / state.extent.y * m_picture.height};
}

double MetafilePen::Scale() const
{
    return state.map ? Length(state.map->ApplyVector({0, 1})) : std::abs(m_picture.height / state.extent.y);
}

OleStep& MetafilePen::Add()
{
    OleStep& step = m_picture.steps.emplace_back();
    step.clip = state.clip;
    return step;
}

void MetafilePen::Fill(const Path& path)
{
    if (!state.brush.none) {
        Fill(path, state.brush.color);
    }
}

void MetafilePen::Fill(const Path& path, std::uint32_t color)
{
    if (state.clip.Empty() || path.Empty()) {
        return;
    }
    OleStep& step = Add();
    step.path = path;
    step.filled = true;
    step.rule = state.rule;
    step.color = color;
}

void MetafilePen::Stroke(const Path& path)
{
    if (state.pen.none || state.clip.Empty() || path.Empty()) {
        return;
    }
    OleStep& step = Add();
    step.path = path;
    step.color = state.pen.color;
    step.width = state.pen.width * Scale();
}

void MetafilePen::Text(const std::string& utf8, Vec2 at, double advance)
{
    // Parts of the letters' height that most fonts have between their base line and the ends of their lines.
    constexpr double kAscent = 0.905, kDescent = 0.212, kUsual = 12;
    constexpr unsigned kUpdates = 1, kColumns = 6, kMiddle = 6, kEnd = 2, kRows = 24, kBottom = 8, kBaseLine = 24;
    if (utf8.empty() || state.clip.Empty()) {
        return;
    }
    const MetaFont& font = state.font;
    OleText text;
    text.em = Scale() * (font.height < 0   ? -font.height
                         : font.height > 0 ? font.height / (kAscent + kDescent)
                                           : kUsual);
    text.text = utf8;
    text.family = font.family;
    text.bold = font.bold;
    text.italic = font.italic;
    text.underline = font.underline;
    text.struckOut = font.struckOut;
    text.degrees = font.degrees;
    text.width = Length(Map({std::abs(advance), 0}) - Map({0, 0}));
    const unsigned column = state.textAlign & kColumns, row = state.textAlign & kRows;
    text.column = column == kMiddle ? 1 : column == kEnd ? 2 : 0;
    const double drop = row == kBaseLine ? 0 : row == kBottom ? kDescent : -kAscent;
    const double turn = font.degrees * (3.14159265358979323846 / 180);
    const Vec2 place = Map((state.textAlign & kUpdates) != 0 ? state.at : at);
    text.at = place + Vec2{-std::sin(turn), std::cos(turn)} * (drop * text.em);
    if ((state.textAlign & kUpdates) != 0) {
        state.at.x += advance;
    }
    OleStep& step = Add();
    step.color = state.textColor;
    step.text = std::move(text);
}

bool MetafilePen::Paint(std::uint32_t operation, Vec2 corner, Vec2 size)
{
    constexpr std::uint32_t kBrush = 0xF00021, kBlack = 0x42, kWhite = 0xFF0062;
    if (operation != kBrush && operation != kBlack && operation != kWhite) {
        return false;
    }
    const Path box = BoxOf(corner, size);
    if (operation == kBrush) {
        Fill(box);
    } else {
        Fill(box, operation == kBlack ? 0 : 0xFFFFFF);
    }
    return true;
}

/// On the picture's plane.
Path MetafilePen::BoxOf(Vec2 corner, Vec2 size) const
{
    Box2 box;
    box.Add(Map(corner));
    box.Add(Map(corner + size));
    Path path;
    AppendBox(path, box);
    return path;
}

void MetafilePen::Image(std::string_view dib, Vec2 corner, Vec2 size)
{
    auto picture = ReadDib(dib);
    if (picture == nullptr) {
        LeaveOut();
        return;
    }
    const Vec2 upper = Map(corner), lower = Map(corner + size);
    if (picture->form == Picture::Form::Mask) {
        Fill(BoxOf(corner, size), 0xFFFFFF);
    }
    OleStep& step = Add();
    step.picture = std::move(picture);
    step.place = {lower.x - upper.x, 0, 0, upper.y - lower.y, upper.x, lower.y};
}

} // namespace sm::render
