// SPDX-License-Identifier: GPL-3.0-or-later
#include "process/ChildOutput.h"

#include <algorithm>

namespace sm::base {

namespace {

constexpr std::size_t kOutputKept = 1 << 16;

} // namespace

void ChildOutput::Add(const char* data, std::size_t size)
{
    m_tail.append(data, size);
    if (m_tail.size() > 2 * kOutputKept) {
        const auto lineEnd = m_tail.rfind('\n', m_tail.size() - kOutputKept);
        Drop(lineEnd == std::string::npos ? m_tail.size() - kOutputKept : lineEnd + 1);
    }
}

void ChildOutput::Drop(std::size_t size)
{
    for (std::size_t at = 0; !m_keptLines.empty() && at < size;) {
        const std::size_t end = std::min(m_tail.find('\n', at), size - 1) + 1;
        if (m_tail.compare(at, m_keptLines.size(), m_keptLines) == 0 && m_kept.size() < kOutputKept * 16) {
            m_kept.append(m_tail, at, end - at);
        }
        at = end;
    }
    m_tail.erase(0, size);
}

} // namespace sm::base
