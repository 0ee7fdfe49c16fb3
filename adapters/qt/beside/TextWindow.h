// SPDX-License-Identifier: GPL-3.0-or-later
// A text file in a window, to be read and copied from.
#pragma once

#include "beside/WindowMemory.h"

#include <QString>

class QWidget;

namespace sm::qt {

/// Shows the end of the file at `path`, modal over `owner`, and waits until it is closed. What isn't UTF-8 shows as
/// U+FFFD. False when the file can't be read. Null for a memory: no size is remembered.
bool ShowTextFile(const QString& path, const QString& title, QWidget* owner, beside::IWindowMemory* memory);

} // namespace sm::qt
