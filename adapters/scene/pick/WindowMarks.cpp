// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/WindowMarks.h"

#include "base/files/Paths.h"
#include "render/ClipBox.h"
#include "scene/PickTexts.h"

#include <cmath>
#include <utility>

namespace sm::scene {
namespace {

using beside::PageMark;

constexpr const char* kHowToEdit =
    "Drag a mark to its place; double-click it, or press Edit, to change it. Escape ends.";
constexpr double kMoved = 3;  // pixels, below which a press is no drag
constexpr double kReach = 2;  // pixels beside a mark that take it, too
constexpr double kAround = 3; // pixels between a mark and its frame

std::string TitleOf(const PageMark& mark)
{
    switch (mark.kind) {
    case beside::PageMarkKind::Stamp:
        return "Stamp " + mark.text;
    case beside::PageMarkKind::Attachment:
        return "Attachment " + base::ToText(base::ToPath(mark.text).filename());
    case beside::PageMarkKind::Field:
        return "Signature field " + mark.text;
    case beside::PageMarkKind::Link:
        break;
    }
    return mark.text;
}

} // namespace

void WindowMarks::Show(std::vector<PageMark> marks, std::optional<PageMark> atCursor)
{
    m_shown = std::move(marks);
    m_atCursor = std::move(atCursor);
    m_view.Redraw();
}

void WindowMarks::Use(beside::IMarkBoard* board)
{
    m_board = board;
    m_view.marks = {};
    m_edited.clear();
    m_from.reset();
    m_chosen.reset();
    if (board == nullptr)
        return;
    m_view.marks.press = [this](Vec2 pixel) { Grab(pixel); };
    m_view.marks.move = [this](Vec2 pixel) { Drag(pixel); };
    m_view.marks.release = [this](Vec2 pixel) { Drop(pixel); };
    m_view.marks.twice = [this](Vec2 pixel) {
        Grab(pixel);
        m_from.reset();
        EditChosen();
    };
    Fill();
}

void WindowMarks::LayoutIs(const std::string& layout)
{
    m_layout = layout;
    m_chosen.reset();
    m_from.reset();
    if (m_board != nullptr)
        Fill();
}

void WindowMarks::PictureIs(std::shared_ptr<const LayoutPicture> picture)
{
    m_picture = std::move(picture);
    m_from.reset();
}

void WindowMarks::Fill()
{
    m_edited = m_board->MarksOn(m_layout);
    std::vector<std::string> titles;
    for (const PageMark& mark : m_edited)
        titles.push_back(TitleOf(mark));
    m_pane.ListMarks(titles);
    m_pane.ShowHint(m_edited.empty() ? "This layout has no marks." : kHowToEdit);
    Choose(m_chosen);
}

void WindowMarks::Choose(std::optional<std::size_t> mark)
{
    m_chosen = mark && *mark < m_edited.size() ? mark : std::nullopt;
    m_pane.ShowChosen(m_chosen);
    m_view.Redraw();
}

std::vector<PageMark> WindowMarks::InScene() const
{
    if (m_picture == nullptr)
        return {};
    std::vector<PageMark> marks = m_board != nullptr ? m_edited : m_shown;
    if (m_from && m_chosen) {
        marks[*m_chosen].from = marks[*m_chosen].from + m_by;
        marks[*m_chosen].to = marks[*m_chosen].to + m_by;
    }
    if (m_board == nullptr && m_atCursor && m_view.Cursor()) {
        marks.push_back(*m_atCursor);
        marks.back().from = marks.back().to = m_picture->map.ToDrawing(*m_view.Cursor());
    }
    return MarksInScene(std::move(marks), *m_picture, m_view.Map(), m_view.OnBackdrop());
}

std::optional<Box2> WindowMarks::Frame() const
{
    if (m_board == nullptr || m_picture == nullptr || !m_chosen)
        return std::nullopt;
    return render::Grown(m_pane.BoxOf(InScene()[*m_chosen]), kAround);
}

/// The last one is painted over the others.
std::optional<std::size_t> WindowMarks::MarkAt(Vec2 pixel) const
{
    const std::vector<PageMark> marks = InScene();
    for (std::size_t i = marks.size(); i-- > 0;)
        if (render::Contains(render::Grown(m_pane.BoxOf(marks[i]), kReach), {pixel, pixel}))
            return i;
    return std::nullopt;
}

void WindowMarks::Grab(Vec2 pixel)
{
    m_from.reset();
    Choose(MarkAt(pixel));
    if (m_chosen)
        m_from = m_view.Map().ToScene(pixel);
    m_by = {};
}

void WindowMarks::Drag(Vec2 pixel)
{
    if (!m_from || m_picture == nullptr)
        return;
    const Vec2 to = m_view.Map().ToScene(pixel);
    m_by = m_picture->map.ToDrawing(to) - m_picture->map.ToDrawing(*m_from);
    m_view.Redraw();
}

void WindowMarks::Drop(Vec2 pixel)
{
    if (!m_from || m_board == nullptr)
        return;
    const Vec2 from = m_view.Map().ToPixel(*m_from);
    Drag(pixel);
    m_from.reset();
    const bool isMoved = std::hypot(pixel.x - from.x, pixel.y - from.y) >= kMoved;
    if (isMoved && m_chosen)
        Tell(m_board->Move(m_layout, *m_chosen, m_by));
}

void WindowMarks::EditChosen()
{
    if (m_board != nullptr && m_chosen && m_pane.EditMark(*m_board, m_layout, *m_chosen))
        Tell({});
}

void WindowMarks::Tell(const std::string& reason)
{
    Fill();
    if (reason.empty())
        return;
    m_pane.ShowHint(reason);
    m_pane.Beep();
}

} // namespace sm::scene
