// SPDX-License-Identifier: GPL-3.0-or-later
// What is fuzzed: readers of what comes from outside, each behind one function.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sm::fuzz {

/// How inputs are changed besides byte by byte.
enum class Changes : std::uint8_t {
    Bytes,
    Tags,  ///< lines in pairs, a group code and its value
    Lines, ///< of text
};

struct Target {
    const char* name;
    /// Ends the process when what must hold doesn't; refusals are part of the work.
    void (*run)(std::string_view input);
    /// Longest input, bytes: short ones run more often and find as much.
    std::size_t most;
    /// Small inputs of our own to begin with.
    std::vector<std::string> (*seeds)();
    Changes changes = Changes::Bytes;
    /// How inputs of one kind are counted; null: they are all of one.
    std::string (*kind)(std::string_view input) = nullptr;
};

std::span<const Target> Targets();
/// Null when there is none of that name.
const Target* FindTarget(std::string_view name);

/// Ends the process with a line that says what didn't hold.
[[noreturn]] void Fail(const char* what);
/// Fails unless `text`, the reason of a refusal, is one line; `begins`: with what it has to begin.
void CheckReason(std::string_view text, std::string_view begins = "");

} // namespace sm::fuzz
