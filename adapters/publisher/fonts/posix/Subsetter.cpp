// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/Subsetter.h"

#include "base/process/SharedLibrary.h"

namespace sm::publisher {
namespace {

Subsetter Load()
{
    const base::SharedLibrary common("libharfbuzz.so.0"), library("libharfbuzz-subset.so.0");
    Subsetter hb{};
    common.Find(hb.blobCreate, "hb_blob_create");
    common.Find(hb.blobDestroy, "hb_blob_destroy");
    common.Find(hb.blobGetData, "hb_blob_get_data");
    common.Find(hb.faceCreate, "hb_face_create");
    common.Find(hb.faceDestroy, "hb_face_destroy");
    common.Find(hb.faceGetGlyphCount, "hb_face_get_glyph_count");
    common.Find(hb.faceReferenceBlob, "hb_face_reference_blob");
    common.Find(hb.mapGet, "hb_map_get");
    common.Find(hb.setAdd, "hb_set_add");
    library.Find(hb.subsetInputCreateOrFail, "hb_subset_input_create_or_fail");
    library.Find(hb.subsetInputDestroy, "hb_subset_input_destroy");
    library.Find(hb.subsetInputGlyphSet, "hb_subset_input_glyph_set");
    library.Find(hb.subsetInputSet, "hb_subset_input_set");
    library.Find(hb.subsetInputSetFlags, "hb_subset_input_set_flags");
    library.Find(hb.subsetPlanCreateOrFail, "hb_subset_plan_create_or_fail");
    library.Find(hb.subsetPlanDestroy, "hb_subset_plan_destroy");
    library.Find(hb.subsetPlanExecuteOrFail, "hb_subset_plan_execute_or_fail");
    library.Find(hb.subsetPlanOldToNewGlyphMapping, "hb_subset_plan_old_to_new_glyph_mapping");
    return hb;
}

} // namespace

const Subsetter& Subsetter::Loaded()
{
    static const Subsetter kLoaded = Load();
    return kLoaded;
}

} // namespace sm::publisher
