// SPDX-License-Identifier: GPL-3.0-or-later
// The list of a layout's marks under the drawing's view, for those who have no mouse, and what can be done with them.
#pragma once

#include "scene/WindowMarks.h"
#include "view/DrawingView.h"
#include "view/PickControls.h"

namespace sm::win32 {

class MarkPane final : public scene::IMarkPane {
public:
    /// Both outlive the pane.
    MarkPane(const DrawingView& view, const PickControls& controls) : m_view(view), m_controls(controls) {}

    [[nodiscard]] Box2 BoxOf(const beside::PageMark& mark) const override
    {
        return MarkBox(mark, m_view.Map(), m_view.Magnified());
    }
    void ListMarks(const std::vector<std::string>& titles) override { m_controls.ListMarks(titles); }
    void ShowChosen(std::optional<std::size_t> mark) override { m_controls.ChooseMark(mark); }
    void ShowHint(const std::string& text) override { m_controls.SetText(kMarkHint, text); }
    void Beep() override { MessageBeep(MB_OK); }
    bool EditMark(beside::IMarkBoard& board, const std::string& layout, std::size_t mark) override;

private:
    const DrawingView& m_view;
    const PickControls& m_controls;
};

} // namespace sm::win32
