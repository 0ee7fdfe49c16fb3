// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/MultiLeaderReader.h"

#include "drawing/entities/DimStyles.h"
#include "drawing/entities/MultiLeaders.h"
#include "notes/RawColor.h"

namespace sm::drawing {

namespace {

// Which values of the entity (90) or of a leader line (93) count in place of the style's.
constexpr std::int32_t kOwnForm = 1, kOwnColor = 2, kOwnLinetype = 4, kOwnLineweight = 8;
constexpr std::int32_t kOwnLanding = 0x10, kOwnDogleg = 0x40, kOwnArrow = 0x100, kOwnFrame = 0x20000;
constexpr std::int32_t kLineArrowSize = 0x10, kLineArrow = 0x20;

/// `given` where a line goes its own way, in place of what all lines share.
void TakeOwnLook(MultiLeaderData::Line& line, const Entity& shared, std::int32_t flags)
{
    const Entity given = line.pen;
    line.pen = shared;
    if ((flags & kOwnColor) != 0) {
        line.pen.color = given.color;
        line.pen.trueColor = given.trueColor;
    }
    line.pen.linetype = (flags & kOwnLinetype) != 0 ? given.linetype : shared.linetype;
    line.pen.lineweight = (flags & kOwnLineweight) != 0 ? given.lineweight : shared.lineweight;
}

} // namespace

void MultiLeaderReader::TakeStyleTag(const TagCursor& tag)
{
    switch (tag.Code()) {
    case 173:
        m_style.leaderForm = tag.Integer();
        break;
    case 91:
        SetRawColor(m_style.pen, tag.Integer());
        break;
    case 340:
        m_style.pen.linetype = m_drawing.Tags().LinetypeOfHandle(tag.HandleValue());
        break;
    case 92:
        m_style.pen.lineweight = BoundLineweight(tag.Integer());
        break;
    case 290:
        m_style.landing = tag.Integer() != 0;
        break;
    case 291:
        m_style.dogleg = tag.Integer() != 0;
        break;
    case 341:
        m_style.arrow = tag.HandleValue();
        break;
    case 292:
        m_style.frame = tag.Integer() != 0;
        break;
    default:
        break;
    }
}

void MultiLeaderReader::ReadStyle()
{
    const Drawing::Source& source = m_drawing.Tags();
    const auto found = source.noteStyles.find(m_styleHandle);
    if (m_styleHandle == 0 || found == source.noteStyles.end()) {
        m_style = m_own;
        return;
    }
    TagCursor tags = source.TagsOf(found->second);
    bool inBraces = false;
    while (tags.Next() && tags.Code() < 1000) {
        if (tags.Code() == 102)
            inBraces = tags.Name().starts_with('{');
        else if (!inBraces)
            TakeStyleTag(tags);
    }
}

void MultiLeaderReader::FinishLines(Handle sharedArrow)
{
    const ArrowHead arrow = ArrowHeadOf(m_drawing, sharedArrow);
    std::size_t i = 0;
    for (MultiLeaderData::Leader& leader : m_data.leaders) {
        for (MultiLeaderData::Line& line : leader.lines) {
            const LineChanges& own = m_lines[i++];
            TakeOwnLook(line, m_data.pen, own.flags);
            line.arrowSize = (own.flags & kLineArrowSize) != 0 ? own.arrowSize : m_arrowSize;
            line.arrow = (own.flags & kLineArrow) != 0 ? ArrowHeadOf(m_drawing, own.arrow) : arrow;
        }
    }
}

void MultiLeaderReader::Finish()
{
    ReadStyle();
    const auto look = [this](std::int32_t flag) -> const Look& { return (m_flags & flag) != 0 ? m_own : m_style; };
    const std::int32_t form = look(kOwnForm).leaderForm;
    constexpr std::int32_t kHidden = 0, kSpline = 2;
    m_data.hidden = form == kHidden;
    m_data.spline = form == kSpline;
    m_data.dogleg = look(kOwnLanding).landing && look(kOwnDogleg).dogleg;
    m_data.textFrame = look(kOwnFrame).frame;
    Entity& pen = m_data.pen;
    pen.color = look(kOwnColor).pen.color;
    pen.trueColor = look(kOwnColor).pen.trueColor;
    pen.linetype = look(kOwnLinetype).pen.linetype;
    pen.lineweight = look(kOwnLineweight).pen.lineweight;
    FinishLines(look(kOwnArrow).arrow);
    const bool text = m_hasText && !m_data.text.text.empty();
    const bool block = m_hasBlock && m_data.block.block != kNoBlock;
    using Content = MultiLeaderData::Content;
    m_data.content = text ? Content::Text : block ? Content::Block : Content::None;
    DecodeCarets(m_data.text.text);
}

} // namespace sm::drawing
