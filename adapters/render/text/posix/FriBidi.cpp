// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/BidiRuns.h"

#include "base/process/SharedLibrary.h"

namespace sm::render {

const FriBidi& FriBidi::Loaded()
{
    static const FriBidi kLoaded = [] {
        const base::SharedLibrary library("libfribidi.so.0");
        FriBidi found{};
        library.Find(found.types, "fribidi_get_bidi_types");
        library.Find(found.brackets, "fribidi_get_bracket_types");
        library.Find(found.levels, "fribidi_get_par_embedding_levels_ex");
        return found;
    }();
    return kLoaded;
}

} // namespace sm::render
