// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Images.h"
#include "context/LaidTexts.h"
#include "context/Strokes.h"
#include "drawing/EntityKinds.h"
#include "drawing/entities/Texts.h"
#include "families/Families.h"
#include "render/ClipBox.h"
#include "render/Picture.h"

#include <algorithm>
#include <optional>
#include <string>

namespace sm::render {

namespace {

/// Where a picture lies on the sheet.
struct ImagePlace {
    Vec2 origin, u, v;  ///< lower-left corner; what a pixel (of an underlay: an inch) takes across and up
    Vec2 size;          ///< pixels or inches
    bool yDown = false; ///< the clip runs from the upper-left pixel's middle down
    [[nodiscard]] Vec2 At(Vec2 p) const { return origin + u * p.x + v * p.y; }
    [[nodiscard]] Matrix2 UnitSquare() const
    {
        return {u.x * size.x, u.y * size.x, v.x * size.y, v.y * size.y, origin.x, origin.y};
    }
    [[nodiscard]] Vec2 Millimetres() const { return {Length(u) * size.x, Length(v) * size.y}; }
};

constexpr std::uint32_t kPaper = 0xFFFFFF;
constexpr std::int32_t kShown = 1, kTransparent = 8;                ///< group 70 of IMAGE
constexpr std::int32_t kUnderlayShown = 2, kUnderlayMonochrome = 4; ///< group 280 of an underlay

ImagePlace PlaceOf(const drawing::ImageData& image, const Frame& frame, bool isUnderlay)
{
    const bool own = isUnderlay && !IsPlanExtrusion(image.extrusion);
    const Projection toPaper = own ? Compose(frame.toPaper, OcsAxes(image.extrusion)) : frame.toPaper;
    return {toPaper.Apply(image.insertion), toPaper.ApplyVector(image.u), toPaper.ApplyVector(image.v), image.size,
            !isUnderlay};
}

void AppendWhole(const ImagePlace& place, Path& path)
{
    const Vec2 size = place.size;
    path.MoveTo(place.At({0, 0}));
    path.LineTo(place.At({size.x, 0}));
    path.LineTo(place.At(size));
    path.LineTo(place.At({0, size.y}));
    path.Close();
}

/// The clip as a polygon; two points are corners of a rectangle.
void AppendClip(const drawing::ImageData& image, const ImagePlace& place, Path& path)
{
    std::vector<Vec2> corners = image.clip;
    if (corners.size() == 2) {
        corners = {corners[0], {corners[1].x, corners[0].y}, corners[1], {corners[0].x, corners[1].y}};
    }
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec2 p = place.yDown ? Vec2{corners[i].x + 0.5, place.size.y - corners[i].y - 0.5} : corners[i];
        i == 0 ? path.MoveTo(place.At(p)) : path.LineTo(place.At(p));
    }
    path.Close();
}

bool IsClipped(const drawing::ImageData& image)
{
    return image.clipping && image.clip.size() >= 2;
}

/// What shows of the picture; even-odd.
void AppendArea(const drawing::ImageData& image, const ImagePlace& place, Path& path)
{
    if (!IsClipped(image) || image.clipInverted) {
        AppendWhole(place, path);
    }
    if (IsClipped(image)) {
        AppendClip(image, place, path);
    }
}

PictureLook PictureLookOf(const drawing::ImageData& image)
{
    PictureLook look;
    look.brightness = image.brightness;
    look.contrast = image.contrast;
    look.fade = image.fade;
    look.clear = (image.flags & kTransparent) != 0;
    return look;
}

class Images final : public EntityPainter {
public:
    using EntityPainter::EntityPainter;
    Outcome Paint(const drawing::EntityRecord& record, const Frame& frame) override;

private:
    bool DrawImage();
    bool DrawUnderlay();
    bool DrawWipeout();
    void DrawPicture(const Picture& picture, const ImagePlace& place, bool opaque);
    void DrawMissing(const std::string& name, const ImagePlace& place);
    void StrokeFrame(const ImagePlace& place, std::int32_t setting);
    drawing::ImageData m_image;
};

Outcome Images::Paint(const drawing::EntityRecord& record, const Frame& frame)
{
    Read(m_drawing, record, m_image);
    if (m_context.Hidden(m_image, frame)) {
        return Outcome::Hidden;
    }
    m_context.Enter(m_image, record, frame);
    const bool possible = record.kind == drawing::EntityKind::Wipeout    ? DrawWipeout()
                          : record.kind == drawing::EntityKind::Underlay ? DrawUnderlay()
                                                                         : DrawImage();
    const bool drawn = m_ink.End();
    return !possible ? Outcome::NotDrawn : drawn ? Outcome::Drawn : Outcome::OffPage;
}

bool Images::DrawImage()
{
    const ImagePlace place = PlaceOf(m_image, *m_context.frame, false);
    const std::int32_t frames = m_context.switches.frames.image;
    if (m_context.options.boxesOnly || (m_image.flags & kShown) == 0) {
        StrokeFrame(place, frames);
        return true;
    }
    const drawing::ImageDefinition* definition = m_context.Referenced().Definition(m_image.definition);
    const auto picture = definition == nullptr ? nullptr
                                               : m_context.Referenced().PictureOf(*definition, PictureLookOf(m_image),
                                                                                  place.Millimetres(),
                                                                                  m_context.options.dotsPerMillimetre);
    if (picture == nullptr) {
        StrokeFrame(place, 1);
        DrawMissing(definition == nullptr ? "?" : definition->path, place);
        return false;
    }
    DrawPicture(*picture, place, (m_image.flags & kTransparent) == 0);
    StrokeFrame(place, frames);
    return true;
}

bool Images::DrawUnderlay()
{
    ImagePlace place = PlaceOf(m_image, *m_context.frame, true);
    if ((m_image.flags & kUnderlayShown) == 0) {
        return true;
    }
    const drawing::ImageDefinition* definition = m_context.Referenced().Definition(m_image.definition);
    References::PagePicture page;
    PictureLook look;
    look.contrast = m_image.contrast / 2;
    look.fade = m_image.fade;
    look.monochrome = (m_image.flags & kUnderlayMonochrome) != 0;
    look.clear = true;
    if (definition != nullptr) {
        page = m_context.Referenced().PageOf(
            *definition, look, m_context.options.boxesOnly ? 0 : std::max(Length(place.u), Length(place.v)));
    }
    place.size = page.size;
    if (!(page.size.x > 0)) {
        place.size = {8.27, 11.69}; // of a page that nobody knows
        StrokeFrame(place, 1);
        DrawMissing(definition == nullptr ? "?" : definition->path, place);
        return false;
    }
    if (page.picture != nullptr) {
        DrawPicture(*page.picture, place, false);
    }
    StrokeFrame(place, m_context.switches.frames.underlay);
    return true;
}

bool Images::DrawWipeout()
{
    const ImagePlace place = PlaceOf(m_image, *m_context.frame, false);
    if (!m_context.options.boxesOnly) {
        m_path.Clear();
        AppendArea(m_image, place, m_path);
        m_ink.Fill(m_path, kPaper, FillRule::EvenOdd);
    }
    StrokeFrame(place, m_context.switches.frames.wipeout);
    return true;
}

void Images::DrawPicture(const Picture& picture, const ImagePlace& place, bool opaque)
{
    m_path.Clear();
    AppendArea(m_image, place, m_path);
    if (m_ink.Bounded() && !Overlaps(HullOf(m_path), m_ink.Clip())) {
        return;
    }
    if (opaque && picture.form == Picture::Form::Mask) {
        m_ink.Fill(m_path, kPaper, FillRule::EvenOdd);
    }
    std::optional<Ink::ClipGuard> guard;
    if (IsClipped(m_image)) {
        guard.emplace(m_ink, m_path, FillRule::EvenOdd);
    }
    m_ink.Image(picture, place.UnitSquare(), m_context.style.color);
}

/// `setting` as in FrameSettings. For bounds the frame always counts.
void Images::StrokeFrame(const ImagePlace& place, std::int32_t setting)
{
    constexpr std::int32_t kPlotted = 1;
    if (m_context.options.boxesOnly || setting == kPlotted) {
        m_path.Clear();
        AppendArea(m_image, place, m_path);
        StrokePath(m_context);
    }
}

/// The file's name where its picture should be.
void Images::DrawMissing(const std::string& name, const ImagePlace& place)
{
    if (m_context.options.boxesOnly || name.empty()) {
        return;
    }
    drawing::TextData text;
    constexpr double kWidthOfLetter = 0.8; // of its height, on the safe side
    const double letters = static_cast<double>(name.size());
    text.text = name;
    text.height = std::min(place.size.y / 10, place.size.x / (letters + 2) / kWidthOfLetter);
    text.insertion = {text.height, place.size.y / 2, 0};
    if (!(text.height > 0)) {
        return;
    }
    Frame inPicture = *m_context.frame;
    inPicture.toPaper = {.x = place.u, .y = place.v, .origin = place.origin};
    const Frame* outer = m_context.frame;
    m_context.frame = &inPicture;
    DrawLaidText(m_context, m_context.text.Lay(m_drawing, text));
    m_context.frame = outer;
}

} // namespace

std::unique_ptr<EntityPainter> MakeImages(PaintContext& context, IWalk& walk)
{
    return std::make_unique<Images>(context, walk);
}

} // namespace sm::render
