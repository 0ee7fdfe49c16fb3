// SPDX-License-Identifier: GPL-3.0-or-later
// Who zooms, drags and turns tabs in the drawing window, by the events that a mouse makes.
#pragma once

#include "Figures.h"

#include "view/DrawingView.h"

#include <QApplication>
#include <QTabBar>
#include <QWheelEvent>
#include <stdexcept>

namespace sm::bench {

using qt::DrawingView;

class User {
public:
    [[nodiscard]] static QWidget& Window()
    {
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (widget->objectName() == "DrawingWindow" && widget->isVisible())
                return *widget;
        throw std::runtime_error("there is no drawing window");
    }
    [[nodiscard]] static DrawingView& View()
    {
        return static_cast<DrawingView&>(*Window().findChild<QWidget*>("view"));
    }

    /// Milliseconds until the whole layout is painted.
    static Times Settle(Clock::time_point start, double usedBefore)
    {
        while (!View().IsPainted())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); // with a time it would not wait
        View().repaint();
        return {Since(start), Used(CLOCK_PROCESS_CPUTIME_ID) - usedBefore};
    }

    /// What one event and the picture that follows from it take from the screen's thread.
    template <class Send> static void Step(Frames& frames, const Send& send)
    {
        const auto start = Clock::now();
        const double used = Used();
        send();
        QCoreApplication::processEvents();
        View().repaint();
        frames.wall.push_back(Since(start));
        frames.cpu.push_back(Used() - used);
    }

    static Frames Zoom(int notches, int steps)
    {
        Frames frames;
        const QPointF at(View().width() * 0.4, View().height() * 0.6);
        for (int i = 0; i < steps; ++i)
            Step(frames, [&] {
                QWheelEvent event(at, View().mapToGlobal(at), {}, {0, notches * 120}, Qt::NoButton, Qt::NoModifier,
                                  Qt::NoScrollPhase, false);
                QApplication::sendEvent(&View(), &event);
            });
        frames.sharp = Settle(Clock::now(), Used(CLOCK_PROCESS_CPUTIME_ID));
        return frames;
    }

    static Frames Pan(int steps)
    {
        Frames frames;
        QPointF at(View().width() * 0.5, View().height() * 0.5);
        Mouse(QEvent::MouseButtonPress, at, Qt::MiddleButton, Qt::MiddleButton);
        for (int i = 0; i < steps; ++i)
            Step(frames, [&] {
                at += QPointF(i % 20 < 10 ? 17 : -23, i % 14 < 7 ? 9 : -11);
                Mouse(QEvent::MouseMove, at, Qt::NoButton, Qt::MiddleButton);
            });
        Mouse(QEvent::MouseButtonRelease, at, Qt::MiddleButton, Qt::NoButton);
        frames.sharp = Settle(Clock::now(), Used(CLOCK_PROCESS_CPUTIME_ID));
        return frames;
    }

    /// The cursor with its snaps.
    static Frames Move(int steps)
    {
        Frames frames;
        for (int i = 0; i < steps; ++i)
            Step(frames, [&] {
                Mouse(QEvent::MouseMove, {100.0 + i * 37 % 700, 80.0 + i * 23 % 400}, Qt::NoButton, Qt::NoButton);
            });
        return frames;
    }

    static Times Turn(int tab)
    {
        const auto start = Clock::now();
        const double used = Used(CLOCK_PROCESS_CPUTIME_ID);
        Window().findChild<QTabBar*>("layouts")->setCurrentIndex(tab);
        return Settle(start, used);
    }

private:
    static void Mouse(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, at, View().mapToGlobal(at), button, held, Qt::NoModifier);
        QApplication::sendEvent(&View(), &event);
    }
};

} // namespace sm::bench
