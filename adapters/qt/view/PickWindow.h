// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing window itself: the view, what can be done with it, and a line to type points into.
#pragma once

#include "beside/MarkBoard.h"
#include "beside/PageSource.h"
#include "beside/WindowMemory.h"
#include "view/DrawingView.h"

#include <QEventLoop>
#include <QWidget>

class QLabel;
class QLineEdit;
class QTabBar;

namespace sm::qt {

class MarkEditor;
class ViewTools;

class PickWindow final : public QWidget {
public:
    /// Null for a memory: the background isn't remembered.
    explicit PickWindow(beside::IWindowMemory* memory);

    void SetDrawing(const QString& name) { setWindowTitle(name); }
    /// The layouts by name, in tab order, and the one in front.
    void SetTabs(const QStringList& names, std::size_t current);
    std::function<void(std::size_t)> onTurn; ///< the user chose a tab
    /// Marks of the layout, places in drawing units, and the stamp that goes along with the cursor.
    void SetMarks(std::vector<beside::PageMark> marks, std::optional<beside::PageMark> atCursor);
    void SetPicture(std::shared_ptr<const LayoutPicture> picture);
    /// The view, to be gone back to; nothing while it is the one that shows everything.
    [[nodiscard]] std::optional<ViewMap> OwnView() const { return m_view->OwnMap(); }
    void GoBackTo(const ViewMap& view) { m_view->SetMap(view); }
    /// Waits for a point under `prompt`, drawing units; with `first` it is the corner opposite to it. Nothing when the
    /// user cancelled. The picture may come meanwhile.
    std::optional<Vec2> Pick(const QString& prompt, std::optional<Vec2> first);
    /// Lets marks of `board` be dragged and edited until the user closes the window.
    void EditMarks(beside::IMarkBoard& board);
    /// The one in front, whose marks are edited.
    void SetLayout(const std::string& name);
    /// Ends the waiting without a point.
    void Cancel();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTabBar* MakeTabs();
    QWidget* MakeLine();
    void Answer(Vec2 scene);
    void TakeTyped();
    bool TakeKey(QKeyEvent* event);
    void NoteMinus(const QKeyEvent& event);
    void ShowPlace(std::optional<Vec2> scene);
    void ShowSnapping();
    void ShowReady();
    void ShowLayoutsMarks();
    void PaintMarks(QPainter& painter) const;

    DrawingView* m_view = nullptr;
    QTabBar* m_tabs = nullptr;
    QLabel* m_prompt = nullptr;
    QLineEdit* m_entry = nullptr;
    QLabel* m_place = nullptr;
    QLabel* m_hint = nullptr;
    ViewTools* m_tools = nullptr;
    MarkEditor* m_editor = nullptr;
    QWidget* m_line = nullptr;
    std::string m_layout;
    std::shared_ptr<const LayoutPicture> m_picture;
    std::vector<beside::PageMark> m_marks;
    std::optional<beside::PageMark> m_atCursor;
    QEventLoop m_loop;
    std::optional<Vec2> m_answer, m_first; ///< drawing units
    std::optional<ViewMap> m_beforeMinus;  ///< the view before "-" was pressed, which may begin a number
};

} // namespace sm::qt
