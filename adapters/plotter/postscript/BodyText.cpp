#include "postscript/BodyText.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdlib.h>
#include <system_error>
#include <unistd.h>

namespace sm::plotter {

namespace {

[[noreturn]] void ThrowErrno(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

int OpenUnnamedFile(const std::string& folder)
{
    std::string name = (folder.empty() ? "." : folder) + "/.plot-XXXXXX";
    const int fd = mkostemp(name.data(), O_CLOEXEC);
    if (fd < 0) {
        ThrowErrno("can't create a temporary file");
    }
    unlink(name.c_str());
    return fd;
}

} // namespace

void WriteAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t done = ::write(fd, bytes.data(), bytes.size());
        if (done < 0 && errno != EINTR) {
            ThrowErrno("can't write");
        }
        bytes.remove_prefix(done > 0 ? static_cast<std::size_t>(done) : 0);
    }
}

BodyText::BodyText(std::string folder, std::size_t spillAfter)
    : m_folder(std::move(folder)), m_spillAfter(std::max(spillAfter, kBlock))
{
}

BodyText::~BodyText()
{
    if (m_spillFile >= 0) {
        ::close(m_spillFile);
    }
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
    if (m_spillFile < 0) {
        m_spillFile = OpenUnnamedFile(m_folder);
    }
    for (const Block& block : m_blocks) {
        WriteAll(m_spillFile, {block.bytes.get(), block.used});
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

void BodyText::WriteTo(int fd)
{
    if (m_spillFile >= 0 && ::lseek(m_spillFile, 0, SEEK_SET) < 0) {
        ThrowErrno("can't read the temporary file");
    }
    std::vector<char> buffer(m_spilled > 0 ? kBlock : 0);
    for (std::size_t left = m_spilled; left > 0;) {
        const ssize_t got = ::read(m_spillFile, buffer.data(), std::min(buffer.size(), left));
        if (got <= 0) {
            ThrowErrno("can't read the temporary file");
        }
        WriteAll(fd, {buffer.data(), static_cast<std::size_t>(got)});
        left -= static_cast<std::size_t>(got);
    }
    if (!m_blocks.empty()) {
        m_blocks.back().used = static_cast<std::size_t>(m_at - m_blocks.back().bytes.get());
    }
    for (const Block& block : m_blocks) {
        WriteAll(fd, {block.bytes.get(), block.used});
    }
}

} // namespace sm::plotter
