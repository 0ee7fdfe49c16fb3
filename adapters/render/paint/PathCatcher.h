// SPDX-License-Identifier: GPL-3.0-or-later
// A canvas that keeps lines instead of drawing them.
#pragma once

#include "geometry/MappedPath.h"

namespace sm::render {

/// Appends the outline of all that is drawn to `path`.
class PathCatcher final : public ICanvas {
public:
    explicit PathCatcher(Path& path) : m_path(path) {}
    void PushClip(const Path& /*path*/, FillRule /*rule*/) override {}
    void PopClip() override {}
    void Stroke(const Path& path, const StrokeStyle& /*style*/) override { Append(m_path, path); }
    void Fill(const Path& path, std::uint32_t /*color*/, FillRule /*rule*/) override { Append(m_path, path); }
    void Text(const TextRun& /*run*/) override {}

private:
    Path& m_path;
};

} // namespace sm::render
