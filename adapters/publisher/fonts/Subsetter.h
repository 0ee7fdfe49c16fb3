// SPDX-License-Identifier: GPL-3.0-or-later
// HarfBuzz's subsetter, loaded with the first font that needs it.
#pragma once

#include <hb-subset.h>

namespace sm::publisher {

/// The functions that are used, under their names without "hb_".
struct Subsetter {
    decltype(&hb_blob_create) blobCreate;
    decltype(&hb_blob_destroy) blobDestroy;
    decltype(&hb_blob_get_data) blobGetData;
    decltype(&hb_face_create) faceCreate;
    decltype(&hb_face_destroy) faceDestroy;
    decltype(&hb_face_get_glyph_count) faceGetGlyphCount;
    decltype(&hb_face_reference_blob) faceReferenceBlob;
    decltype(&hb_map_get) mapGet;
    decltype(&hb_set_add) setAdd;
    decltype(&hb_subset_input_create_or_fail) subsetInputCreateOrFail;
    decltype(&hb_subset_input_destroy) subsetInputDestroy;
    decltype(&hb_subset_input_glyph_set) subsetInputGlyphSet;
    decltype(&hb_subset_input_set) subsetInputSet;
    decltype(&hb_subset_input_set_flags) subsetInputSetFlags;
    decltype(&hb_subset_plan_create_or_fail) subsetPlanCreateOrFail;
    decltype(&hb_subset_plan_destroy) subsetPlanDestroy;
    decltype(&hb_subset_plan_execute_or_fail) subsetPlanExecuteOrFail;
    decltype(&hb_subset_plan_old_to_new_glyph_mapping) subsetPlanOldToNewGlyphMapping;

    /// Loads the libraries on the first call. Throws std::runtime_error when they aren't there.
    static const Subsetter& Loaded();
};

} // namespace sm::publisher
