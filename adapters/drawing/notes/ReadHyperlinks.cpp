// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/Hyperlinks.h"
#include "notes/FieldLinks.h"

namespace sm::drawing {

void ReadHyperlinks(const Drawing& drawing, const EntityRecord& record, std::vector<Hyperlink>& links)
{
    links.clear();
    const Drawing::Source& source = drawing.Tags();
    TagCursor tags = source.TagsOf(record);
    LinkReader reader(source, links);
    bool mine = false, inExtension = false;
    Handle extension = 0;
    while (tags.Next() && tags.Code() != 0) {
        if (tags.Code() == 1001)
            mine = tags.Name() == kLinkApplication;
        else if (mine)
            reader.Take(tags);
        else if (tags.Code() == 102)
            inExtension = tags.Name() == "{ACAD_XDICTIONARY";
        else if (inExtension && tags.Code() == 360)
            extension = tags.HandleValue();
    }
    if (links.empty() && extension != 0 && !source.fields.empty())
        ReadFieldLinks(source, extension, links);
}

} // namespace sm::drawing
