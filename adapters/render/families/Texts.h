// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that other families draw as well.
#pragma once

#include "drawing/entities/Texts.h"
#include "families/EntityPainter.h"

namespace sm::render {

/// With its mask, in the style of the entity at hand.
void DrawMText(PaintContext& context, const drawing::MTextData& text);

/// ATTRIB and ATTDEF.
class Attributes final : public EntityPainter {
public:
    using EntityPainter::EntityPainter;
    Outcome Paint(const drawing::EntityRecord& record, const Frame& frame) override;
    /// `text`: what `record` holds, or what another entity makes of it.
    Outcome PaintText(const drawing::TextData& text, const drawing::EntityRecord& record, const Frame& frame);

private:
    [[nodiscard]] bool StandsLoose() const;
    Outcome PaintTag(const drawing::EntityRecord& record, const Frame& frame);
    drawing::TextData m_text;
    drawing::MTextData m_mtext;
};

} // namespace sm::render
