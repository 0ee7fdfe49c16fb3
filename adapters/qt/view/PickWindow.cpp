// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/PickWindow.h"

#include "marks/PageMarks.h"
#include "marks/PointText.h"
#include "screen/ClosesOnSignal.h"
#include "screen/WindowSize.h"
#include "view/MarkEditor.h"
#include "view/ViewTools.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>

namespace sm::qt {
namespace {

bool IsNumeric(const QString& text)
{
    return !text.isEmpty() && (text[0].isDigit() || text[0] == '.');
}

/// Stamps have red in the low byte, items in the high one.
std::int32_t MarkColorOn(Backdrop backdrop, std::int32_t color)
{
    const auto turned = [](std::uint32_t one) { return (one & 0xFF) << 16 | (one & 0xFF00) | (one >> 16 & 0xFF); };
    return static_cast<std::int32_t>(turned(InkOn(backdrop, turned(static_cast<std::uint32_t>(color)))));
}

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

} // namespace

PickWindow::PickWindow(beside::IWindowMemory* memory) : QWidget(nullptr, Qt::Window), m_view(new DrawingView)
{
    setObjectName("DrawingWindow");
    setWindowModality(Qt::ApplicationModal);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_tools = new ViewTools(*m_view, memory);
    m_tools->onSnaps = [this] { ShowSnapping(); };
    column->addWidget(m_tools);
    column->addWidget(m_view, 1);
    column->addWidget(MakeTabs());
    column->addWidget(m_line = MakeLine());
    column->addWidget(m_editor = new MarkEditor(*m_view));
    setTabOrder(m_view, m_entry);
    m_view->setObjectName("view");
    m_view->installEventFilter(this);
    m_view->onPick = [this](Vec2 scene) { Answer(scene); };
    m_view->onMove = [this](std::optional<Vec2> scene) { ShowPlace(scene); };
    m_view->paintOver = [this](QPainter& painter) { PaintMarks(painter); };
    m_view->onCancel = [this] { Cancel(); };
    m_view->onKey = [this](QKeyEvent* event) { return TakeKey(event); };
    resize(QSize(1000, 720).boundedTo(RoomFor(*this)));
    ShowSnapping();
}

QTabBar* PickWindow::MakeTabs()
{
    m_tabs = new QTabBar;
    m_tabs->setObjectName("layouts");
    m_tabs->setAccessibleName("Layouts");
    m_tabs->setShape(QTabBar::RoundedSouth);
    m_tabs->setUsesScrollButtons(true);
    m_tabs->setElideMode(Qt::ElideNone);
    m_tabs->setExpanding(false);
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int tab) {
        if (onTurn && tab >= 0)
            onTurn(static_cast<std::size_t>(tab));
        m_view->setFocus();
    });
    const auto turn = [this](int by) {
        const int tab = m_tabs->currentIndex() + by;
        if (m_tabs->isEnabled() && tab >= 0 && tab < m_tabs->count())
            m_tabs->setCurrentIndex(tab);
    };
    connect(new QShortcut(Qt::CTRL | Qt::Key_PageUp, this), &QShortcut::activated, this, [turn] { turn(-1); });
    connect(new QShortcut(Qt::CTRL | Qt::Key_PageDown, this), &QShortcut::activated, this, [turn] { turn(1); });
    return m_tabs;
}

void PickWindow::SetTabs(const QStringList& names, std::size_t current)
{
    const QSignalBlocker silent(m_tabs);
    while (m_tabs->count() > 0)
        m_tabs->removeTab(0);
    for (const QString& name : names)
        m_tabs->addTab(QString(name).replace('&', "&&"));
    m_tabs->setCurrentIndex(static_cast<int>(current));
    m_tabs->updateGeometry(); // the layout may have looked at it while it was empty
}

QWidget* PickWindow::MakeLine()
{
    auto* const line = new QWidget;
    auto* const row = new QHBoxLayout(line);
    row->setContentsMargins(8, 4, 8, 4);
    m_prompt = new QLabel;
    m_prompt->setObjectName("prompt");
    m_entry = new QLineEdit;
    m_entry->setObjectName("entry");
    m_entry->setAccessibleName("Point");
    m_entry->setPlaceholderText("x,y");
    m_entry->setToolTip("A point in drawing units: x,y; counted from the first corner: @x,y");
    m_entry->setMaximumWidth(24 * fontMetrics().averageCharWidth());
    m_entry->installEventFilter(this);
    m_prompt->setBuddy(m_entry);
    m_place = new QLabel;
    m_place->setObjectName("place");
    m_place->setAccessibleName("Coordinates");
    m_place->setMinimumWidth(28 * fontMetrics().averageCharWidth());
    m_hint = new QLabel;
    m_hint->setObjectName("hint");
    m_hint->setAccessibleName("Snap");
    row->addWidget(m_prompt);
    row->addWidget(m_entry);
    row->addWidget(m_place);
    row->addStretch(1);
    row->addWidget(m_hint);
    connect(m_entry, &QLineEdit::returnPressed, this, [this] { TakeTyped(); });
    return line;
}

void PickWindow::SetPicture(std::shared_ptr<const LayoutPicture> picture)
{
    m_picture = std::move(picture);
    m_view->SetPicture(m_picture);
    ShowLayoutsMarks();
    ShowReady();
}

void PickWindow::SetMarks(std::vector<beside::PageMark> marks, std::optional<beside::PageMark> atCursor)
{
    m_marks = std::move(marks);
    m_atCursor = std::move(atCursor);
    m_view->update();
}

// Sizes are those on paper; a model has none before it is plotted, and shows its stamps in one size.
void PickWindow::PaintMarks(QPainter& painter) const
{
    if (m_picture == nullptr)
        return;
    std::vector<beside::PageMark> marks = m_editor->isHidden() ? m_marks : m_editor->Marks();
    if (m_atCursor && m_view->Cursor()) {
        marks.push_back(*m_atCursor);
        marks.back().from = marks.back().to = m_picture->map.ToDrawing(*m_view->Cursor());
    }
    for (beside::PageMark& mark : marks) {
        mark.from = m_picture->map.ToScene(mark.from);
        mark.to = m_picture->map.ToScene(mark.to);
        mark.color = MarkColorOn(m_view->OnBackdrop(), mark.color);
        if (!m_picture->paper)
            mark.size = kModelStamp / m_view->Map().scale;
    }
    painter.save();
    PaintPageMarks(painter, marks, m_view->Map());
    m_editor->Paint(painter);
    painter.restore();
}

void PickWindow::ShowReady()
{
    const bool ready = m_picture != nullptr;
    m_view->SetBand(ready && m_first ? std::optional(m_picture->map.ToScene(*m_first)) : std::nullopt);
    m_view->SetPicking(ready && m_loop.isRunning() && m_editor->isHidden());
    ShowSnapping();
}

std::optional<Vec2> PickWindow::Pick(const QString& prompt, std::optional<Vec2> first)
{
    m_answer.reset();
    m_first = first;
    m_tabs->setEnabled(!first);
    m_tabs->setToolTip(first ? "The other corner lies on the same layout" : "Ctrl+PageUp, Ctrl+PageDown");
    m_prompt->setText(prompt);
    m_entry->setAccessibleName(prompt);
    m_entry->clear();
    if (isMinimized() || !isVisible())
        showNormal();
    raise();
    activateWindow();
    m_view->setFocus();
    QMetaObject::invokeMethod(
        this, [this] { ShowReady(); }, Qt::QueuedConnection); // once the loop runs
    const ClosesOnSignal closesOnSignal;
    m_loop.exec();
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
    m_editor->Use(&board);
    ShowLayoutsMarks();
    showNormal();
    raise();
    activateWindow();
    m_view->setFocus();
    QMetaObject::invokeMethod(
        this, [this] { ShowReady(); }, Qt::QueuedConnection);
    const ClosesOnSignal closesOnSignal;
    m_loop.exec();
    m_editor->Use(nullptr);
    m_line->show();
}

void PickWindow::SetLayout(const std::string& name)
{
    m_layout = name;
    ShowLayoutsMarks();
}

void PickWindow::ShowLayoutsMarks()
{
    m_editor->ShowLayout(m_layout, m_picture);
}

void PickWindow::Cancel()
{
    m_answer.reset();
    m_loop.quit();
}

void PickWindow::Answer(Vec2 scene)
{
    if (!m_loop.isRunning() || m_picture == nullptr || !m_editor->isHidden())
        return;
    m_answer = m_picture->map.ToDrawing(scene);
    m_loop.quit();
}

void PickWindow::TakeTyped()
{
    if (!m_loop.isRunning())
        return;
    const auto point = ParsePoint(m_entry->text().toStdString(), m_first);
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
    if (!m_editor->isHidden())
        return false;
    if (!IsNumeric(typed) && typed != "@")
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
    else if (!IsNumeric(event.text()))
        m_beforeMinus.reset();
}

void PickWindow::ShowPlace(std::optional<Vec2> scene)
{
    if (m_picture == nullptr || !scene)
        return m_place->clear();
    m_place->setText(Text(PointText(m_picture->map.ToDrawing(*scene), m_picture->decimals)));
    m_place->setAccessibleName("Coordinates " + m_place->text());
    ShowSnapping();
}

void PickWindow::ShowSnapping()
{
    if (m_view->Snapping() != m_tools->SnapsAreOn())
        m_view->SetSnapping(m_tools->SnapsAreOn());
    const auto& snap = m_view->AtSnap();
    m_hint->setText(m_picture == nullptr && m_loop.isRunning() ? "Reading the drawing …"
                    : snap                                     ? QString::fromUtf8(SnapName(snap->kind))
                    : m_tools->SnapsAreOn()                    ? "Object snaps on (F3)"
                                                               : "Object snaps off (F3)");
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
