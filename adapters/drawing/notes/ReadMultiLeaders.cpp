// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/MultiLeaderReader.h"

#include "drawing/entities/Inserts.h"
#include "drawing/entities/MultiLeaders.h"
#include "drawing/entities/Texts.h"
#include "notes/RawColor.h"

#include <numbers>

namespace sm::drawing {

namespace {

constexpr double kDegrees = 180 / std::numbers::pi;

/// Of an MTEXT's background.
constexpr std::int32_t kFilled = 1, kPaperColored = 2;

/// Gaps come as pairs of points, whose x have the codes `first` and the one after it.
bool TakeGap(const EntityTags& tags, int first, std::vector<MultiLeaderData::Gap>& gaps)
{
    if (tags.Code() == first)
        gaps.emplace_back();
    return !gaps.empty() && (tags.Take(first, gaps.back().start) || tags.Take(first + 1, gaps.back().end));
}

} // namespace

void MultiLeaderReader::TakeTextTag(const EntityTags& tags)
{
    MTextData& text = m_data.text;
    if (tags.Take(11, text.extrusion) || tags.Take(12, text.insertion))
        return;
    if (tags.Take(13, text.direction)) {
        text.hasDirection = true;
        return;
    }
    switch (tags.Code()) {
    case 304:
        tags.Source().text->Append(tags.RawText(), text.text);
        break;
    case 340:
        text.style = tags.Source().StyleOfHandle(tags.HandleValue());
        break;
    case 41:
        text.height = tags.Real();
        break;
    case 43:
        text.width = tags.Real();
        break;
    case 45:
        text.lineSpacing = tags.Real();
        break;
    case 170:
        text.lineSpacingStyle = tags.Integer();
        break;
    case 171: // 1 left, 2 middle, 3 right
        text.attachment = std::clamp(tags.Integer(), 1, 3);
        break;
    case 90:
        SetRawColor(text, tags.Integer());
        break;
    default:
        break;
    }
}

void MultiLeaderReader::TakeBlockTag(const EntityTags& tags)
{
    InsertData& block = m_data.block;
    if (tags.Take(14, block.extrusion) || tags.Take(15, block.insertion) || tags.Take(16, block.scale))
        return;
    switch (tags.Code()) {
    case 341:
        block.block = tags.Source().BlockOfHandle(tags.HandleValue());
        break;
    case 46:
        block.rotation = tags.Real() * kDegrees;
        break;
    case 93:
        SetRawColor(block, tags.Integer());
        break;
    default:
        break;
    }
}

void MultiLeaderReader::TakeContextTag(const EntityTags& tags)
{
    MTextData& text = m_data.text;
    switch (tags.Code()) {
    case 140:
        m_arrowSize = tags.Real();
        break;
    case 145:
        m_data.landingGap = tags.Real();
        break;
    case 174:
        m_data.leftAttachment = tags.Integer();
        break;
    case 175:
        m_data.rightAttachment = tags.Integer();
        break;
    case 290:
        m_hasText = tags.Integer() != 0;
        break;
    case 296:
        m_hasBlock = tags.Integer() != 0;
        break;
    case 91: {
        Entity color;
        SetRawColor(color, tags.Integer());
        text.backgroundColor = color.color;
        text.backgroundTrueColor = color.trueColor;
        m_paperBackground = IsPaperColor(tags.Integer());
        break;
    }
    case 141:
        text.backgroundScale = tags.Real();
        break;
    case 291:
        text.backgroundFlags |= tags.Integer() == 0 ? 0 : m_paperBackground ? kPaperColored : kFilled;
        break;
    case 292:
        text.backgroundFlags |= tags.Integer() == 0 ? 0 : kPaperColored;
        break;
    default:
        TakeTextTag(tags);
        TakeBlockTag(tags);
    }
}

void MultiLeaderReader::TakeLeaderTag(const EntityTags& tags)
{
    MultiLeaderData::Leader& leader = m_data.leaders.back();
    if (tags.Take(10, leader.end) || tags.Take(11, leader.dogleg) || TakeGap(tags, 12, leader.gaps))
        return;
    if (tags.Code() == 290)
        leader.hasEnd = tags.Integer() != 0;
    else if (tags.Code() == 40)
        leader.doglegLength = tags.Real();
    else if (tags.Code() == 271)
        leader.vertical = tags.Integer() == 1;
}

void MultiLeaderReader::TakeLineTag(const EntityTags& tags)
{
    MultiLeaderData::Line& line = m_data.leaders.back().lines.back();
    if (TakeGap(tags, 11, line.gaps))
        return;
    switch (tags.Code()) {
    case 10:
        line.vertices.push_back({tags.Real(), 0, 0});
        break;
    case 20:
    case 30:
        if (!line.vertices.empty())
            tags.Take(10, line.vertices.back());
        break;
    case 40:
        m_lines.back().arrowSize = tags.Real();
        break;
    case 92:
        SetRawColor(line.pen, tags.Integer());
        break;
    case 93:
        m_lines.back().flags = tags.Integer();
        break;
    case 171:
        line.pen.lineweight = BoundLineweight(tags.Integer());
        break;
    case 340:
        line.pen.linetype = tags.Source().LinetypeOfHandle(tags.HandleValue());
        break;
    case 341:
        m_lines.back().arrow = tags.HandleValue();
        break;
    default:
        break;
    }
}

void MultiLeaderReader::TakeContentTag(const EntityTags& tags)
{
    switch (tags.Code()) {
    case 330:
        m_data.attributes.push_back({.definition = tags.HandleValue(), .text = {}});
        break;
    case 302:
        if (!m_data.attributes.empty())
            DecodeText(tags.Source(), tags.RawText(), m_data.attributes.back().text);
        break;
    case 292:
        m_own.frame = tags.Integer() != 0;
        break;
    default:
        break;
    }
}

void MultiLeaderReader::TakeEntityTag(const EntityTags& tags)
{
    switch (tags.Code()) {
    case 100:
        m_inClass = tags.Name() == "AcDbMLeader";
        break;
    case 340:
        m_styleHandle = tags.HandleValue();
        break;
    case 90:
        m_flags = tags.Integer();
        break;
    case 170:
        m_own.leaderForm = tags.Integer();
        break;
    case 91:
        SetRawColor(m_own.pen, tags.Integer());
        break;
    case 341:
        m_own.pen.linetype = tags.Source().LinetypeOfHandle(tags.HandleValue());
        break;
    case 171:
        m_own.pen.lineweight = BoundLineweight(tags.Integer());
        break;
    case 290:
        m_own.landing = tags.Integer() != 0;
        break;
    case 291:
        m_own.dogleg = tags.Integer() != 0;
        break;
    case 342:
        m_own.arrow = tags.HandleValue();
        break;
    default:
        TakeContentTag(tags);
    }
}

/// "300 CONTEXT_DATA{" opens the context, 302 a leader in it, 304 a line in that; 301, 303 and 305 close them.
bool MultiLeaderReader::ChangePart(const EntityTags& tags)
{
    const int code = tags.Code();
    const auto is = [&](Part part, int wanted, std::string_view text) {
        return m_part == part && code == wanted && tags.Name() == text;
    };
    if (is(Part::Entity, 300, "CONTEXT_DATA{") || is(Part::Leader, 303, "}")) {
        m_part = Part::Context;
    } else if (is(Part::Context, 302, "LEADER{")) {
        m_part = Part::Leader;
        m_data.leaders.emplace_back();
    } else if (is(Part::Leader, 304, "LEADER_LINE{")) {
        m_part = Part::Line;
        m_data.leaders.back().lines.emplace_back();
        m_lines.emplace_back();
    } else if (is(Part::Line, 305, "}")) {
        m_part = Part::Leader;
    } else if (is(Part::Context, 301, "}")) {
        m_part = Part::Entity;
    } else {
        return false;
    }
    return true;
}

void MultiLeaderReader::Run(const EntityRecord& record)
{
    EntityTags tags(m_drawing.Tags(), record);
    while (tags.Next()) {
        if (ChangePart(tags))
            continue;
        if (m_part == Part::Context)
            TakeContextTag(tags);
        else if (m_part == Part::Leader)
            TakeLeaderTag(tags);
        else if (m_part == Part::Line)
            TakeLineTag(tags);
        else if (m_inClass || tags.Code() == 100)
            TakeEntityTag(tags);
        else
            tags.TakeCommon(m_data);
    }
    Finish();
}

void Read(const Drawing& drawing, const EntityRecord& record, MultiLeaderData& data)
{
    data = {};
    data.block.block = kNoBlock;
    MultiLeaderReader(drawing, data).Run(record);
}

} // namespace sm::drawing
