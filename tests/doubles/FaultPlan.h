// SPDX-License-Identifier: GPL-3.0-or-later
// When the calls of a double are made to fail.
#pragma once

namespace sm {

/// Counts calls and tells which of them fail: with `Once` the call number `countdown` (1 is the next one), with
/// `Onwards` that call and all after it. Set `mode` and `countdown` together; `calls` and `injected` only ever grow
/// until the plan is replaced.
struct FaultPlan {
    enum class Mode { None, Once, Onwards };
    /// How a call fails: it throws, or, where it gives an object, a text or a list, it gives a null or empty one. Only
    /// calls that can fail in that way are counted.
    enum class Kind { Throws, AnswersNothing };
    Mode mode = Mode::None;
    int countdown = 0;
    Kind kind = Kind::Throws;
    int calls = 0;    ///< made since the plan was set
    int injected = 0; ///< of these, how many were made to fail

    /// One call: counts it and says whether it throws.
    bool ShouldFail() { return kind == Kind::Throws && Counted(); }
    /// One answer that may be nothing: counts it and says whether it is.
    bool ShouldAnswerNothing() { return kind == Kind::AnswersNothing && Counted(); }

private:
    bool Counted()
    {
        ++calls;
        const bool fails = (mode == Mode::Once && calls == countdown) || (mode == Mode::Onwards && calls >= countdown);
        injected += fails ? 1 : 0;
        return fails;
    }
};

} // namespace sm
