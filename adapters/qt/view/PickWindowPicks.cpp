// SPDX-License-Identifier: GPL-3.0-or-later
// How the drawing's window waits for a point, and what it says meanwhile.
#include "scene/PickTexts.h"
#include "scene/PointText.h"
#include "screen/ClosesOnSignal.h"
#include "view/MarkPane.h"
#include "view/PickWindow.h"
#include "view/ViewTools.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

namespace sm::qt {

void PickWindow::ShowReady()
{
    const bool ready = m_picture != nullptr;
    m_view->SetBand(ready && m_first ? std::optional(m_picture->map.ToScene(*m_first)) : std::nullopt);
    m_view->SetPicking(ready && m_loop.isRunning() && !m_marks->AreEdited());
    ShowSnapping();
}

void PickWindow::Wait()
{
    raise();
    activateWindow();
    m_view->setFocus();
    QMetaObject::invokeMethod(
        this, [this] { ShowReady(); }, Qt::QueuedConnection); // once the loop runs
    const ClosesOnSignal closesOnSignal;
    m_loop.exec();
}

std::optional<Vec2> PickWindow::Pick(const std::string& prompt, std::optional<Vec2> first)
{
    m_answer.reset();
    m_first = first;
    m_tabs->setEnabled(!first);
    m_tabs->setToolTip(first ? "The other corner lies on the same layout" : "Ctrl+PageUp, Ctrl+PageDown");
    m_prompt->setText(QString::fromStdString(prompt));
    m_entry->setAccessibleName(m_prompt->text());
    m_entry->clear();
    if (isMinimized() || !isVisible())
        showNormal();
    Wait();
    m_view->SetPicking(false);
    m_view->SetBand(std::nullopt);
    return m_answer;
}

void PickWindow::EditMarks(beside::IMarkBoard& board)
{
    m_first.reset();
    m_tabs->setEnabled(true);
    m_tabs->setToolTip("Ctrl+PageUp, Ctrl+PageDown");
    m_line->hide();
    m_markPane->show();
    m_marks->Use(&board);
    showNormal();
    Wait();
    m_marks->Use(nullptr);
    m_markPane->hide();
    m_line->show();
}

void PickWindow::Cancel()
{
    m_answer.reset();
    m_loop.quit();
}

void PickWindow::Answer(Vec2 scene)
{
    if (!m_loop.isRunning() || m_picture == nullptr || m_marks->AreEdited())
        return;
    m_answer = m_picture->map.ToDrawing(scene);
    m_loop.quit();
}

void PickWindow::TakeTyped()
{
    if (!m_loop.isRunning())
        return;
    const auto point = scene::ParsePoint(m_entry->text().toStdString(), m_first);
    if (!point) {
        m_hint->setText("Please type a point as x,y");
        m_hint->setAccessibleName(m_hint->text());
        m_entry->selectAll();
        QApplication::beep();
        return;
    }
    m_answer = point;
    m_loop.quit();
}

// Digits typed over the drawing begin a point. "-" zooms out at once, which is taken back when a number follows.
bool PickWindow::TakeKey(QKeyEvent* event)
{
    QString typed = event->text();
    if (m_marks->AreEdited())
        return false;
    if (!scene::BeginsNumber(typed.toStdString()) && typed != "@")
        return false;
    if (m_beforeMinus) {
        m_view->SetMap(*m_beforeMinus);
        typed.prepend('-');
    }
    m_beforeMinus.reset();
    m_entry->setFocus();
    m_entry->insert(typed);
    return true;
}

void PickWindow::NoteMinus(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_Minus)
        m_beforeMinus = m_view->Map();
    else if (!scene::BeginsNumber(event.text().toStdString()))
        m_beforeMinus.reset();
}

void PickWindow::ShowPlace(std::optional<Vec2> scene)
{
    if (m_picture == nullptr || !scene)
        return m_place->clear();
    m_place->setText(QString::fromStdString(scene::PointText(m_picture->map.ToDrawing(*scene), m_picture->decimals)));
    m_place->setAccessibleName("Coordinates " + m_place->text());
    ShowSnapping();
}

void PickWindow::ShowSnapping()
{
    if (m_view->Snapping() != m_tools->SnapsAreOn())
        m_view->SetSnapping(m_tools->SnapsAreOn());
    const bool isReading = m_picture == nullptr && m_loop.isRunning();
    m_hint->setText(QString::fromStdString(scene::HintText(isReading, m_view->AtSnap(), m_tools->SnapsAreOn())));
    m_hint->setAccessibleName(m_hint->text()); // a name that stays would hide what changes
}

void PickWindow::closeEvent(QCloseEvent* event)
{
    Cancel();
    event->accept();
}

void PickWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        return Cancel();
    QWidget::keyPressEvent(event);
}

// An empty entry leaves the keys that move the view to the view.
bool PickWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_view && event->type() == QEvent::KeyPress)
        NoteMinus(*static_cast<QKeyEvent*>(event));
    if (watched == m_entry && event->type() == QEvent::KeyPress && m_entry->text().isEmpty()) {
        auto* const key = static_cast<QKeyEvent*>(event);
        switch (key->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Home:
        case Qt::Key_Plus:
            return QApplication::sendEvent(m_view, event);
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace sm::qt
