// SPDX-License-Identifier: GPL-3.0-or-later
// Windows come back in the size that the user gave them last.
#pragma once

#include "beside/WindowMemory.h"

#include <QSize>

class QWidget;

namespace sm::qt {

/// What the window may take of its screen so that its frame has room, too.
QSize RoomFor(const QWidget& window);
/// The size under which windows of that name are remembered, as far as the screen has room, and whether the window
/// filled the screen. False when there is none, and the window is as it was; so it is with null for a memory.
bool RecallSize(QWidget& window, const char* name, beside::IWindowMemory* memory);
void RememberSize(const QWidget& window, const char* name, beside::IWindowMemory* memory);

} // namespace sm::qt
