// SPDX-License-Identifier: GPL-3.0-or-later
// Drawings read by threads of their own before they are asked for, while those before them are plotted.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/DwgConverter.h"

#include <cstddef>
#include <deque>
#include <future>
#include <memory>
#include <string>
#include <vector>

namespace sm::drawing {

class ReadAhead {
public:
    /// `paths` in the order in which they will be taken. At most `ahead` are read, or wait to be taken, at a time; with
    /// 0 none is.
    ReadAhead(std::vector<std::string> paths, std::size_t ahead, DwgOptions dwg = {});
    /// Waits for what is being read.
    ~ReadAhead() = default;
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// The drawing; one that isn't among the next paths is read now, and changes nothing. Paths before it are given up.
    /// Throws like Drawing::Open.
    std::unique_ptr<Drawing> Take(const std::string& path);

private:
    void Begin();

    struct Reading {
        std::string path;
        std::future<std::unique_ptr<Drawing>> drawing;
    };
    std::deque<std::string> m_later;
    std::deque<Reading> m_begun;
    std::size_t m_ahead;
    DwgOptions m_dwg;
};

} // namespace sm::drawing
