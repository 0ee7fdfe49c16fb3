// SPDX-License-Identifier: GPL-3.0-or-later
// Where a page of the help is found by programs that open files.
#pragma once

#include <string>

namespace sm::app {

/// "file:///help/index.html#c400" as "file:///help/topics/c400.html", a page that leads on to the anchor: what opens
/// files on a desktop drops the part behind "#". Everything else comes back as it is.
std::string HelpTopic(const std::string& address);

} // namespace sm::app
