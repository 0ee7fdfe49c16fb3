// SPDX-License-Identifier: GPL-3.0-or-later
// The PDF's document information, once as the classic dictionary's entries and once as an XMP packet.
#pragma once

#include "ports/IPubDoc.h"
#include "publisher/Archive.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace sm::publisher {

class DocumentInfo {
public:
    /// Sets an entry; an empty key is ignored, an empty value removes it. Text that isn't UTF-8 is mended.
    void Set(const std::string& key, const std::string& value);
    void SetDates(LocalDateTime creation, LocalDateTime modification);
    [[nodiscard]] std::optional<std::string> Value(const std::string& key) const;

    /// In the order they were first set; the dates, in the form of PDF dates, come last.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> Entries() const;
    /// A whole packet with the same values, but for the entries of our users' own in one by a standard: their schema
    /// would have to stand in it.
    [[nodiscard]] std::string Xmp(Archive archive = Archive::None) const;

private:
    void Remove(std::size_t place);

    std::vector<std::pair<std::string, std::string>> m_entries;
    std::unordered_map<std::string, std::size_t> m_places; ///< of the keys in m_entries
    std::optional<LocalDateTime> m_creation;
    std::optional<LocalDateTime> m_modification;
};

/// "D:20261120234539+01'00'" in the time zone of the machine.
std::string PdfDate(LocalDateTime time);
/// "2026-11-20T23:45:39+01:00".
std::string XmpDate(LocalDateTime time);

} // namespace sm::publisher
