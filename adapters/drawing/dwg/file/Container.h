// SPDX-License-Identifier: GPL-3.0-or-later
// The streams of a DWG file from R13 on, taken out of its container and decompressed. For this room only.
#pragma once

#include "tags/FindingList.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm::drawing::dwg {

/// The releases whose files hold objects, in order: compare them with < and >=.
enum class Release : std::uint8_t { R13, R14, R2000, R2004, R2007, R2010, R2013, R2018 };

/// Where an object starts (its size field): a byte of Container::Objects().
struct ObjectPlace {
    std::uint64_t handle = 0;
    std::uint64_t offset = 0;
    friend bool operator==(const ObjectPlace&, const ObjectPlace&) = default;
};

/// What the first bytes of every file from R13 on say.
struct FileFacts {
    Release release = Release::R2018;
    bool newer = false;           ///< than R2018: read as that
    std::uint8_t maintenance = 0; ///< of the program that wrote the file (byte 0x0B)
    std::uint16_t codePage = 0;   ///< number of the code page (not its name); without meaning from R2007 on
    std::string name;             ///< for messages: "release 2000"
};

/// Every view stays valid as long as the container and the bytes it was opened from; moving it keeps them valid.
class Container {
public:
    /// `bytes` is the whole file, which must outlive the container; `path` names it in messages. Throws DrawingError
    /// (one line: file, release, what is wrong) when no objects can be taken out: encrypted under a password, cut off
    /// in its first bytes, sections nowhere to be found. What is wrong but can be gone past is added to `findings`.
    static Container Open(std::string_view bytes, const std::string& path, FindingList& findings);

    [[nodiscard]] const FileFacts& Facts() const { return m_facts; }
    [[nodiscard]] Release FileRelease() const { return m_facts.release; }
    /// Header variables and classes have a high half of their size behind the size.
    [[nodiscard]] bool HasLongSizes() const;

    /// The header variables and the classes, behind their begin sentinel: the size field comes first. What follows
    /// the size is cut to what is there. Empty when missing.
    [[nodiscard]] std::string_view Header() const { return m_header; }
    [[nodiscard]] std::string_view Classes() const { return m_classes; }
    /// What the offsets of the map count in: the whole file up to R2000, the objects' section from R2004 on.
    [[nodiscard]] std::string_view Objects() const { return m_objects; }
    /// Ascending by handle, each handle once (the last one of the file), each offset inside Objects(). Not proven to
    /// point to an object of that handle: dwg/recovery does that.
    [[nodiscard]] const std::vector<ObjectPlace>& Map() const { return m_map; }
    /// The map was missing, cut off or wrong by its checksums: objects may be missing from it.
    [[nodiscard]] bool MapDamaged() const { return m_mapDamaged; }
    /// The data section AcDb:AcDsPrototype_1b (R2013 and later: bodies, previews). Empty when there is none.
    [[nodiscard]] std::string_view DataStore() const { return m_dataStore; }
    /// The summary information (title, author, ...) from R2004 on, as it lies in the file. Empty when there is none.
    [[nodiscard]] std::string_view Summary() const { return m_summary; }
    /// 0 imperial, 1 metric: the variable $MEASUREMENT, which is nowhere else in the file.
    [[nodiscard]] std::optional<std::int16_t> Measurement() const { return m_measurement; }

private:
    friend class ContainerBuilder;

    FileFacts m_facts;
    struct Free {
        void operator()(char* bytes) const { std::free(bytes); }
    };
    std::vector<std::unique_ptr<char, Free>> m_buffers; ///< what was decompressed; views point into them
    std::string_view m_header, m_classes, m_objects, m_dataStore, m_summary;
    std::vector<ObjectPlace> m_map;
    std::optional<std::int16_t> m_measurement;
    bool m_mapDamaged = false;
};

} // namespace sm::drawing::dwg
