// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/HeaderVariables.h"

namespace sm::drawing {

namespace {

bool IsRealCode(int code)
{
    return (code >= 10 && code <= 59) || (code >= 140 && code <= 149);
}
bool IsIntegerCode(int code)
{
    return (code >= 60 && code <= 99) || (code >= 160 && code <= 179) || (code >= 270 && code <= 299) ||
           (code >= 370 && code <= 389) || (code >= 420 && code <= 429);
}
bool IsTextCode(int code)
{
    return (code >= 1 && code <= 9) || (code >= 300 && code <= 369) || (code >= 390 && code <= 399);
}

} // namespace

HeaderVariables::HeaderVariables(std::string_view file, TagFormat format, const std::vector<NamedSlice>& variables,
                                 UnreadNumbers& unread)
    : m_file(file), m_format(format), m_unread(&unread)
{
    for (const NamedSlice& variable : variables)
        m_slices.emplace(variable.name, variable.slice);
}

std::optional<TagCursor> HeaderVariables::First(std::string_view name) const
{
    const auto found = m_slices.find(name);
    if (found == m_slices.end())
        return std::nullopt;
    TagCursor tags = TagsOf(m_file, m_format, found->second);
    tags.Tell(*m_unread);
    return tags.Next() ? std::optional(tags) : std::nullopt;
}

double HeaderVariables::Real(std::string_view name, double fallback) const
{
    const std::optional<TagCursor> tag = First(name);
    return tag && (IsRealCode(tag->Code()) || IsIntegerCode(tag->Code())) ? tag->Real() : fallback;
}

std::int32_t HeaderVariables::Integer(std::string_view name, std::int32_t fallback) const
{
    const std::optional<TagCursor> tag = First(name);
    return tag && IsIntegerCode(tag->Code()) ? tag->Integer() : fallback;
}

std::optional<std::string_view> HeaderVariables::RawText(std::string_view name) const
{
    const std::optional<TagCursor> tag = First(name);
    return tag && IsTextCode(tag->Code()) ? std::optional(tag->Text()) : std::nullopt;
}

std::optional<Vec3> HeaderVariables::Point(std::string_view name) const
{
    std::optional<TagCursor> tag = First(name);
    if (!tag || tag->Code() != 10)
        return std::nullopt;
    Vec3 point{tag->Real(), 0, 0};
    while (tag->Next()) {
        if (tag->Code() == 20)
            point.y = tag->Real();
        else if (tag->Code() == 30)
            point.z = tag->Real();
    }
    return point;
}

} // namespace sm::drawing
