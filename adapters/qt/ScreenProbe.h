// Whether there is a screen to be had. Qt ends the process when there is none, so this is asked first.
#pragma once

#include <string>

namespace sm::qt {

/// Looks at QT_QPA_PLATFORM, DISPLAY and WAYLAND_DISPLAY. An X display is connected to and left again; what can't be
/// told that way is tried out in a child process, for ten seconds at most. On false `why` says in one sentence what is
/// missing.
bool ScreenIsThere(std::string& why);

} // namespace sm::qt
