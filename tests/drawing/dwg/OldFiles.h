// SPDX-License-Identifier: GPL-3.0-or-later
// DWG files of R9 to R12 that tests make themselves, record by record.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sm::drawing::dwg::testing {

enum class OldKind : std::uint8_t { R9, R10, R11 };

/// Eight bytes.
std::string Number(double value);

/// Builds a file: tables and entities are given as the bytes behind their heads.
class OldFileWriter {
public:
    explicit OldFileWriter(OldKind kind) : m_kind(kind) {}

    /// One of BLOCK 0, LAYER 1, STYLE 2, LTYPE 3.
    OldFileWriter& Record(unsigned table, unsigned flags, const std::string& name, const std::string& fields);
    /// `front`: what stands between the options and the own fields.
    OldFileWriter& Entity(unsigned type, unsigned flags, unsigned layer, unsigned options, const std::string& front,
                          const std::string& fields);
    /// The same, into the section of blocks; gives its place there.
    std::uint32_t BlockEntity(unsigned type, unsigned flags, unsigned layer, unsigned options, const std::string& front,
                              const std::string& fields);
    /// Into the extra section.
    std::uint32_t ExtraEntity(unsigned type, unsigned flags, unsigned layer, unsigned options, const std::string& front,
                              const std::string& fields);
    /// Any bytes among the entities.
    OldFileWriter& Raw(const std::string& bytes);
    /// A header variable's bytes at their place.
    OldFileWriter& At(std::uint64_t place, const std::string& bytes);
    [[nodiscard]] std::string File() const;

private:
    [[nodiscard]] std::string Framed(unsigned type, unsigned flags, unsigned layer, unsigned options,
                                     const std::string& front, const std::string& fields) const;
    [[nodiscard]] std::string Ended(std::string bytes) const;

    OldKind m_kind;
    std::vector<std::string> m_tables[4];
    std::string m_entities, m_blocks, m_extras;
    std::vector<std::pair<std::uint64_t, std::string>> m_values;
};

} // namespace sm::drawing::dwg::testing
