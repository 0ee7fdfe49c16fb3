// SPDX-License-Identifier: GPL-3.0-or-later
// The signs of geometric tolerances, as strokes: few fonts have them.
#pragma once

#include "render/Canvas.h"

namespace sm::render {

/// True for the letters "a" to "z" that stand for a sign in the symbol font "gdt" of tolerance texts.
bool IsToleranceSymbol(char letter);

/// Appends the sign's strokes; `square` maps the unit square to where it shall stand.
void AppendToleranceSymbol(Path& path, char letter, const Matrix2& square);

/// The letter that stands in the sign's circle ('M' for maximum material); a blank when there is none.
char ToleranceSymbolLetter(char letter);

} // namespace sm::render
