// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/FileSubset.h"

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

/// What a PDF has no use for; the closure over GSUB would bring in glyphs that nobody asked for.
constexpr const char* kDropped[] = {"GSUB", "GPOS", "GDEF", "BASE", "MATH", "kern",
                                    "cmap", "name", "OS/2", "post", "VORG"};

using Input = Owned<hb_subset_input_t>;

Input AskFor(const Subsetter& hb, Curves curves, const std::set<std::uint32_t>& glyphs)
{
    Input input = Own(hb.subsetInputCreateOrFail(), hb.subsetInputDestroy, "no memory");
    // Hints of quadratic curves are programs that take more room than the outlines. Glyph 0 may be asked for, too.
    const unsigned hints = curves == Curves::Quadratic ? HB_SUBSET_FLAGS_NO_HINTING : HB_SUBSET_FLAGS_DEFAULT;
    hb.subsetInputSetFlags(input.get(), HB_SUBSET_FLAGS_NOTDEF_OUTLINE | hints);
    hb_set_t* dropped = hb.subsetInputSet(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const char* tag : kDropped) {
        hb.setAdd(dropped, HB_TAG(tag[0], tag[1], tag[2], tag[3]));
    }
    for (const std::uint32_t glyph : glyphs) {
        hb.setAdd(hb.subsetInputGlyphSet(input.get()), glyph);
    }
    return input;
}

std::string_view Needed(const Tables& tables, const char* tag, std::size_t least = 1)
{
    const auto table = SfntTable(tables, tag, least);
    if (!table) {
        throw std::runtime_error("it holds no table " + std::string(tag));
    }
    return *table;
}

/// What speaks of hints in head's flags goes with them; "whole pixels only" would turn small text to other sizes.
std::string WithoutHints(std::string_view head)
{
    constexpr std::size_t kFlags = 17; // the lower byte
    constexpr unsigned char kOfHints = 0b11100;
    std::string bytes(head);
    bytes[kFlags] = static_cast<char>(static_cast<unsigned char>(bytes[kFlags]) & ~kOfHints);
    return bytes;
}

std::string Program(const Tables& tables, Curves curves)
{
    if (curves == Curves::Cubic) {
        return std::string(Needed(tables, "CFF "));
    }
    const std::string head = WithoutHints(Needed(tables, "head", 54));
    Tables kept{{"head", head}};
    for (const char* tag : {"glyf", "hhea", "hmtx", "loca", "maxp"}) {
        kept[tag] = Needed(tables, tag);
    }
    return JoinSfnt(kept);
}

/// From hhea and hmtx: those of the last glyphs may stand once for all of them.
std::vector<std::uint16_t> Advances(const Tables& tables, std::size_t glyphs)
{
    const auto hhea = SfntTable(tables, "hhea", 36), hmtx = SfntTable(tables, "hmtx", 4);
    const std::size_t count = hhea ? BigEndian(*hhea, 34, 2) : 0;
    if (!hmtx || count == 0) {
        throw std::runtime_error("it holds no advances");
    }
    std::vector<std::uint16_t> advances;
    for (std::size_t glyph = 0; glyph < glyphs; ++glyph) {
        advances.push_back(static_cast<std::uint16_t>(BigEndian(*hmtx, 4 * std::min(glyph, count - 1), 2)));
    }
    return advances;
}

/// `part` was made by `plan`.
FileSubset Read(const Subsetter& hb, hb_face_t* part, const hb_subset_plan_t* plan, Curves curves,
                const std::set<std::uint32_t>& glyphs)
{
    const auto made = Own(hb.faceReferenceBlob(part), hb.blobDestroy, "no memory");
    unsigned length = 0;
    const char* const data = hb.blobGetData(made.get(), &length);
    const Tables tables = SfntTables({data, length});
    const hb_map_t* numbers = hb.subsetPlanOldToNewGlyphMapping(plan);
    const unsigned count = hb.faceGetGlyphCount(part);
    FileSubset subset{Program(tables, curves), Advances(tables, count), {}};
    for (const std::uint32_t glyph : glyphs) {
        const hb_codepoint_t number = hb.mapGet(numbers, glyph);
        if (number >= count) {
            throw std::runtime_error("glyph " + std::to_string(glyph) + " isn't in it");
        }
        subset.numbers[glyph] = static_cast<std::uint16_t>(number);
    }
    return subset;
}

} // namespace

FileSubset MakeFileSubset(const std::string& path, std::int32_t index, Curves curves,
                          const std::set<std::uint32_t>& glyphs)
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
    const Input input = AskFor(hb, curves, glyphs);
    const char* const failure = "a part of it can't be made";
    const auto plan = Own(hb.subsetPlanCreateOrFail(face.get(), input.get()), hb.subsetPlanDestroy, failure);
    const auto part = Own(hb.subsetPlanExecuteOrFail(plan.get()), hb.faceDestroy, failure);
    return Read(hb, part.get(), plan.get(), curves, glyphs);
}

} // namespace sm::publisher
