// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing that comes on standard input, a PDF that goes to standard output: files of the run while it lasts.
#pragma once

#include "base/files/PrivateFolder.h"
#include "report/RunReport.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace sm::app {

class StandardStreams {
public:
    /// Puts files in the place of "-" in `drawings` and `output`. Reads standard input to its end. Throws Refusal when
    /// standard output is asked for several drawings, or standard input without an output to name.
    StandardStreams(std::vector<std::string>& drawings, std::optional<std::string>& output);

    [[nodiscard]] bool OutIsTaken() const { return m_takesOut; }
    /// Files of the run in a report, by "-" again.
    void Restore(DrawingReport& report) const;
    /// Copies the PDF, if one was made; false when `out` didn't take it.
    bool Send(std::ostream& out) const;

private:
    std::optional<base::PrivateFolder> m_folder;
    std::string m_drawing, m_pdf; ///< empty: not asked for
    bool m_takesOut = false;
};

} // namespace sm::app
