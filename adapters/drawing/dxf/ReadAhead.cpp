// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/ReadAhead.h"

#include <algorithm>
#include <iterator>
#include <system_error>

namespace sm::drawing {

ReadAhead::ReadAhead(std::vector<std::string> paths, std::size_t ahead, DwgOptions dwg)
    : m_later(std::make_move_iterator(paths.begin()), std::make_move_iterator(paths.end())), m_ahead(ahead),
      m_dwg(std::move(dwg))
{
    Begin();
}

void ReadAhead::Begin()
{
    while (m_begun.size() < m_ahead && !m_later.empty()) {
        const std::string& path = m_later.front();
        try {
            m_begun.push_back(
                {path, std::async(std::launch::async, [path, dwg = m_dwg] { return Drawing::Open(path, dwg); })});
        } catch (const std::system_error&) { // no thread to be had: it is read when it is taken
            return;
        }
        m_later.pop_front();
    }
}

std::unique_ptr<Drawing> ReadAhead::Take(const std::string& path)
{
    const auto begun = std::ranges::find(m_begun, path, &Reading::path);
    const auto later = std::ranges::find(m_later, path);
    if (begun == m_begun.end() && later == m_later.end()) {
        return Drawing::Open(path, m_dwg);
    }
    std::future<std::unique_ptr<Drawing>> drawing;
    if (begun != m_begun.end()) {
        drawing = std::move(begun->drawing);
        m_begun.erase(m_begun.begin(), std::next(begun));
    } else {
        m_begun.clear();
        m_later.erase(m_later.begin(), std::next(later));
    }
    Begin();
    return drawing.valid() ? drawing.get() : Drawing::Open(path, m_dwg);
}

} // namespace sm::drawing
