// SPDX-License-Identifier: GPL-3.0-or-later
// The entities and objects of a DWG that are decoded when they are asked for. For this room only.
#pragma once

#include "dwg/read/DwgReading.h"
#include "tags/FileBytes.h"

#include <mutex>

namespace sm::drawing::dwg {

/// Keeps what they are decoded from: the file, its streams and the list of its objects.
class LateEntities final : public LateTags {
public:
    /// Opens the file; throws DrawingError as Container::Open does. `findings` is told of what Read finds.
    LateEntities(const FileBytes& file, const std::string& path, FindingList& findings);

    /// Everything but what waits. Once.
    DecodedTags Read();
    [[nodiscard]] bool Any() const { return !m_reading.Waiting().empty(); }
    /// The file of tags: `tags`, and behind them room for those to come.
    FileBytes Join(std::string_view tags);

    Slice TagsOf(std::uint64_t begin) override;
    [[nodiscard]] Handle HandleOf(std::uint64_t begin) const override;
    Lost TakeLost() override;

private:
    /// Where the tags lie: 0 before they are made, which no such tags begin at.
    struct Place {
        std::uint64_t begin = 0, length = 0;
    };
    Place Make(std::uint64_t index);

    FileBytes m_file;
    Container m_container;
    DwgReading m_reading;
    std::uint64_t m_most;
    std::mutex m_making;
    std::vector<Place> m_places;
    std::shared_ptr<char> m_tags;
    std::uint64_t m_used = 0, m_room = 0;
    Place m_invisible; ///< what stands for a damaged entity
    Lost m_lost;
};

} // namespace sm::drawing::dwg
