// SPDX-License-Identifier: GPL-3.0-or-later
// How a PDF is written, beside what it holds.
#pragma once

#include "publisher/Archive.h"

#include <optional>
#include <string>

namespace sm::publisher {

/// Passwords of UTF-8 text; AES with 256 bits (PDF 2.0, revision 6).
struct Encryption {
    std::string userPassword;  ///< opens the document; empty: nobody is asked
    std::string ownerPassword; ///< lifts all limits; empty: nobody can
};

struct PdfForm {
    bool reproducible = false; ///< the same document gives the same bytes, its identifier too
    bool linearized = false;   ///< the first page comes first, for reading over a network
    double level = 1.7;        ///< the version of PDF wanted; what the pages need goes before it
    std::string language{};    ///< of the text, as RFC 5646 has it ("de-DE"); empty: not told
    std::optional<Encryption> encryption{};
    Archive archive = Archive::None; ///< kept to whole, or the save fails; goes with no encryption
};

} // namespace sm::publisher
