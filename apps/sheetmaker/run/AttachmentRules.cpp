// SPDX-License-Identifier: GPL-3.0-or-later
#include "run/AttachmentRules.h"

#include "base/files/Paths.h"
#include "publisher/AttachmentLimit.h"

#include <algorithm>
#include <fmt/format.h>

namespace sm::app {
namespace {

namespace fs = std::filesystem;

/// Links followed as far as there is something.
fs::path TruePath(const std::string& path)
{
    std::error_code unknown;
    const fs::path whole = fs::absolute(base::ToPath(path), unknown);
    const fs::path found = fs::weakly_canonical(whole, unknown);
    return unknown ? whole.lexically_normal() : found;
}

} // namespace

void AttachmentRules::DrawingIs(const std::string& path)
{
    m_drawing = base::ToText(base::ToPath(path).filename());
    m_folder = TruePath(path).parent_path();
}

bool AttachmentRules::LiesOutside(const std::string& path) const
{
    const fs::path file = TruePath(path);
    return std::mismatch(m_folder.begin(), m_folder.end(), file.begin(), file.end()).first != m_folder.end();
}

std::string AttachmentRules::ReasonAgainst(const std::string& path, std::uint64_t bytes, std::int32_t mostMebibytes)
{
    std::string reason = publisher::TooLargeToAttach(bytes, mostMebibytes);
    if (!reason.empty())
        return reason;
    if (!LiesOutside(path))
        return {};
    if (m_refuseOutside)
        return "it lies outside the folder of " + m_drawing;
    m_outside.emplace(path, m_drawing);
    return {};
}

void AttachmentRules::Tell(const publisher::SaveReport& saved, DrawingReport& report) const
{
    report.attachmentsLost = saved.attachmentsLost;
    for (const publisher::EmbeddedFile& file : saved.embedded) {
        report.attachments.push_back({file.name, file.path, file.bytes});
        const auto outside = m_outside.find(file.path);
        if (outside != m_outside.end())
            report.notes.push_back(fmt::format("attached from outside the folder of {}: {} ({} bytes)", outside->second,
                                               file.path, file.bytes));
    }
}

} // namespace sm::app
