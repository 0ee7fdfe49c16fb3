// SPDX-License-Identifier: GPL-3.0-or-later
// The shaper of text, loaded with the first text that needs it.
#pragma once

#include <hb.h>

namespace sm::render {

/// The functions that are used, under their names without "hb_".
struct HarfBuzz {
    decltype(&hb_blob_create_from_file) blobCreateFromFile;
    decltype(&hb_blob_destroy) blobDestroy;
    decltype(&hb_buffer_add_utf8) bufferAddUtf8;
    decltype(&hb_buffer_create) bufferCreate;
    decltype(&hb_buffer_destroy) bufferDestroy;
    decltype(&hb_buffer_get_glyph_infos) bufferGetGlyphInfos;
    decltype(&hb_buffer_get_glyph_positions) bufferGetGlyphPositions;
    decltype(&hb_buffer_guess_segment_properties) bufferGuessSegmentProperties;
    decltype(&hb_buffer_set_direction) bufferSetDirection;
    decltype(&hb_face_create) faceCreate;
    decltype(&hb_face_destroy) faceDestroy;
    decltype(&hb_font_create) fontCreate;
    decltype(&hb_font_destroy) fontDestroy;
    decltype(&hb_font_set_scale) fontSetScale;
    decltype(&hb_shape) shape;

    /// Loads the library on the first call. Throws std::runtime_error when it isn't there.
    static const HarfBuzz& Loaded();
};

} // namespace sm::render
