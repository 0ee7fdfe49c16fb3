// SPDX-License-Identifier: GPL-3.0-or-later
// The marks in the drawing's window, in every toolkit: those of the form that asks for a pick are shown, those of a
// board are dragged and edited.
#pragma once

#include "beside/MarkBoard.h"
#include "scene/PickingView.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sm::scene {

/// What the toolkit adds: sizes of texts, the list of marks with a line that says what can be done, a dialog.
class IMarkPane {
public:
    virtual ~IMarkPane() = default;
    /// Pixels that the mark takes in the view; places and sizes are those of the scene.
    [[nodiscard]] virtual Box2 BoxOf(const beside::PageMark& mark) const = 0;
    virtual void ListMarks(const std::vector<std::string>& titles) = 0;
    virtual void ShowChosen(std::optional<std::size_t> mark) = 0;
    virtual void ShowHint(const std::string& text) = 0;
    /// Draws the user's attention to what the hint says.
    virtual void Beep() = 0;
    /// Lets the user change the mark, and stays until the board takes what was entered. True when it did.
    virtual bool EditMark(beside::IMarkBoard& board, const std::string& layout, std::size_t mark) = 0;
};

/// Belongs to the thread of its window.
class WindowMarks {
public:
    /// Both outlive this object.
    WindowMarks(PickingView& view, IMarkPane& pane) : m_view(view), m_pane(pane) {}

    /// Those of a form, places in drawing units, and the stamp that goes along with the cursor.
    void Show(std::vector<beside::PageMark> marks, std::optional<beside::PageMark> atCursor);
    /// From now on the view's left button takes marks of `board`, which outlives its use; null ends that.
    void Use(beside::IMarkBoard* board);
    [[nodiscard]] bool AreEdited() const { return m_board != nullptr; }
    void LayoutIs(const std::string& layout);
    /// Null: it is being read.
    void PictureIs(std::shared_ptr<const LayoutPicture> picture);

    /// From the pane's list; nothing: none is chosen.
    void Choose(std::optional<std::size_t> mark);
    void EditChosen();

    /// As they are to be painted at the moment, in the scene.
    [[nodiscard]] std::vector<beside::PageMark> InScene() const;
    /// Pixels round the mark that is chosen.
    [[nodiscard]] std::optional<Box2> Frame() const;

private:
    void Fill();
    void Grab(Vec2 pixel);
    void Drag(Vec2 pixel);
    void Drop(Vec2 pixel);
    [[nodiscard]] std::optional<std::size_t> MarkAt(Vec2 pixel) const;
    void Tell(const std::string& reason);

    PickingView& m_view;
    IMarkPane& m_pane;
    beside::IMarkBoard* m_board = nullptr;
    std::string m_layout;
    std::shared_ptr<const LayoutPicture> m_picture;
    std::vector<beside::PageMark> m_shown, m_edited; ///< of a form, of the board
    std::optional<beside::PageMark> m_atCursor;
    std::optional<std::size_t> m_chosen; ///< of those that are edited
    std::optional<Vec2> m_from;          ///< scene, where the chosen mark is held
    Vec2 m_by;                           ///< drawing units that it is dragged by
};

} // namespace sm::scene
