// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/HarfBuzz.h"

namespace sm::render {

// Part of the program: one file is all that is to be installed there.
const HarfBuzz& HarfBuzz::Loaded()
{
    static constexpr HarfBuzz kLinked{
        hb_blob_create_from_file,
        hb_blob_destroy,
        hb_buffer_add_utf8,
        hb_buffer_create,
        hb_buffer_destroy,
        hb_buffer_get_glyph_infos,
        hb_buffer_get_glyph_positions,
        hb_buffer_guess_segment_properties,
        hb_buffer_set_direction,
        hb_face_create,
        hb_face_destroy,
        hb_font_create,
        hb_font_destroy,
        hb_font_set_scale,
        hb_shape,
    };
    return kLinked;
}

} // namespace sm::render
