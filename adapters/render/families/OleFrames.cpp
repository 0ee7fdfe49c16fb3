// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/OleFrames.h"
#include "context/LaidTexts.h"
#include "drawing/entities/Graphics.h"
#include "drawing/entities/Texts.h"
#include "families/Families.h"
#include "geometry/MappedPath.h"
#include "ole/OlePicture.h"
#include "render/ClipBox.h"

#include <cmath>
#include <optional>

namespace sm::render {

namespace {

/// Objects of other programs by the picture that they were last shown by; its colours stay as they are.
class OleFrames final : public EntityPainter {
public:
    using EntityPainter::EntityPainter;
    Outcome Paint(const drawing::EntityRecord& record, const Frame& frame) override;

private:
    bool Draw(const drawing::OleFrameData& object, const drawing::EntityRecord& record);
    bool DrawFrame(const drawing::EntityRecord& record);
    void DrawStep(const OleStep& step);
    void DrawText(const OleText& text);
    Box2 m_whole;       ///< the picture's plane
    Matrix2 m_toPaper;  ///< of the picture's plane
    Projection m_space; ///< the same in space, for texts
};

/// The characters that mean something in the formatting of MTEXT.
std::string Escaped(const std::string& text)
{
    std::string escaped;
    for (const char c : text) {
        escaped += c == '\\' || c == '{' || c == '}' ? std::string("\\") + c : c == '^' ? "^ " : std::string(1, c);
    }
    return escaped;
}

drawing::MTextData MTextOf(const OleText& text, double narrowing)
{
    constexpr double kCapitals = 0.716; // of the em: the height that a text is measured by
    constexpr std::int32_t kBottomLeft = 7;
    drawing::MTextData mtext;
    mtext.insertion = {text.at.x, text.at.y, 0};
    mtext.height = text.em * kCapitals;
    mtext.rotation = text.degrees;
    mtext.attachment = kBottomLeft + text.column;
    mtext.text = "\\f" + text.family + "|b" + (text.bold ? "1" : "0") + "|i" + (text.italic ? "1" : "0") + ";";
    if (narrowing != 1) {
        mtext.text += "\\W" + std::to_string(narrowing) + ";";
    }
    mtext.text += std::string(text.underline ? "\\L" : "") + (text.struckOut ? "\\K" : "") + Escaped(text.text);
    return mtext;
}

Outcome OleFrames::Paint(const drawing::EntityRecord& record, const Frame& frame)
{
    drawing::OleFrameData object;
    Read(m_drawing, record, object);
    if (m_context.Hidden(object, frame)) {
        return Outcome::Hidden;
    }
    m_context.Enter(object, record, frame);
    const bool possible = Draw(object, record);
    const bool drawn = m_ink.End();
    return !possible ? Outcome::NotDrawn : drawn ? Outcome::Drawn : Outcome::OffPage;
}

/// What has no picture may still bring graphics of its own along, which are drawn in its place.
bool OleFrames::DrawFrame(const drawing::EntityRecord& record)
{
    drawing::GraphicsData graphics;
    Read(m_drawing, record, graphics);
    if (graphics.steps.empty()) {
        StrokePath(m_context);
        m_context.Remark("an object of another program without a picture that can be read drawn as its frame");
    }
    return false;
}

bool OleFrames::Draw(const drawing::OleFrameData& object, const drawing::EntityRecord& record)
{
    std::array<Vec2, 4> corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        corners[i] = ToPaper().Apply(object.corners[i]);
        i == 0 ? m_path.MoveTo(corners[i]) : m_path.LineTo(corners[i]);
    }
    m_path.Close();
    if (m_context.options.boxesOnly) {
        StrokePath(m_context);
        return true;
    }
    const OlePicture picture = ReadOlePicture(object.object);
    if (picture.Empty() || !(picture.width > 0) || !(picture.height > 0)) {
        return DrawFrame(record);
    }
    if (m_ink.Bounded() && !Overlaps(HullOf(m_path), m_ink.Clip())) {
        return true;
    }
    const Vec2 u = (corners[2] - corners[3]) * (1 / picture.width),
               v = (corners[0] - corners[3]) * (1 / picture.height);
    m_whole = {{0, 0}, {picture.width, picture.height}};
    m_toPaper = {u.x, u.y, v.x, v.y, corners[3].x, corners[3].y};
    m_space = {.x = u, .y = v, .origin = corners[3]};
    const Path outline = m_path;
    const Ink::ClipGuard guard(m_ink, outline, FillRule::NonZero);
    for (const OleStep& step : picture.steps) {
        DrawStep(step);
    }
    if (picture.leftOut > 0) {
        m_context.Remark("a part of the picture of another program's object left out");
    }
    return true;
}

void OleFrames::DrawStep(const OleStep& step)
{
    std::optional<Ink::ClipGuard> guard;
    if (step.clip != m_whole) {
        Path clip;
        AppendBox(clip, step.clip);
        for (Vec2& point : clip.points) {
            point = m_toPaper.Apply(point);
        }
        guard.emplace(m_ink, clip, FillRule::NonZero);
    }
    m_context.style.color = step.color;
    if (step.text) {
        DrawText(*step.text);
        return;
    }
    if (step.picture != nullptr) {
        m_ink.Image(*step.picture, Compose(m_toPaper, step.place), 0);
        return;
    }
    m_path.Clear();
    AppendMapped(m_path, step.path, m_toPaper);
    if (step.filled) {
        m_ink.Fill(m_path, step.color, step.rule);
        return;
    }
    Pen pen;
    pen.color = step.color;
    pen.width = step.width * Length(m_toPaper.ApplyVector({1, 0}));
    m_ink.Stroke(m_path, pen);
}

/// In the width that its program gave it, so that its columns stay.
void OleFrames::DrawText(const OleText& text)
{
    Frame onPicture = *m_context.frame;
    onPicture.toPaper = m_space;
    const Frame* const outer = m_context.frame;
    m_context.frame = &onPicture;
    const drawing::MTextData plain = MTextOf(text, 1);
    const LaidText* laid = &m_context.text.Lay(m_drawing, plain);
    const double width = laid->outline.size() == 4 ? Length(laid->outline[1] - laid->outline[0]) : 0;
    constexpr double kSlack = 0.02, kMost = 2;
    const double narrowing = width > 0 && text.width > 0 ? text.width / width : 1;
    if (std::abs(narrowing - 1) > kSlack && narrowing < kMost && narrowing > 1 / kMost) {
        const drawing::MTextData fitted = MTextOf(text, narrowing);
        laid = &m_context.text.Lay(m_drawing, fitted);
    }
    DrawLaidText(m_context, *laid);
    m_context.frame = outer;
}

} // namespace

std::unique_ptr<EntityPainter> MakeOleFrames(PaintContext& context, IWalk& walk)
{
    return std::make_unique<OleFrames>(context, walk);
}

} // namespace sm::render
