// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/CffSubset.h"

#include "base/files/MappedFile.h"
#include "fonts/SfntTables.h"
#include "fonts/Subsetter.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace sm::publisher {

namespace {

template <class Thing> using Owned = std::unique_ptr<Thing, void (*)(Thing*)>;

template <class Thing> Owned<Thing> Own(Thing* thing, void (*destroy)(Thing*), const char* otherwise)
{
    if (thing == nullptr) {
        throw std::runtime_error(otherwise);
    }
    return {thing, destroy};
}

/// Only these tables matter to a PDF; the closure over GSUB would bring in glyphs that nobody asked for.
void DropOthers(const Subsetter& hb, hb_subset_input_t* input)
{
    hb_set_t* dropped = hb.subsetInputSet(input, HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const char* tag : {"GSUB", "GPOS", "GDEF", "BASE", "MATH", "kern", "cmap", "name", "OS/2", "post", "VORG"}) {
        hb.setAdd(dropped, HB_TAG(tag[0], tag[1], tag[2], tag[3]));
    }
}

/// Advances from hhea and hmtx: those of the last glyphs may stand once for all of them.
std::uint16_t Advance(const Tables& tables, std::size_t glyph)
{
    const auto hhea = SfntTable(tables, "hhea", 36), hmtx = SfntTable(tables, "hmtx", 4);
    const std::size_t count = hhea ? BigEndian(*hhea, 34, 2) : 0;
    if (!hmtx || count == 0) {
        throw std::runtime_error("it holds no advances");
    }
    return static_cast<std::uint16_t>(BigEndian(*hmtx, 4 * std::min(glyph, count - 1), 2));
}

} // namespace

CffSubset MakeCffSubset(const std::string& path, std::int32_t index, const std::set<std::uint32_t>& glyphs)
{
    const Subsetter& hb = Subsetter::Loaded();
    std::error_code unreadable;
    const base::MappedFile file(path, base::MappedFile::Reading::InParts, unreadable);
    if (unreadable) {
        throw std::runtime_error(unreadable.message());
    }
    const auto bytes = Own(hb.blobCreate(file.Bytes().data(), static_cast<unsigned>(file.Bytes().size()),
                                         HB_MEMORY_MODE_READONLY, nullptr, nullptr),
                           hb.blobDestroy, "no memory");
    const auto face = Own(hb.faceCreate(bytes.get(), static_cast<unsigned>(index)), hb.faceDestroy, "no memory");
    const auto input = Own(hb.subsetInputCreateOrFail(), hb.subsetInputDestroy, "no memory");
    DropOthers(hb, input.get());
    for (const std::uint32_t glyph : glyphs) {
        hb.setAdd(hb.subsetInputGlyphSet(input.get()), glyph);
    }
    const char* const failure = "a part of it can't be made";
    const auto plan = Own(hb.subsetPlanCreateOrFail(face.get(), input.get()), hb.subsetPlanDestroy, failure);
    const auto part = Own(hb.subsetPlanExecuteOrFail(plan.get()), hb.faceDestroy, failure);
    const auto made = Own(hb.faceReferenceBlob(part.get()), hb.blobDestroy, failure);
    unsigned length = 0;
    const char* const data = hb.blobGetData(made.get(), &length);
    const Tables tables = SfntTables({data, length});
    const auto cff = SfntTable(tables, "CFF ", 4);
    if (!cff) {
        throw std::runtime_error("it holds no CFF table");
    }
    CffSubset subset{std::string(*cff), {}};
    const hb_map_t* numbers = hb.subsetPlanOldToNewGlyphMapping(plan.get());
    for (const std::uint32_t glyph : glyphs) {
        const hb_codepoint_t number = hb.mapGet(numbers, glyph);
        if (number >= hb.faceGetGlyphCount(part.get())) {
            throw std::runtime_error("glyph " + std::to_string(glyph) + " isn't in it");
        }
        subset.glyphs[glyph] = {static_cast<std::uint16_t>(number), Advance(tables, number)};
    }
    return subset;
}

} // namespace sm::publisher
