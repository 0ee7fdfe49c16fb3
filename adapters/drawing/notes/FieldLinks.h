// SPDX-License-Identifier: GPL-3.0-or-later
// The hyperlinks that a text's fields carry. For this room only.
#pragma once

#include "drawing/entities/Hyperlinks.h"
#include "tags/Source.h"

namespace sm::drawing {

/// Appends the hyperlinks of the FIELD objects that an extension dictionary holds under "ACAD_FIELD", and of their
/// child fields, in file order. A field's own "PE_URL" extended data counts; where it has none, an address in its code
/// (`\href "…"`).
void ReadFieldLinks(const Drawing::Source& source, Handle extensionDictionary, std::vector<Hyperlink>& links);

/// Collects the groups of one "PE_URL" application: the address; then in braces the description, perhaps the place
/// within the document, and in further braces flags. Several links follow each other.
class LinkReader {
public:
    LinkReader(const Drawing::Source& source, std::vector<Hyperlink>& links) : m_source(source), m_links(links) {}

    void Take(const TagCursor& tags);

private:
    void TakeText(std::string_view raw);

    const Drawing::Source& m_source;
    std::vector<Hyperlink>& m_links;
    int m_depth = 0, m_texts = 0;
};

inline constexpr std::string_view kLinkApplication = "PE_URL";

} // namespace sm::drawing
