// SPDX-License-Identifier: GPL-3.0-or-later
// Marks of a layout, dragged and edited in the drawing's view, or chosen from a list by the keyboard.
#pragma once

#include "beside/MarkBoard.h"
#include "view/DrawingView.h"

#include <QWidget>

#include <optional>

class QComboBox;
class QLabel;
class QPushButton;

namespace sm::qt {

class MarkEditor final : public QWidget {
public:
    explicit MarkEditor(DrawingView& view);

    /// From now on the view's left button takes marks of `board`; null ends that. Outlives its use.
    void Use(beside::IMarkBoard* board);
    void ShowLayout(const std::string& layout, std::shared_ptr<const LayoutPicture> picture);
    /// As they are to be painted at the moment, places in drawing units.
    [[nodiscard]] std::vector<beside::PageMark> Marks() const;
    /// Over the marks: a frame round the one that is chosen.
    void Paint(QPainter& painter) const;

private:
    void Fill();
    void Grab(Vec2 pixel);
    void Drag(Vec2 pixel);
    void Drop(Vec2 pixel);
    void Edit();
    [[nodiscard]] std::optional<std::size_t> MarkAt(Vec2 pixel) const;
    [[nodiscard]] beside::PageMark InScene(const beside::PageMark& mark) const;
    void Tell(const std::string& reason);

    DrawingView& m_view;
    beside::IMarkBoard* m_board = nullptr;
    std::string m_layout;
    std::shared_ptr<const LayoutPicture> m_picture;
    std::vector<beside::PageMark> m_marks;
    QComboBox* m_list;
    QPushButton* m_edit;
    QLabel* m_hint;
    std::optional<Vec2> m_from; ///< scene, where the chosen mark is held
    Vec2 m_by;                  ///< drawing units that it is dragged by
};

} // namespace sm::qt
