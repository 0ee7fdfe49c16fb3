// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the publishing library is installed.
#pragma once

namespace sm::windows {

/// Documents of the library can be made in this process. Needs COM on the thread; makes no document.
bool LibraryIsThere() noexcept;

enum class ProgramBits { Of32, Of64 };

/// The library is registered for programs of so many bits, as far as the registry tells.
bool LibraryIsRegistered(ProgramBits bits) noexcept;

} // namespace sm::windows
