// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of a page as PostScript resources, each defined once however often it is placed.
#pragma once

#include "postscript/BodyText.h"
#include "render/Picture.h"

#include <map>
#include <string>

namespace sm::plotter {

/// Keeps the finished text of each picture, which goes to a file in `folder` when it grows long.
class PsPictures {
public:
    explicit PsPictures(std::string folder) : m_text(std::move(folder)) {}
    /// The number n of the resource In that shows `picture`; pictures of one id share it.
    std::size_t Add(const render::Picture& picture);
    [[nodiscard]] bool Empty() const { return m_numbers.empty(); }
    /// Hands all resources over, in pieces. Throws std::system_error.
    void WriteTo(const BodyText::Sink& sink) { m_text.WriteTo(sink); }

private:
    std::map<std::uint64_t, std::size_t> m_numbers; ///< by id
    BodyText m_text;
};

} // namespace sm::plotter
