// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/MachineFonts.h"

#include <fontconfig/fontconfig.h>
#include <memory>

namespace sm::render {

namespace {

struct PatternEnd {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};

using Pattern = std::unique_ptr<FcPattern, PatternEnd>;

std::optional<FontPlace> Match(FcPattern* wanted)
{
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultMatch;
    const Pattern found(FcFontMatch(nullptr, wanted, &result));
    FcChar8* file = nullptr;
    int index = 0;
    if (!found || FcPatternGetString(found.get(), FC_FILE, 0, &file) != FcResultMatch) {
        return std::nullopt;
    }
    FcPatternGetInteger(found.get(), FC_INDEX, 0, &index);
    return FontPlace{reinterpret_cast<const char*>(file), index & 0xFFFF};
}

} // namespace

void PrepareMachineFonts()
{
    FcInit();
}

std::optional<FontPlace> MachineFontOfFamily(const std::string& family, bool bold, bool italic)
{
    const Pattern wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wanted.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    return Match(wanted.get());
}

std::optional<FontPlace> MachineFontWith(char32_t character)
{
    FcCharSet* characters = FcCharSetCreate();
    FcCharSetAddChar(characters, character);
    const Pattern wanted(FcPatternCreate());
    FcPatternAddCharSet(wanted.get(), FC_CHARSET, characters);
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcCharSetDestroy(characters);
    return Match(wanted.get());
}

} // namespace sm::render
