// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/FormWindow.h"

#include "screen/WindowSize.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace sm::qt {
namespace {

constexpr int kLongestWait = 500; ///< ms, after which a window counts as painted that nobody can see

/// A letter with Alt that no caption has underlined; a text box would take it for typing.
bool IsMnemonicOfNothing(const QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto* const pressed = static_cast<const QKeyEvent*>(event);
    return pressed->modifiers() == Qt::AltModifier && !pressed->text().isEmpty();
}

} // namespace

FormWindow::FormWindow(Events events)
    : m_events(std::move(events)), m_scroller(new QScrollArea(this)), m_content(new QWidget),
      m_footer(new QWidget(this))
{
    setWindowModality(Qt::ApplicationModal);
    m_scroller->setFrameShape(QFrame::NoFrame);
    m_scroller->setFocusPolicy(Qt::NoFocus);
    m_scroller->setWidget(m_content);
    m_footer->hide();
    m_longestWait.setSingleShot(true);
    m_longestWait.callOnTimeout(this, [this] { NoteAppearance(); });
}

void FormWindow::Resize(const QSize& content, int footerTop)
{
    QSize room = content;
    if (screen() != nullptr) {
        const QSize most = RoomFor(*this);
        const int bar = m_scroller->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        room = content.boundedTo(most);
        if (room.height() < content.height())
            room.setWidth(std::min(content.width() + bar, most.width()));
        if (room.width() < content.width())
            room.setHeight(std::min(content.height() + bar, most.height()));
    }
    const bool hasFooter = footerTop > 0 && footerTop < content.height() && room.height() < content.height();
    const int footer = hasFooter ? content.height() - footerTop : 0;
    m_content->resize(content - QSize(0, footer));
    m_footer->setVisible(hasFooter);
    m_footer->setGeometry(0, room.height() - footer, room.width(), footer);
    m_footerShift = std::max(0, content.width() - room.width());
    setFixedSize(room);
    m_scroller->setGeometry(QRect(QPoint(0, 0), room - QSize(0, footer)));
}

void FormWindow::PutInTheMiddle(const QWidget* owner)
{
    if (std::exchange(m_hasPlace, true))
        return;
    const bool owned = owner != nullptr && owner->isVisible();
    const QScreen* const on = owned ? owner->screen() : screen();
    if (on == nullptr)
        return;
    const QRect available = on->availableGeometry();
    QRect place(QPoint(0, 0), size());
    place.moveCenter(owned ? owner->frameGeometry().center() : available.center());
    place.moveRight(std::min(place.right(), available.right()));
    place.moveBottom(std::min(place.bottom(), available.bottom()));
    move(std::max(place.left(), available.left()), std::max(place.top(), available.top()));
}

void FormWindow::Appear(QWidget* owner)
{
    PutInTheMiddle(owner);
    winId(); // makes the native window, which is watched from its first painting on
    QWindow* const window = windowHandle();
    if (owner != nullptr && owner->windowHandle() != nullptr && owner->windowHandle() != window)
        window->setTransientParent(owner->windowHandle());
    window->removeEventFilter(this);
    window->installEventFilter(this);
    m_isAwaited = true;
    show();
    raise();
    activateWindow();
    if (QGuiApplication::focusWindow() == window && !isActiveWindow())
        QApplication::setActiveWindow(this); // a window system that never took the keyboard away gives no notice
    m_longestWait.start(kLongestWait);
}

void FormWindow::NoteAppearance()
{
    m_longestWait.stop();
    if (std::exchange(m_isAwaited, false) && isVisible())
        m_events.appeared();
}

void FormWindow::ScrollTo(QWidget* widget)
{
    if (!m_content->isAncestorOf(widget))
        return;
    // Of what is larger than the view its beginning: that is where captions and tabs stand.
    constexpr int kAround = 20; // pixels
    const QSize view = m_scroller->viewport()->size();
    const QRect box(widget->mapTo(m_content, QPoint()), widget->size().boundedTo(view));
    const QPoint middle = box.center();
    m_scroller->ensureVisible(middle.x(), middle.y(), std::min(box.width() / 2 + kAround, view.width() / 2),
                              std::min(box.height() / 2 + kAround, view.height() / 2));
}

bool FormWindow::eventFilter(QObject* object, QEvent* event)
{
    if (object == windowHandle()) {
        if (event->type() == QEvent::Expose && m_isAwaited && windowHandle()->isExposed())
            QMetaObject::invokeMethod(
                this, [this] { NoteAppearance(); }, Qt::QueuedConnection);
        return false;
    }
    return object->isWidgetType() && (IsMnemonicOfNothing(event) || TakeKey(static_cast<QWidget*>(object), event));
}

bool FormWindow::TakeKey(QWidget* widget, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    auto* const pressed = static_cast<QKeyEvent*>(event);
    const bool isEnter = pressed->key() == Qt::Key_Return || pressed->key() == Qt::Key_Enter;
    const bool isPlain = (pressed->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!isPlain)
        return false;
    if (!isEnter && pressed->key() != Qt::Key_Escape)
        return m_events.otherKey && m_events.otherKey(widget, pressed->key());
    event->accept();
    if (!pressed->isAutoRepeat())
        m_events.keyPressed(widget, isEnter);
    return true;
}

void FormWindow::keyPressEvent(QKeyEvent* event)
{
    if (!TakeKey(this, event))
        event->ignore();
}

void FormWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    m_events.closeWanted();
}

void FormWindow::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type != QEvent::FontChange && type != QEvent::StyleChange && type != QEvent::PaletteChange)
        return;
    // Afterwards, when the controls have the new font, too.
    if (!std::exchange(m_isRestyling, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_isRestyling = false;
                m_events.restyled();
            },
            Qt::QueuedConnection);
    }
}

} // namespace sm::qt
