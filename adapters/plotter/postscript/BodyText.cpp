// SPDX-License-Identifier: GPL-3.0-or-later
#include "postscript/BodyText.h"

#include <algorithm>
#include <cstring>
#include <system_error>

namespace sm::plotter {

namespace {

base::File OpenSpillFile(const std::string& folder)
{
    std::error_code error;
    base::File file = base::File::CreateUnnamed(folder, error);
    if (!file.IsOpen()) {
        throw std::system_error(error, "can't create a temporary file");
    }
    return file;
}

} // namespace

BodyText::BodyText(std::string folder, std::size_t spillAfter)
    : m_folder(std::move(folder)), m_spillAfter(std::max(spillAfter, kBlock))
{
}

void BodyText::NextBlock()
{
    if (!m_blocks.empty()) {
        m_blocks.back().used = static_cast<std::size_t>(m_at - m_blocks.back().bytes.get());
    }
    if (m_blocks.size() * kBlock >= m_spillAfter) {
        Spill();
    } else {
        m_blocks.push_back({std::make_unique_for_overwrite<char[]>(kBlock), 0});
    }
    m_at = m_blocks.back().bytes.get();
    m_end = m_at + kBlock;
}

void BodyText::Spill()
{
    if (!m_spillFile.IsOpen()) {
        m_spillFile = OpenSpillFile(m_folder);
    }
    for (const Block& block : m_blocks) {
        m_spillFile.Write({block.bytes.get(), block.used});
        m_spilled += block.used;
    }
    m_blocks.resize(1);
    m_blocks.back().used = 0;
}

void BodyText::Append(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t part = std::min(text.size(), std::size_t{4096});
        char* at = Reserve(part);
        std::memcpy(at, text.data(), part);
        Advance(at + part);
        text.remove_prefix(part);
    }
}

void BodyText::WriteTo(const Sink& sink)
{
    if (m_spillFile.IsOpen()) {
        m_spillFile.Rewind();
    }
    std::vector<char> buffer(m_spilled > 0 ? kBlock : 0);
    for (std::size_t left = m_spilled; left > 0;) {
        const std::size_t got = m_spillFile.Read(buffer.data(), std::min(buffer.size(), left));
        if (got == 0) {
            throw std::system_error(std::make_error_code(std::errc::io_error), "can't read the temporary file");
        }
        sink({buffer.data(), got});
        left -= got;
    }
    if (!m_blocks.empty()) {
        m_blocks.back().used = static_cast<std::size_t>(m_at - m_blocks.back().bytes.get());
    }
    for (const Block& block : m_blocks) {
        sink({block.bytes.get(), block.used});
    }
}

} // namespace sm::plotter
