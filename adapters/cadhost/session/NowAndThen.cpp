// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/NowAndThen.h"

#include <chrono>
#include <cstdint>

namespace sm::cadhost {

std::function<bool()> NowAndThen(std::function<bool()> ask)
{
    using Clock = std::chrono::steady_clock;
    struct State {
        std::uint32_t questions = 0;
        bool answer = true;
        Clock::time_point last = Clock::now();
    };
    return [ask = std::move(ask), state = State()]() mutable {
        constexpr std::uint32_t kOften = 256;
        constexpr auto kLong = std::chrono::milliseconds(100); // that a user waits for an answer
        const bool isTime = ++state.questions % kOften == 0 || Clock::now() - state.last > kLong;
        if (!state.answer || !isTime)
            return state.answer;
        state.answer = ask();
        state.last = Clock::now();
        return state.answer;
    };
}

} // namespace sm::cadhost
