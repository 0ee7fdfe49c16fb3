// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/Subsetter.h"

namespace sm::publisher {

// Part of the program: one file is all that is to be installed there.
const Subsetter& Subsetter::Loaded()
{
    static constexpr Subsetter kLinked{
        hb_blob_create,
        hb_blob_destroy,
        hb_blob_get_data,
        hb_face_create,
        hb_face_destroy,
        hb_face_get_glyph_count,
        hb_face_reference_blob,
        hb_map_get,
        hb_set_add,
        hb_subset_input_create_or_fail,
        hb_subset_input_destroy,
        hb_subset_input_glyph_set,
        hb_subset_input_set,
        hb_subset_input_set_flags,
        hb_subset_plan_create_or_fail,
        hb_subset_plan_destroy,
        hb_subset_plan_execute_or_fail,
        hb_subset_plan_old_to_new_glyph_mapping,
    };
    return kLinked;
}

} // namespace sm::publisher
