// SPDX-License-Identifier: GPL-3.0-or-later
// A call from which nothing escapes.
#pragma once

namespace sm::windows {

/// `body`'s result; `otherwise` when it throws, whatever it throws.
template <class Result, class Body> Result Attempted(Result otherwise, const Body& body) noexcept
{
    try {
        return body();
    } catch (...) {
        return otherwise;
    }
}

} // namespace sm::windows
