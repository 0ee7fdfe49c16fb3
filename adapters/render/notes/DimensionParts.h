// SPDX-License-Identifier: GPL-3.0-or-later
// What all forms of dimensions share: their text, their arrows, and lines that end before the text.
#pragma once

#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/Texts.h"
#include "notes/DimensionText.h"
#include "notes/NotePicture.h"

namespace sm::render {

class DimensionParts {
public:
    DimensionParts(const drawing::DimensionData& dimension, const drawing::DimStyle& style, const NoteTools& tools,
                   NotePicture& picture);

    /// Where the drawing places the text; `fallback` where it doesn't.
    [[nodiscard]] Vec2 GivenPlace(Vec2 fallback) const;
    /// Places the text: `at` counts where the drawing gives no place (where the style has texts above lines, it is on
    /// the line below), `along` is the direction that the text follows unless it stays level.
    void SetText(const Measure& measure, const std::string& prefix, Vec2 at, Vec2 along, bool level);
    /// A part of the dimension line, without what the text covers.
    void AddDimensionLine(Vec2 from, Vec2 to);
    void AddExtensionLine(Vec2 from, Vec2 to);
    /// The first or second arrow; returns how much of the line it replaces.
    double AddHead(bool second, Vec2 tip, Vec2 direction);
    void Finish();

    [[nodiscard]] bool HasText() const { return m_hasText; }
    [[nodiscard]] Vec2 TextAt() const { return m_at; }
    [[nodiscard]] Vec2 TextSize() const { return m_size; }
    [[nodiscard]] bool TextInLine() const { return m_hasText && m_style.textAbove == 0; }
    [[nodiscard]] double Length(double styleLength) const { return styleLength * m_style.scale; }
    [[nodiscard]] double ArrowSize() const { return Length(m_style.arrowSize); }
    [[nodiscard]] double Gap() const { return Length(std::abs(m_style.textGap)); }
    [[nodiscard]] Vec2 ToPlane(Vec3 world) const { return m_picture.ToPlane(world); }
    [[nodiscard]] const drawing::DimStyle& Style() const { return m_style; }
    [[nodiscard]] const drawing::DimensionData& Data() const { return m_dimension; }
    [[nodiscard]] NotePicture& Picture() { return m_picture; }
    [[nodiscard]] const drawing::Entity& LinePen() const { return m_linePen; }

private:
    const drawing::DimensionData& m_dimension;
    const drawing::DimStyle& m_style;
    const NoteTools& m_tools;
    NotePicture& m_picture;
    drawing::Entity m_linePen, m_extensionPen;
    drawing::MTextData m_text;
    bool m_hasText = false;
    Vec2 m_at, m_size;
};

void BuildLinear(DimensionParts& parts);
void BuildOrdinate(DimensionParts& parts);
void BuildRadial(DimensionParts& parts);
void BuildAngular(DimensionParts& parts);

} // namespace sm::render
