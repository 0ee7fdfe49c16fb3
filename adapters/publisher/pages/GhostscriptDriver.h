// SPDX-License-Identifier: GPL-3.0-or-later
// The small program that leads the PostScript interpreter through a run's pages, and what it reports back.
#pragma once

#include "pages/IPageMaker.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sm::publisher {

/// The largest resolution, at most that of the page, at which its device coordinates stay in the interpreter's range.
std::int32_t UsableResolution(double width, double height, std::int32_t resolution);

/// The driver for `pages`, whose files lie in the current folder as `PageFileName(0)`, `PageFileName(1)` ... Each
/// page runs between a save and its restore, and reports itself on a line of its own that begins with `nonce`.
std::string DriverProgram(const std::vector<PageSource>& pages, const std::string& jobOptions,
                          const std::string& nonce);
/// The value of the clean text's colour conversion setting, which the text then holds no more; empty when there is
/// none. Given in the text rather than on the command line it would paint every page white first.
std::string TakeColorConversion(std::string& jobOptions);
/// "1.ps" for index 0.
std::string PageFileName(std::size_t index);

/// What the lines of one run say.
struct DriverReport {
    /// Pages that each completed file made, in order; the number of completed files is its size.
    std::vector<long> pagesMade;
    /// The error that ended the run, if one did.
    struct Error {
        bool inJobOptions = false;
        std::string name;        ///< "undefined", "ioerror" ...
        std::string command;     ///< the operator or word
        long long position = -1; ///< bytes read of the file when it happened; -1 unknown
    };
    std::optional<Error> error;
    /// What else was printed, without our lines.
    std::string otherOutput;
};
DriverReport ReadDriverOutput(std::string_view output, std::string_view nonce);

} // namespace sm::publisher
