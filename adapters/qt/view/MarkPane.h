// SPDX-License-Identifier: GPL-3.0-or-later
// The list of a layout's marks under the drawing's view, for those who have no mouse, and what can be done with them.
#pragma once

#include "scene/WindowMarks.h"
#include "view/DrawingView.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace sm::qt {

class MarkPane final : public QWidget, public scene::IMarkPane {
public:
    explicit MarkPane(DrawingView& view);

    [[nodiscard]] Box2 BoxOf(const beside::PageMark& mark) const override;
    void ListMarks(const std::vector<std::string>& titles) override;
    void ShowChosen(std::optional<std::size_t> mark) override;
    void ShowHint(const std::string& text) override;
    void Beep() override;
    bool EditMark(beside::IMarkBoard& board, const std::string& layout, std::size_t mark) override;

    std::function<void(std::optional<std::size_t>)> onChoose; ///< in the list
    std::function<void()> onEdit;                             ///< the button was pressed

private:
    DrawingView& m_view;
    QComboBox* m_list;
    QPushButton* m_edit;
    QLabel* m_hint;
};

} // namespace sm::qt
