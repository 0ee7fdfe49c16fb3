// SPDX-License-Identifier: GPL-3.0-or-later
// The streams of a compound file: the container of OLE objects (published file format, versions 3 and 4).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

class CompoundFile {
public:
    /// Over bytes that outlive it. Damage makes streams shorter or lets them be missing; nothing throws.
    explicit CompoundFile(std::string_view bytes);
    /// The first stream with that name, which may begin with a control character; empty when there is none.
    [[nodiscard]] std::string StreamOf(std::string_view name) const;

private:
    struct Stream {
        std::string name;
        std::uint32_t start = 0;
        std::uint64_t size = 0;
    };
    [[nodiscard]] std::string_view Sector(std::uint32_t index) const;
    [[nodiscard]] std::string Chain(std::uint32_t start, std::uint64_t limit) const;
    [[nodiscard]] std::string SmallChain(std::uint32_t start, std::uint64_t size) const;
    void ReadSectorTable();
    void ReadDirectory();

    std::string_view m_bytes;
    std::uint32_t m_sectorSize = 512, m_smallSize = 64, m_smallLimit = 4096;
    std::vector<std::uint32_t> m_next, m_smallNext;
    std::string m_smallSectors;
    std::vector<Stream> m_streams;
};

} // namespace sm::render
