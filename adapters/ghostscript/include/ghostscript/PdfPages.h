// SPDX-License-Identifier: GPL-3.0-or-later
// Pages of PDF files as pixels.
#pragma once

#include <cstdint>
#include <string>

namespace sm::ghostscript {

/// Each call runs the interpreter once, within limits and a deadline, where it can read nothing but the one file.
/// Failures are thrown as std::runtime_error whose text goes on behind the file's name.
class PdfPages {
public:
    struct Size {
        double width = 0, height = 0; ///< inches, as shown
    };
    struct Pixels {
        std::int32_t width = 0, height = 0;
        std::string rgb; ///< three bytes a pixel, from the top
    };

    /// `program`: the interpreter, a path or a name on $PATH. `workFolder`: for temporary files; empty: the system's.
    explicit PdfPages(std::string program, std::string workFolder = "")
        : m_program(std::move(program)), m_workFolder(std::move(workFolder))
    {
    }

    /// `page` counts from 1.
    [[nodiscard]] Size SizeOf(const std::string& path, std::int32_t page) const;
    [[nodiscard]] Pixels Show(const std::string& path, std::int32_t page, double dotsPerInch) const;

private:
    std::string m_program, m_workFolder;
};

} // namespace sm::ghostscript
