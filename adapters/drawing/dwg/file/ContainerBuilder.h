// SPDX-License-Identifier: GPL-3.0-or-later
// What the readers of the three kinds of container share: messages, bounded memory, and where the streams go.
#pragma once

#include "dwg/file/Container.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace sm::drawing::dwg {

/// The streams that are taken out of a container.
enum class Stream : std::uint8_t { Header, Classes, Map, Objects, DataStore, Summary, Template };
inline constexpr std::size_t kStreams = 7;

/// Where the file says, from R2004 on, which of its parts are encrypted.
inline constexpr std::uint64_t kSecurityAt = 0x18;

class ContainerBuilder {
public:
    ContainerBuilder(std::string_view file, const std::string& path, FindingList& findings);

    [[nodiscard]] std::string_view File() const { return m_file; }
    [[nodiscard]] const FileFacts& Facts() const { return m_built.m_facts; }
    /// Ends the reading with a line that names file, release and what is wrong.
    [[noreturn]] void Refuse(const std::string& what) const;
    void Tell(Damage damage, std::uint32_t count = 1) { m_findings.Add(damage, 0, count); }
    /// Once, however many do not match.
    void TellChecksum();

    /// Zeros that live as long as the container. Never more in all than the file's size can justify: fewer (and told)
    /// when `size` goes beyond that.
    std::span<char> Zeros(std::uint64_t size);
    /// The same, not cleared: for who writes all of it.
    std::span<char> Room(std::uint64_t size);
    /// The same for what is only needed while the container is opened.
    std::vector<char> Scratch(std::uint64_t size);

    void Put(Stream stream, std::string_view bytes) { m_streams[static_cast<std::size_t>(stream)] = bytes; }
    [[nodiscard]] std::string_view Get(Stream stream) const { return m_streams[static_cast<std::size_t>(stream)]; }

    /// The container over what was put.
    Container Finish();

private:
    std::uint64_t Granted(std::uint64_t size);
    std::span<char> Kept(char* bytes, std::uint64_t size);
    std::string_view Behind(std::string_view section, std::string_view sentinel);
    void CheckSection(std::string_view section);
    void ReadMap();
    void ReadTemplate();

    std::string_view m_file;
    const std::string& m_path;
    FindingList& m_findings;
    Container m_built;
    std::string_view m_streams[kStreams];
    std::uint64_t m_left; ///< bytes that may still be allocated
};

/// The bytes of a section while its pages are written into them. What no page reaches becomes zeros, once, instead of
/// everything before.
class SectionBytes {
public:
    /// The first `set` bytes have a value already.
    explicit SectionBytes(std::span<char> bytes, std::uint64_t set = 0) : m_bytes(bytes), m_set(set) {}

    [[nodiscard]] std::uint64_t Size() const { return m_bytes.size(); }
    /// Where a page of `size` bytes goes that begins at `offset`, which lies inside: what of it has room.
    std::span<char> Page(std::uint64_t offset, std::uint64_t size)
    {
        ClearTo(offset);
        const auto left = m_bytes.subspan(offset);
        return left.first(std::min<std::uint64_t>(left.size(), size));
    }
    /// So many bytes of the page at `offset` were written.
    void Wrote(std::uint64_t offset, std::uint64_t count) { m_set = std::max(m_set, offset + count); }
    std::string_view Finish()
    {
        ClearTo(m_bytes.size());
        return {m_bytes.data(), m_bytes.size()};
    }

private:
    void ClearTo(std::uint64_t end)
    {
        if (end > m_set)
            std::memset(m_bytes.data() + m_set, 0, end - m_set);
        m_set = std::max(m_set, end);
    }

    std::span<char> m_bytes;
    std::uint64_t m_set;
};

/// R13 to R2000: sections lie in the file at the places that its head lists.
void OpenSections(ContainerBuilder& builder);
/// R2004 and R2010 to R2018: sections are cut into compressed pages.
void OpenPages(ContainerBuilder& builder);
/// R2007: the same, with pages that can be corrected.
void OpenCodedPages(ContainerBuilder& builder);

/// Which stream a section of R2004 and later holds; nothing for those that nobody reads.
std::optional<Stream> StreamOf(std::string_view sectionName);
[[noreturn]] void RefuseEncrypted(const ContainerBuilder& builder);

} // namespace sm::drawing::dwg
