// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

#include "QtStand.h"

#include "drawing/Drawing.h"
#include "view/DrawingView.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>

namespace sm::qt {
namespace {

void Send(QWidget& widget, QEvent& event)
{
    QApplication::sendEvent(&widget, &event);
}

// A timer and no posted event: from within one, what was posted along with it waits for the next one.
constexpr int kSoon = 1; // ms

void SendMouse(QEvent::Type type, QPointF pixel, Qt::MouseButton button, Qt::MouseButtons held,
               Qt::KeyboardModifiers modifiers, QWidget& view)
{
    QMouseEvent event(type, pixel, view.mapToGlobal(pixel), button, held, modifiers);
    Send(view, event);
}

} // namespace

DrawingWindowTest::DrawingWindowTest()
{
    TheScreen();
    picker = CreateDrawingWindow({{}, SM_SOURCE_DIR "/share/sheetmaker-pdf"});
}

DrawingWindowTest::~DrawingWindowTest()
{
    picker.reset();
}

const drawing::Drawing& DrawingWindowTest::Open(const std::string& path)
{
    drawing = drawing::Drawing::Open(path);
    return *drawing;
}

const drawing::Drawing& DrawingWindowTest::OpenText(const std::string& dxf)
{
    drawing = drawing::Drawing::FromBytes(dxf, "plan.dxf");
    return *drawing;
}

Point DrawingWindowTest::PickPoint(std::size_t layout, const std::function<void()>& steps)
{
    QTimer::singleShot(kSoon, qApp, [&] {
        Settle();
        steps();
    });
    active = layout;
    return picker->PickPoint(*drawing, active, "Enter a point: ");
}

Point DrawingWindowTest::PickCorner(std::size_t layout, Vec2 first, const std::function<void()>& steps)
{
    QTimer::singleShot(kSoon, qApp, [&] {
        Settle();
        steps();
    });
    return picker->PickCorner(*drawing, layout, first, "Enter Other Corner: ");
}

QWidget& DrawingWindowTest::Window()
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == "DrawingWindow" && widget->isVisible())
            return *widget;
    }
    throw std::runtime_error("there is no drawing window");
}

QWidget& DrawingWindowTest::View()
{
    return *Window().findChild<QWidget*>("view");
}

QString DrawingWindowTest::TextOf(const char* label)
{
    return Window().findChild<QLabel*>(label)->text();
}

void DrawingWindowTest::Settle()
{
    QElapsedTimer timer;
    timer.start();
    const auto isReady = [] {
        const auto& view = static_cast<DrawingView&>(View());
        return view.IsPainted() && view.hasMouseTracking();
    };
    constexpr int kPatience = 60000; // ms; only a hang takes that long
    while (!isReady() && timer.elapsed() < kPatience)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    QCoreApplication::processEvents();
}

Vec2 DrawingWindowTest::PointAt(QPointF pixel)
{
    Move(pixel, Qt::ShiftModifier);
    const QStringList parts = TextOf("place").split(", ");
    if (parts.size() != 2)
        throw std::runtime_error("no coordinates are shown");
    return {parts[0].toDouble(), parts[1].toDouble()};
}

QPointF DrawingWindowTest::PixelOf(Vec2 point)
{
    const QPointF a(100, 100);
    const QPointF b(500, 400);
    const Vec2 p = PointAt(a);
    const Vec2 q = PointAt(b);
    return {a.x() + (point.x - p.x) / (q.x - p.x) * (b.x() - a.x()),
            a.y() + (point.y - p.y) / (q.y - p.y) * (b.y() - a.y())};
}

void DrawingWindowTest::Move(QPointF pixel, Qt::KeyboardModifiers modifiers)
{
    SendMouse(QEvent::MouseMove, pixel, Qt::NoButton, Qt::NoButton, modifiers, View());
}

void DrawingWindowTest::Press(QPointF pixel, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    SendMouse(QEvent::MouseButtonPress, pixel, button, button, modifiers, View());
}

void DrawingWindowTest::Release(QPointF pixel, Qt::MouseButton button)
{
    SendMouse(QEvent::MouseButtonRelease, pixel, button, Qt::NoButton, Qt::NoModifier, View());
}

void DrawingWindowTest::Wheel(QPointF pixel, int notches)
{
    QWidget& view = View();
    QWheelEvent event(pixel, view.mapToGlobal(pixel), {}, QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    Send(view, event);
}

void DrawingWindowTest::Key(Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers)
{
    QWidget* const focus = QApplication::focusWidget();
    QWidget& target = focus != nullptr ? *focus : View();
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    Send(target, press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    Send(target, release);
}

void DrawingWindowTest::Type(const QString& text)
{
    for (const QChar letter : text)
        Key(letter == '-' ? Qt::Key_Minus : static_cast<Qt::Key>(letter.toUpper().unicode()), letter);
}

void DrawingWindowTest::Shoot(const std::string& name)
{
    Settle();
    QDir().mkpath(SM_SCREENS);
    Window().grab().save(QString::fromStdString(SM_SCREENS "/" + name + ".png"));
}

} // namespace sm::qt
