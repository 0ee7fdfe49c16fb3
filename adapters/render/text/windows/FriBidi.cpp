// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/BidiRuns.h"

#include <fribidi.h>

namespace sm::render {

// Part of the program: one file is all that is to be installed there.
const FriBidi& FriBidi::Loaded()
{
    static constexpr FriBidi kLinked{
        [](const std::uint32_t* text, int length, std::uint32_t* types) {
            fribidi_get_bidi_types(text, length, types);
        },
        [](const std::uint32_t* text, int length, const std::uint32_t* types, std::uint32_t* brackets) {
            fribidi_get_bracket_types(text, length, types, brackets);
        },
        [](const std::uint32_t* types, const std::uint32_t* brackets, int length, std::uint32_t* direction,
           Level* levels) { return fribidi_get_par_embedding_levels_ex(types, brackets, length, direction, levels); },
    };
    return kLinked;
}

} // namespace sm::render
