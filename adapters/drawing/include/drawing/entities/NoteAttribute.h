// SPDX-License-Identifier: GPL-3.0-or-later
// What notes with a block give to its attributes.
#pragma once

#include "drawing/Properties.h"

#include <string>

namespace sm::drawing {

/// The text of an attribute that a note's block gets, by the handle of its definition.
struct NoteAttribute {
    Handle definition = 0;
    std::string text;
};

} // namespace sm::drawing
