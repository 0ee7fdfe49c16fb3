// SPDX-License-Identifier: GPL-3.0-or-later
// Files that the user drags over a window.
#pragma once

#include <string>
#include <vector>

class QMimeData;

namespace sm::qt {

/// Paths of those that lie on this machine.
std::vector<std::string> FilesIn(const QMimeData* dragged);

} // namespace sm::qt
