// SPDX-License-Identifier: GPL-3.0-or-later
// Changes inputs: the same seed makes the same changes, on every machine.
#pragma once

#include "fuzz/Target.h"

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace sm::fuzz {

class Mutator {
public:
    Mutator(const Target& target, std::span<const std::string> others, std::uint64_t seed);
    /// `input` with one to four changes as the target has them, bytes among them; at most the target's longest.
    std::string Mutated(const std::string& input);
    /// The same without changes of bytes: whole pairs or lines alone.
    std::string MutatedWhole(const std::string& input);
    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(m_random() % limit); }

private:
    using Records = std::vector<std::string>;
    [[nodiscard]] Records Split(std::string_view text) const;
    void ChangeBytes(std::string& input);
    void ChangeRecords(Records& records);
    void ChangeRecord(std::string& record);
    void ChangePair(std::string& pair);
    void ChangeLine(std::string& line);
    void Splice(Records& records);
    std::string Hostile();

    const Target& m_target;
    std::span<const std::string> m_others; ///< what is spliced in
    std::mt19937_64 m_random;
};

} // namespace sm::fuzz
