// SPDX-License-Identifier: GPL-3.0-or-later
// A user before the real windows: presses and types by the names of the controls, with events as the window system
// sends them.
#pragma once

#include "ports/IFormToolkit.h"
#include "qt/QtStand.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace sm::qt {

class QtUser {
public:
    /// The window in front.
    [[nodiscard]] static QWidget* Window() { return QApplication::activeModalWidget(); }
    [[nodiscard]] static QWidget* Find(const std::string& name)
    {
        auto* const found = Window() == nullptr ? nullptr : Window()->findChild<QWidget*>(QString::fromStdString(name));
        if (found == nullptr)
            ADD_FAILURE() << "no widget " << name;
        return found;
    }
    template <class Widget> [[nodiscard]] static Widget* Find(const std::string& name)
    {
        return dynamic_cast<Widget*>(Find(name));
    }
    /// Left button, near the left edge, where a check box has its box.
    static void Press(const std::string& name)
    {
        if (QWidget* const widget = Find(name))
            QTest::mouseClick(widget, Qt::LeftButton, {}, {6, widget->height() / 2});
    }
    /// To whatever has the keyboard.
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* const focus = QApplication::focusWidget();
        QTest::keyClick(focus != nullptr ? focus : Window(), key, modifiers);
    }
    static void Type(const char* text)
    {
        for (const QChar character : QString::fromUtf8(text)) {
            QKeyEvent press(QEvent::KeyPress, character.toUpper().unicode(), {}, QString(character));
            QApplication::sendEvent(QApplication::focusWidget(), &press);
        }
    }
    static void Focus(const std::string& name) { Find(name)->setFocus(Qt::OtherFocusReason); }
    [[nodiscard]] static std::string Focused()
    {
        for (QWidget* widget = QApplication::focusWidget(); widget != nullptr; widget = widget->parentWidget()) {
            if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(QLatin1String("qt_")))
                return widget->objectName().toStdString();
        }
        return "(none)";
    }
    static void Close() { Window()->close(); }
    /// Lets what is under way come to rest.
    static void Rest() { QTest::qWait(1); }
};

/// Plays `script` once a window is in front; ends the test's wait when the script has left the window standing.
inline void WhenShown(std::function<void()> script)
{
    QTimer::singleShot(0, [script = std::move(script)] {
        QWidget* const window = QtUser::Window();
        if (window == nullptr || !QTest::qWaitForWindowActive(window, 2000)) {
            ADD_FAILURE() << "no window came up";
            return;
        }
        QtUser::Rest();
        script();
    });
}

} // namespace sm::qt
