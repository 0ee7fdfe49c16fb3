// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/DrawingPicks.h"

#include "base/files/Paths.h"
#include "drawing/Drawing.h"
#include "render/TextLayout.h"

#include <stdexcept>
#include <utility>

namespace sm::scene {

DrawingPicks::DrawingPicks(const DrawingWindowOptions& options, std::unique_ptr<IPickScreen> screen)
    : m_recorder{options.references, options.shareFolder}, m_sheets(options.sheets), m_ownScreen(std::move(screen)),
      m_screen(*m_ownScreen)
{
}

DrawingPicks::~DrawingPicks() = default;

void DrawingPicks::EditMarks(const drawing::Drawing& drawing, std::size_t layout, beside::IMarkBoard& board)
{
    m_board = &board;
    try {
        Pick(drawing, layout, std::nullopt, {});
    } catch (...) {
        m_board = nullptr;
        throw;
    }
    m_board = nullptr;
    m_screen.HideNow(); // what is asked next must not belong to a window that goes
}

void DrawingPicks::Forget(const drawing::Drawing& drawing)
{
    if (!m_shelf.Holds(drawing))
        return;
    m_shelf.Clear();
    m_shown.reset();
    if (m_screen.Window() != nullptr)
        m_screen.Window()->SetPicture(nullptr);
}

std::optional<Vec2> DrawingPicks::Pick(const drawing::Drawing& drawing, std::size_t& layout, std::optional<Vec2> first,
                                       const std::string& prompt)
{
    if (m_picking)
        throw std::runtime_error("a point is being picked already");
    m_screen.Keep();
    m_picking = true;
    try {
        Waiting waiting{drawing, layout};
        waiting.isCorner = first.has_value();
        const auto point = PickIn(waiting, first, prompt);
        Leave();
        return point;
    } catch (...) {
        Leave();
        throw;
    }
}

std::optional<Vec2> DrawingPicks::PickIn(Waiting& waiting, std::optional<Vec2> first, const std::string& prompt)
{
    m_shelf.DrawingIs(waiting.drawing);
    if (m_screen.Window() == nullptr) {
        m_screen.Open();
        m_shown.reset();
    }
    IPickWindow& window = *m_screen.Window();
    window.onTurn = [this, &waiting](std::size_t layout) {
        if (layout != waiting.layout)
            TurnTo(waiting, layout);
    };
    std::vector<std::string> names;
    for (const drawing::Layout& layout : waiting.drawing.Layouts())
        names.push_back(layout.name);
    window.SetTabs(names, waiting.layout);
    Show(waiting);
    std::optional<Vec2> point;
    m_board != nullptr ? window.EditMarks(*m_board) : static_cast<void>(point = window.Pick(prompt, first));
    window.onTurn = nullptr;
    waiting.recorder.reset();
    if (waiting.error != nullptr)
        std::rethrow_exception(waiting.error);
    return point;
}

void DrawingPicks::TurnTo(Waiting& waiting, std::size_t layout)
{
    KeepView();
    waiting.recorder.reset();
    waiting.layout = layout;
    Show(waiting);
}

void DrawingPicks::ShowNames(const Waiting& waiting)
{
    IPickWindow& window = *m_screen.Window();
    const std::string file = base::ToText(base::ToPath(waiting.drawing.Path()).filename());
    const std::string& name = waiting.drawing.Layouts().at(waiting.layout).name;
    window.SetLayout(name);
    if (beside::ISheetList* const sheets = m_sheets ? m_sheets() : nullptr)
        window.SetMarks(sheets->MarksOn(name), waiting.isCorner ? std::nullopt : sheets->StampAtHand());
    window.SetTitle(file + " – " + name + " – Tarnwick Sheetmaker PDF");
}

void DrawingPicks::Show(Waiting& waiting)
{
    ShowNames(waiting);
    IPickWindow& window = *m_screen.Window();
    const PictureShelf::Entry* const kept = m_shelf.Find(waiting.layout);
    if (kept == nullptr)
        return Record(waiting);
    if (m_shown == waiting.layout && window.IsUp())
        return;
    m_shown = waiting.layout;
    window.SetPicture(kept->picture);
    if (kept->view)
        window.GoBackTo(*kept->view);
}

void DrawingPicks::Record(Waiting& waiting)
{
    m_shown.reset();
    m_screen.Window()->SetPicture(nullptr);
    const auto done = [this, &waiting, layout = waiting.layout, isOn = std::weak_ptr<char>(waiting.isOn)] {
        m_screen.Post([this, &waiting, layout, isOn] {
            if (!isOn.expired())
                Take(waiting, layout);
        });
    };
    waiting.recorder = std::make_unique<LayoutRecorder>(waiting.drawing, waiting.layout, m_recorder, m_text, done);
}

void DrawingPicks::Take(Waiting& waiting, std::size_t layout)
{
    if (waiting.recorder == nullptr || waiting.recorder->Layout() != layout)
        return; // posted before the user turned to another layout
    try {
        const auto picture = waiting.recorder->Take();
        waiting.recorder.reset();
        m_shelf.Keep(layout, picture);
        m_shown = layout;
        m_screen.Window()->SetPicture(picture);
    } catch (...) {
        waiting.error = std::current_exception();
        m_screen.Window()->Cancel();
    }
}

void DrawingPicks::KeepView()
{
    if (m_screen.Window() == nullptr || !m_shown)
        return;
    if (PictureShelf::Entry* const kept = m_shelf.Find(*m_shown))
        kept->view = m_screen.Window()->OwnView();
}

// The other corner is asked for at once when it is asked for at all: until then the window stays.
void DrawingPicks::Leave()
{
    m_picking = false;
    KeepView();
    m_screen.CloseSoon();
}

} // namespace sm::scene
