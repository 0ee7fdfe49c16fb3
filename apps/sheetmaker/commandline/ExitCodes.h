// SPDX-License-Identifier: GPL-3.0-or-later
// What the program's exit code says.
#pragma once

namespace sm::app {

inline constexpr int kExitDone = 0;          ///< everything asked for was done
inline constexpr int kExitFailed = 1;        ///< some of it failed
inline constexpr int kExitUsage = 2;         ///< the command line is wrong; nothing was started
inline constexpr int kExitToolMissing = 3;   ///< a needed tool or file of the install is missing
inline constexpr int kExitContentLost = 4;   ///< converted, but the input was damaged and content was lost
inline constexpr int kExitInterrupted = 130; ///< ended by Ctrl+C or a request to terminate

} // namespace sm::app
