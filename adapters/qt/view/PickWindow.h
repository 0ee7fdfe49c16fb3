// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing window itself: the view, what can be done with it, and a line to type points into.
#pragma once

#include "beside/WindowMemory.h"
#include "scene/DrawingPicks.h"
#include "scene/WindowMarks.h"
#include "view/DrawingView.h"

#include <QEventLoop>
#include <QWidget>

class QLabel;
class QLineEdit;
class QTabBar;

namespace sm::qt {

class MarkPane;
class ViewTools;

class PickWindow final : public QWidget, public scene::IPickWindow {
public:
    /// Null for a memory: the background isn't remembered.
    explicit PickWindow(beside::IWindowMemory* memory);

    void SetTitle(const std::string& title) override { setWindowTitle(QString::fromStdString(title)); }
    void SetTabs(const std::vector<std::string>& names, std::size_t current) override;
    void SetLayout(const std::string& name) override { m_marks->LayoutIs(name); }
    void SetMarks(std::vector<beside::PageMark> marks, std::optional<beside::PageMark> atCursor) override
    {
        m_marks->Show(std::move(marks), std::move(atCursor));
    }
    void SetPicture(std::shared_ptr<const LayoutPicture> picture) override;
    [[nodiscard]] std::optional<ViewMap> OwnView() const override { return m_view->OwnMap(); }
    void GoBackTo(const ViewMap& view) override { m_view->SetMap(view); }
    [[nodiscard]] bool IsUp() const override { return isVisible(); }
    std::optional<Vec2> Pick(const std::string& prompt, std::optional<Vec2> first) override;
    void EditMarks(beside::IMarkBoard& board) override;
    void Cancel() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTabBar* MakeTabs();
    QWidget* MakeLine();
    QWidget* MakeMarks();
    void Answer(Vec2 scene);
    void TakeTyped();
    bool TakeKey(QKeyEvent* event);
    void NoteMinus(const QKeyEvent& event);
    void ShowPlace(std::optional<Vec2> scene);
    void ShowSnapping();
    void Wait();
    void ShowReady();
    void PaintMarks(QPainter& painter) const;

    DrawingView* m_view = nullptr;
    QTabBar* m_tabs = nullptr;
    QLabel* m_prompt = nullptr;
    QLineEdit* m_entry = nullptr;
    QLabel* m_place = nullptr;
    QLabel* m_hint = nullptr;
    ViewTools* m_tools = nullptr;
    MarkPane* m_markPane = nullptr;
    std::unique_ptr<scene::WindowMarks> m_marks;
    QWidget* m_line = nullptr;
    std::shared_ptr<const LayoutPicture> m_picture;
    QEventLoop m_loop;
    std::optional<Vec2> m_answer, m_first; ///< drawing units
    std::optional<ViewMap> m_beforeMinus;  ///< the view before "-" was pressed, which may begin a number
};

} // namespace sm::qt
