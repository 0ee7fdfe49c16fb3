// When the calls of a double are made to fail.
#pragma once

namespace sm {

/// Counts every call and tells which of them fail: with `Once` the call number `countdown` (1 is the next one), with
/// `Onwards` that call and all after it. Set `mode` and `countdown` together; `calls` and `injected` only ever grow
/// until the plan is replaced.
struct FaultPlan {
    enum class Mode { None, Once, Onwards };
    Mode mode = Mode::None;
    int countdown = 0;
    int calls = 0;    ///< made since the plan was set
    int injected = 0; ///< of these, how many were made to fail

    /// One call: counts it and says whether it fails.
    bool ShouldFail()
    {
        ++calls;
        const bool fails = (mode == Mode::Once && calls == countdown) || (mode == Mode::Onwards && calls >= countdown);
        injected += fails ? 1 : 0;
        return fails;
    }
};

} // namespace sm
