#include "drawing/EntityTags.h"

namespace sm::drawing {

namespace {

/// Collects the groups of one "PE_URL" application: the address; then in braces the description, perhaps the place
/// within the document, and in further braces flags. A drawing's several links follow each other.
class LinkReader {
public:
    LinkReader(const Drawing::Source& source, std::vector<Hyperlink>& links) : m_source(source), m_links(links) {}

    void Take(const TagCursor& tags)
    {
        if (tags.Code() == 1002)
            m_depth += tags.Name() == "{" ? 1 : -1;
        else if (tags.Code() == 1000)
            TakeText(tags.Text());
    }

private:
    void TakeText(std::string_view raw)
    {
        if (m_depth <= 0) {
            m_depth = 0;
            m_texts = 0;
            m_links.emplace_back();
            DecodeText(m_source, raw, m_links.back().url);
        } else if (m_depth == 1 && !m_links.empty()) {
            ++m_texts;
            if (m_texts <= 2)
                DecodeText(m_source, raw, m_texts == 1 ? m_links.back().description : m_links.back().subLocation);
        }
    }

    const Drawing::Source& m_source;
    std::vector<Hyperlink>& m_links;
    int m_depth = 0, m_texts = 0;
};

} // namespace

void ReadHyperlinks(const Drawing& drawing, const EntityRecord& record, std::vector<Hyperlink>& links)
{
    links.clear();
    const Drawing::Source& source = drawing.Tags();
    TagCursor tags(source.File(), source.format, record.begin, record.length, record.line + 1);
    LinkReader reader(source, links);
    bool mine = false;
    while (tags.Next() && tags.Code() != 0) {
        if (tags.Code() == 1001)
            mine = tags.Name() == "PE_URL";
        else if (mine)
            reader.Take(tags);
    }
}

} // namespace sm::drawing
