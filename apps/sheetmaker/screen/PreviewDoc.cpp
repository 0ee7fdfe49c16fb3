// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/PreviewDoc.h"

#include "base/files/Paths.h"

#include <filesystem>

namespace sm::app {

using beside::PageMark;
using beside::PageMarkKind;

std::int32_t PreviewDoc::AddTextStampMark(std::int32_t, double x, double y, const std::string& text,
                                          const std::string& fontName, std::int32_t fontSize, std::int32_t color,
                                          std::int32_t justification)
{
    m_marks.push_back(
        {PageMarkKind::Stamp, {x, y}, {x, y}, text, fontName, static_cast<double>(fontSize), color, justification});
    return 0;
}

std::int32_t PreviewDoc::AddSignatureFieldMark(std::int32_t, double x1, double y1, double x2, double y2,
                                               const std::string& name, const std::string&)
{
    m_marks.push_back({PageMarkKind::Field, {x1, y1}, {x2, y2}, name});
    return 0;
}

std::int32_t PreviewDoc::AddAttachmentMark(std::int32_t, double x, double y, const std::string& filePath, bool& added)
{
    std::error_code missing;
    added = std::filesystem::is_regular_file(base::ToPath(filePath), missing);
    if (added)
        m_marks.push_back({PageMarkKind::Attachment, {x, y}, {x, y}, base::ToText(base::ToPath(filePath).filename())});
    return 0;
}

std::int32_t PreviewDoc::AddLinkMark(std::int32_t, double x1, double y1, double x2, double y2, const std::string& url)
{
    m_marks.push_back({PageMarkKind::Link, {x1, y1}, {x2, y2}, url});
    return 0;
}

} // namespace sm::app
