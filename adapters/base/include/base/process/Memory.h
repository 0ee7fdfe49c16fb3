// SPDX-License-Identifier: GPL-3.0-or-later
// Memory that the system did not give.
#pragma once

namespace sm::base {

/// From now on it is remembered when an allocation fails, and a failure that nobody can catch (in what is made before
/// main, in what may not throw) ends the process with 1 and one line on the error stream.
void WatchMemory(const char* program);

/// Whether an allocation failed since: whatever caught that, what this process made may lack something.
bool MemoryRanOut();

/// What calls this got no memory and can't throw. Is remembered, and ends the process after `EndWithoutMemory`.
void NoteFailedAllocation() noexcept;

/// From now on such a failure, and one that nobody can catch, end the process with this exit code and without a word:
/// for a worker, whose parent tells.
void EndWithoutMemory(int code);

} // namespace sm::base
