// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/WindowSize.h"

#include <QScreen>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace sm::qt {
namespace {

// "1000x720", followed by "+" where the window filled the screen.
constexpr char kFilled = '+';

std::string NameOf(const char* name)
{
    return std::string("Size ") + name;
}

} // namespace

QSize RoomFor(const QWidget& window)
{
    constexpr int kForDecoration = 48; // pixels that title bar and borders may take
    if (window.screen() == nullptr)
        return {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
    return window.screen()->availableGeometry().size() - QSize(kForDecoration, kForDecoration);
}

bool RecallSize(QWidget& window, const char* name, beside::IWindowMemory* memory)
{
    QString text = QString::fromStdString(memory != nullptr ? memory->Recall(NameOf(name)) : "");
    const bool isFilled = text.endsWith(kFilled);
    text.truncate(text.size() - (isFilled ? 1 : 0));
    const QStringList sides = text.split('x');
    const QSize size = sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
    if (size.isEmpty())
        return false;
    window.resize(size.boundedTo(RoomFor(window)).expandedTo(window.minimumSizeHint()));
    if (isFilled)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    return true;
}

void RememberSize(const QWidget& window, const char* name, beside::IWindowMemory* memory)
{
    const QSize size = window.isMaximized() ? window.normalGeometry().size() : window.size();
    if (memory == nullptr || size.isEmpty())
        return;
    std::string text = std::to_string(size.width()) + "x" + std::to_string(size.height());
    if (window.isMaximized())
        text += kFilled;
    memory->Remember(NameOf(name), text);
}

} // namespace sm::qt
