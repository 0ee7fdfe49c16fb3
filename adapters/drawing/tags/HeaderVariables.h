// SPDX-License-Identifier: GPL-3.0-or-later
// The header variables of a drawing, found by name and read when they are asked for.
#pragma once

#include "base/Geometry.h"
#include "drawing/TextDecoder.h"
#include "tags/Structure.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace sm::drawing {

class HeaderVariables {
public:
    HeaderVariables() = default;
    /// `variables` are slices of `file`; both it and `unread`, which is told of values that are no numbers, must
    /// outlive this.
    HeaderVariables(std::string_view file, TagFormat format, const std::vector<NamedSlice>& variables,
                    UnreadNumbers& unread);

    [[nodiscard]] double Real(std::string_view name, double fallback) const;
    [[nodiscard]] std::int32_t Integer(std::string_view name, std::int32_t fallback) const;
    /// The bytes in the file; nothing when missing or of another kind.
    [[nodiscard]] std::optional<std::string_view> RawText(std::string_view name) const;
    [[nodiscard]] std::optional<Vec3> Point(std::string_view name) const;

private:
    [[nodiscard]] std::optional<TagCursor> First(std::string_view name) const;

    std::string_view m_file;
    TagFormat m_format = TagFormat::Ascii;
    UnreadNumbers* m_unread = nullptr; ///< null while there are no variables
    std::unordered_map<std::string_view, Slice> m_slices;
};

} // namespace sm::drawing
