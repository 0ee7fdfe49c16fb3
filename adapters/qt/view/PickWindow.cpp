// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/PickWindow.h"

#include "marks/PageMarks.h"
#include "screen/WindowSize.h"
#include "view/MarkPane.h"
#include "view/ViewTools.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>

namespace sm::qt {
namespace {

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
    column->addWidget(MakeMarks());
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

QWidget* PickWindow::MakeMarks()
{
    m_markPane = new MarkPane(*m_view);
    m_marks = std::make_unique<scene::WindowMarks>(*m_view, *m_markPane);
    m_markPane->onChoose = [this](std::optional<std::size_t> mark) { m_marks->Choose(mark); };
    m_markPane->onEdit = [this] { m_marks->EditChosen(); };
    return m_markPane;
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

void PickWindow::SetTabs(const std::vector<std::string>& names, std::size_t current)
{
    const QSignalBlocker silent(m_tabs);
    while (m_tabs->count() > 0)
        m_tabs->removeTab(0);
    for (const std::string& name : names)
        m_tabs->addTab(Text(name).replace('&', "&&"));
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
    m_marks->PictureIs(m_picture);
    ShowReady();
}

void PickWindow::PaintMarks(QPainter& painter) const
{
    painter.save();
    PaintPageMarks(painter, m_marks->InScene(), m_view->Map());
    if (const auto frame = m_marks->Frame()) {
        painter.setPen(QPen(QColor(0xD0, 0x30, 0x00), 1, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(frame->min.x, frame->min.y, frame->Width(), frame->Height()));
    }
    painter.restore();
}

} // namespace sm::qt
