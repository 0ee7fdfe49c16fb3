// SPDX-License-Identifier: GPL-3.0-or-later
// What a program printed.
#pragma once

#include <cstddef>
#include <string>

namespace sm::base {

/// The end of what was printed, and the lines before it that must not get lost.
class ChildOutput {
public:
    /// Lines that begin with `keptLines` are kept.
    explicit ChildOutput(std::string keptLines) : m_keptLines(std::move(keptLines)) {}

    void Add(const char* data, std::size_t size);
    [[nodiscard]] std::string Text() const { return m_kept + m_tail; }

private:
    void Drop(std::size_t size);

    std::string m_keptLines;
    std::string m_kept;
    std::string m_tail;
};

} // namespace sm::base
