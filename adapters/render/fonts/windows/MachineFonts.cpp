// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/MachineFonts.h"

#include "base/files/Paths.h"
#include "base/files/UserFolders.h"
#include "base/text/Keywords.h"
#include "base/text/Names.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <memory>
#include <vector>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

namespace sm::render {

namespace {

namespace fs = std::filesystem;

/// Plain fonts with many characters, the best first; what the machine has of them stands for families that it lacks.
constexpr std::array kPlainFamilies{"dejavu sans", "segoe ui", "arial", "liberation sans", "tahoma"};

/// Weights and widths of table OS/2 (usWeightClass, usWidthClass).
constexpr int kRegular = 400, kBold = 700, kNormalWidth = 5;

struct FaceEnd {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using Face = std::unique_ptr<FT_FaceRec, FaceEnd>;

struct MachineFont {
    FontPlace place;
    std::string family; ///< folded
    int weight = kRegular, width = kNormalWidth;
    bool italic = false;
};

/// Every outline font in the font folders, read when a family or a character is first asked for.
class MachineFonts {
public:
    MachineFonts()
    {
        FT_Init_FreeType(&m_library);
        for (const fs::path& folder : base::FontFolders(base::Variable))
            Scan(folder);
    }
    MachineFonts(const MachineFonts&) = delete;
    MachineFonts& operator=(const MachineFonts&) = delete;

    [[nodiscard]] const MachineFont* Of(const std::string& family, bool bold, bool italic) const
    {
        const std::string folded = base::FoldCase(family);
        const MachineFont* best = nullptr;
        const auto misses = [&](const MachineFont& font) {
            return std::abs(font.weight - (bold ? kBold : kRegular)) + 1000 * std::abs(font.width - kNormalWidth) +
                   (font.italic != italic ? 10000 : 0);
        };
        for (const MachineFont& font : m_fonts)
            if (font.family == folded && (best == nullptr || misses(font) < misses(*best)))
                best = &font;
        return best;
    }

    [[nodiscard]] const MachineFont* Plain(bool bold, bool italic) const
    {
        for (const char* family : kPlainFamilies)
            if (const MachineFont* font = Of(family, bold, italic))
                return font;
        return m_fonts.empty() ? nullptr : &m_fonts.front();
    }

    [[nodiscard]] const MachineFont* With(char32_t character)
    {
        const auto [known, isNew] = m_byCharacter.try_emplace(character, nullptr);
        for (std::size_t i = 0; isNew && known->second == nullptr && i < m_fonts.size(); ++i) {
            const Face face = Open(m_fonts[i].place);
            if (face && FT_Get_Char_Index(face.get(), character) != 0)
                known->second = &m_fonts[i];
        }
        return known->second;
    }

private:
    [[nodiscard]] Face Open(const FontPlace& place) const
    {
        FT_Face face = nullptr;
        return Face(FT_New_Face(m_library, place.path.c_str(), place.index, &face) == 0 ? face : nullptr);
    }

    void Scan(const fs::path& folder)
    {
        std::vector<std::string> paths;
        std::error_code error;
        fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied, error), end;
        for (; !error && at != end; at.increment(error)) {
            const std::string name = base::LowerAscii(base::ToText(at->path().filename()));
            if (name.ends_with(".ttf") || name.ends_with(".ttc") || name.ends_with(".otf"))
                paths.push_back(base::ToText(at->path()));
        }
        std::sort(paths.begin(), paths.end()); // so that the same folder gives the same answers everywhere
        for (const std::string& path : paths)
            AddFacesOf(path);
    }

    void AddFacesOf(const std::string& path)
    {
        for (int index = 0, count = 1; index < count; ++index) {
            const Face face = Open({path, index});
            if (!face)
                return;
            count = static_cast<int>(face->num_faces);
            if (face->family_name == nullptr || !FT_IS_SCALABLE(face.get()))
                continue;
            const bool bold = (face->style_flags & FT_STYLE_FLAG_BOLD) != 0;
            const auto* const facts = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face.get(), FT_SFNT_OS2));
            const bool tells = facts != nullptr && facts->usWeightClass != 0 && facts->usWidthClass != 0;
            m_fonts.push_back({{path, index},
                               base::FoldCase(face->family_name),
                               tells  ? facts->usWeightClass
                               : bold ? kBold
                                      : kRegular,
                               tells ? facts->usWidthClass : kNormalWidth,
                               (face->style_flags & FT_STYLE_FLAG_ITALIC) != 0});
        }
    }

    FT_Library m_library = nullptr;
    std::vector<MachineFont> m_fonts;
    std::map<char32_t, const MachineFont*> m_byCharacter;
};

MachineFonts& Known()
{
    static MachineFonts fonts;
    return fonts;
}

std::optional<FontPlace> PlaceOf(const MachineFont* font)
{
    return font == nullptr ? std::nullopt : std::optional(font->place);
}

} // namespace

void PrepareMachineFonts() {}

std::optional<FontPlace> MachineFontOfFamily(const std::string& family, bool bold, bool italic)
{
    const MachineFont* font = Known().Of(family, bold, italic);
    return PlaceOf(font != nullptr ? font : Known().Plain(bold, italic));
}

std::optional<FontPlace> MachineFontWith(char32_t character)
{
    return PlaceOf(Known().With(character));
}

} // namespace sm::render
