// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/HarfBuzz.h"

#include "base/process/SharedLibrary.h"

namespace sm::render {
namespace {

HarfBuzz Load()
{
    const base::SharedLibrary library("libharfbuzz.so.0");
    HarfBuzz hb{};
    library.Find(hb.blobCreateFromFile, "hb_blob_create_from_file");
    library.Find(hb.blobDestroy, "hb_blob_destroy");
    library.Find(hb.bufferAddUtf8, "hb_buffer_add_utf8");
    library.Find(hb.bufferCreate, "hb_buffer_create");
    library.Find(hb.bufferDestroy, "hb_buffer_destroy");
    library.Find(hb.bufferGetGlyphInfos, "hb_buffer_get_glyph_infos");
    library.Find(hb.bufferGetGlyphPositions, "hb_buffer_get_glyph_positions");
    library.Find(hb.bufferGuessSegmentProperties, "hb_buffer_guess_segment_properties");
    library.Find(hb.bufferSetDirection, "hb_buffer_set_direction");
    library.Find(hb.faceCreate, "hb_face_create");
    library.Find(hb.faceDestroy, "hb_face_destroy");
    library.Find(hb.fontCreate, "hb_font_create");
    library.Find(hb.fontDestroy, "hb_font_destroy");
    library.Find(hb.fontSetScale, "hb_font_set_scale");
    library.Find(hb.shape, "hb_shape");
    return hb;
}

} // namespace

const HarfBuzz& HarfBuzz::Loaded()
{
    static const HarfBuzz kLoaded = Load();
    return kLoaded;
}

} // namespace sm::render
