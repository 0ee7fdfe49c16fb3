// SPDX-License-Identifier: GPL-3.0-or-later
// What became of a document that the embedded CAD host has open.
#pragma once

#include "drawing/Finding.h"
#include "render/NotDrawnKind.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace sm::cadhost {

/// What an audit of a document found. What was mended is so in memory only: saving writes the records that were
/// changed and nothing else.
struct DocumentAudit {
    bool fixErrors = false; ///< as asked for; the reader mends in either case
    std::vector<drawing::Finding> findings;
};

/// What plotting a document did so far.
struct DocumentReport {
    std::uint64_t read = 0, drawn = 0, hidden = 0, offPage = 0, notReached = 0, notDrawn = 0; ///< entities; they sum up
    std::vector<render::NotDrawnKind> notDrawnKinds;
    std::vector<drawing::Finding> findings;
    std::vector<std::string> substitutions;                    ///< fonts
    std::map<std::string, std::uint64_t, std::less<>> remarks; ///< what was drawn otherwise, and how often
    std::optional<DocumentAudit> audited;                      ///< the last audit; none before the first
    bool notToScale = false;                                   ///< a layout was plotted to fit on another paper
    std::string plotFailure;                                   ///< why the last plot failed; empty when it didn't
};

} // namespace sm::cadhost
