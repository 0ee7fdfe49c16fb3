// SPDX-License-Identifier: GPL-3.0-or-later
// One page of a document, from when it is accepted until it is saved.
#pragma once

#include "marks/Marks.h"
#include "pages/IPageMaker.h"

#include <string>

namespace sm::publisher {

struct DocumentPage {
    PageSource source;
    std::string jobOptions; ///< clean text, empty for none
    Marks marks;
};

} // namespace sm::publisher
