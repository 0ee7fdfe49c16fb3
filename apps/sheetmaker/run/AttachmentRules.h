// SPDX-License-Identifier: GPL-3.0-or-later
// What may be attached to a PDF, and what is told of it.
#pragma once

#include "publisher/Publisher.h"
#include "report/RunReport.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace sm::app {

class AttachmentRules {
public:
    explicit AttachmentRules(bool refuseOutside) : m_refuseOutside(refuseOutside) {}

    [[nodiscard]] bool RefusesOutside() const { return m_refuseOutside; }
    /// Whose attachments come from now on.
    void DrawingIs(const std::string& path);
    /// Neither in the drawing's folder nor in one below it, wherever links lead.
    [[nodiscard]] bool LiesOutside(const std::string& path) const;
    /// Why a file isn't attached, as the end of a sentence; empty text: it is, and a later `Tell` knows whose it was.
    std::string ReasonAgainst(const std::string& path, std::uint64_t bytes, std::int32_t mostMebibytes);
    /// Enters what a saved PDF holds, and what it lacks.
    void Tell(const publisher::SaveReport& saved, DrawingReport& report) const;

private:
    bool m_refuseOutside;
    std::string m_drawing;
    std::filesystem::path m_folder;
    std::map<std::string, std::string> m_outside; ///< path of the file, and name of the drawing that attaches it
};

} // namespace sm::app
