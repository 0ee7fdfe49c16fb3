// SPDX-License-Identifier: GPL-3.0-or-later
// The window of one form: a dialog that does nothing by itself, but tells what its user and the window system want.
#pragma once

#include <QDialog>
#include <QTimer>

#include <functional>

class QScrollArea;

namespace sm::qt {

class FormWindow final : public QDialog {
public:
    struct Events {
        std::function<void()> appeared;    ///< first painting due, once for each showing
        std::function<void()> closeWanted; ///< the window stays until it is hidden
        std::function<void()> restyled;    ///< font, style or colours of the desktop are others now
        /// Enter or Escape, with the keyboard in `widget`.
        std::function<void(QWidget* widget, bool isEnter)> keyPressed;
        /// Any other key without modifiers, likewise; true when it was used.
        std::function<bool(QWidget* widget, int key)> otherKey;
    };

    explicit FormWindow(Events events);
    ~FormWindow() override = default;
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    /// Parent of the form's controls. On a screen that is too small for it, it scrolls.
    [[nodiscard]] QWidget* Content() const { return m_content; }
    /// Enter and Escape of this widget come to `keyPressed` before the widget sees them.
    void Watch(QWidget* widget) { widget->installEventFilter(this); }
    /// Sizes the content, and the window as far as the screen allows. What lies below `footerTop` (0: nothing) stays in
    /// view where the screen is too low: it belongs into `Footer` then, which else is null.
    void Resize(const QSize& content, int footerTop);
    [[nodiscard]] QWidget* Footer() const { return m_footer->isHidden() ? nullptr : m_footer; }
    /// Pixels that the footer's contents move to the left, on a screen that is too narrow.
    [[nodiscard]] int FooterShift() const { return m_footerShift; }
    /// Shows the window; the first time in the middle of `owner`, or of the screen when there is none.
    void Appear(QWidget* owner);
    void ScrollTo(QWidget* widget);

    void reject() override { m_events.closeWanted(); }
    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool TakeKey(QWidget* widget, QEvent* event);
    void NoteAppearance();
    void PutInTheMiddle(const QWidget* owner);

    Events m_events;
    QScrollArea* m_scroller;
    QWidget* m_content;
    QWidget* m_footer;
    int m_footerShift = 0;
    QTimer m_longestWait;
    bool m_isAwaited = false, m_hasPlace = false, m_isRestyling = false;
};

} // namespace sm::qt
