// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing window itself: the view, what can be done with it, and a line to type points into.
#pragma once

#include "beside/WindowMemory.h"
#include "scene/DrawingPicks.h"
#include "view/DrawingView.h"
#include "view/MarkPane.h"
#include "view/PickControls.h"

namespace sm::win32 {

class PickWindow final : public OwnWindow, public scene::IPickWindow {
public:
    static constexpr const wchar_t* kClass = L"SheetmakerDrawing";

    /// Null for a memory: size and background aren't remembered. Throws std::runtime_error when no window can be made.
    explicit PickWindow(beside::IWindowMemory* memory);
    ~PickWindow() override;

    void SetTitle(const std::string& title) override;
    void SetTabs(const std::vector<std::string>& names, std::size_t current) override;
    void SetLayout(const std::string& name) override { m_marks->LayoutIs(name); }
    void SetMarks(std::vector<beside::PageMark> marks, std::optional<beside::PageMark> atCursor) override
    {
        m_marks->Show(std::move(marks), std::move(atCursor));
    }
    void SetPicture(std::shared_ptr<const LayoutPicture> picture) override;
    [[nodiscard]] std::optional<ViewMap> OwnView() const override { return m_view->OwnMap(); }
    void GoBackTo(const ViewMap& view) override { m_view->SetMap(view); }
    [[nodiscard]] bool IsUp() const override { return IsWindowVisible(Handle()) != FALSE; }
    std::optional<Vec2> Pick(const std::string& prompt, std::optional<Vec2> first) override;
    void EditMarks(beside::IMarkBoard& board) override;
    void Cancel() override;

    /// Everything is painted that the view shows, and points or marks are taken.
    [[nodiscard]] bool IsReady() const { return m_isTaking && m_view->IsPainted(); }
    [[nodiscard]] const DrawingView& View() const { return *m_view; }

private:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM extra) override;
    void OnCommand(int control, int code);
    void OnZoomFrame() { m_view->SetZoomWindow(m_controls->IsTicked(kZoomFrame)); }
    void OnDots() override;
    void LayOut();
    void Come();
    void Wait();
    bool TakeKey(const MSG& message);
    bool TakeControlKey(WPARAM key);
    bool TakeEntryKey(WPARAM key);
    bool TakeLetter(wchar_t letter);
    void NoteMinus(const MSG& message);
    void TurnTab();
    void TurnBy(int step);
    void Answer(Vec2 scene);
    void TakeTyped();
    void ShowPlace(std::optional<Vec2> scene);
    void ShowSnapping();
    void ShowReady();
    void ShowBackdrop();
    void Switch(PickControl control);
    void PaintMarks(const OverlayCanvas& canvas) const;
    void RecallSize();
    void RememberSize() const;

    beside::IWindowMemory* m_memory;
    std::unique_ptr<PickControls> m_controls;
    std::unique_ptr<DrawingView> m_view;
    std::shared_ptr<const LayoutPicture> m_picture;
    std::unique_ptr<MarkPane> m_markPane;
    std::unique_ptr<scene::WindowMarks> m_marks;
    std::optional<Vec2> m_answer, m_first; ///< drawing units
    std::optional<ViewMap> m_beforeMinus;  ///< the view before "-" was pressed, which may begin a number
    bool m_isWaiting = false;              ///< for a point, or for the end of the editing
    bool m_isTaking = false;               ///< the window looks at its messages, and the picture is there
};

} // namespace sm::win32
