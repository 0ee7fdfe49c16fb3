// SPDX-License-Identifier: GPL-3.0-or-later
// A text engine without fonts: one run a text, each letter 0.6 em wide, no formatting read.
#pragma once

#include "drawing/entities/Texts.h"
#include "render/Projection.h"
#include "render/TextLayout.h"

#include <numbers>

namespace sm::render {

class FakeTextEngine final : public TextEngine {
public:
    const LaidText& Lay(const drawing::Drawing&, const drawing::TextData& text) override
    {
        if (text.text == "throw") {
            throw std::runtime_error("no such font");
        }
        return Lay(text.text, {text.insertion.x, text.insertion.y}, text.insertion.z, text.height, text.rotation,
                   text.extrusion);
    }
    const LaidText& Lay(const drawing::Drawing&, const drawing::MTextData& text) override
    {
        const Matrix3 axes = OcsAxes(text.extrusion);
        const auto along = [&](Vec3 axis) {
            return axis.x * text.insertion.x + axis.y * text.insertion.y + axis.z * text.insertion.z;
        };
        return Lay(text.text, {along(axes.x), along(axes.y)}, along(axes.z), text.height, text.rotation,
                   text.extrusion);
    }
    const LaidText& Lay(std::string_view line, const LineLook&) override
    {
        return Lay(std::string(line), {}, 0, 1, 0, {0, 0, 1});
    }
    [[nodiscard]] std::vector<std::string> Substitutions() const override { return {}; }

private:
    const LaidText& Lay(const std::string& text, Vec2 at, double z, double height, double rotation, Vec3 extrusion)
    {
        m_laid = {};
        m_laid.elevation = z;
        m_laid.extrusion = extrusion;
        if (text.empty()) {
            return m_laid;
        }
        const double radians = rotation * std::numbers::pi / 180;
        const Vec2 right{height * std::cos(radians), height * std::sin(radians)};
        const Vec2 up{-right.y, right.x};
        GlyphPart part;
        part.run.text = text;
        part.run.advance = 0.6 * static_cast<double>(text.size());
        part.run.toPaper = {right.x, right.y, up.x, up.y, at.x, at.y};
        m_laid.outline = {at, at + right * part.run.advance, at + right * part.run.advance + up, at + up};
        m_laid.glyphs.push_back(part);
        return m_laid;
    }
    LaidText m_laid;
};

} // namespace sm::render
