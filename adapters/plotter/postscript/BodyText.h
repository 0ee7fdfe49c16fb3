// SPDX-License-Identifier: GPL-3.0-or-later
// The page's operators while they are written: a growing text that allocates by the megabyte and spills to disk when
// large.
#pragma once

#include "base/files/File.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace sm::plotter {

/// Bytes wait in blocks of a megabyte; beyond `spillAfter` bytes they go to an unnamed file in `folder`.
class BodyText {
public:
    explicit BodyText(std::string folder, std::size_t spillAfter = std::size_t{64} << 20);
    BodyText(const BodyText&) = delete;
    BodyText& operator=(const BodyText&) = delete;

    /// A place for up to `room` bytes (at most kBlock); `Advance` says how far it was filled.
    char* Reserve(std::size_t room)
    {
        if (m_end - m_at < static_cast<std::ptrdiff_t>(room)) {
            NextBlock();
        }
        return m_at;
    }
    void Advance(char* filledTo) { m_at = filledTo; }
    void Append(std::string_view text);
    /// Takes the text in pieces of at most a block.
    using Sink = std::function<void(std::string_view piece)>;
    /// Hands everything over, in order. Throws std::system_error.
    void WriteTo(const Sink& sink);

private:
    static constexpr std::size_t kBlock = std::size_t{1} << 20;
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t used = 0;
    };
    void NextBlock();
    void Spill();

    std::string m_folder;
    std::size_t m_spillAfter;
    std::vector<Block> m_blocks;
    char* m_at = nullptr;
    char* m_end = nullptr;
    base::File m_spillFile;
    std::size_t m_spilled = 0;
};

} // namespace sm::plotter
