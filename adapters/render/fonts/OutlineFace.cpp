// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/OutlineFace.h"

#include "fonts/HarfBuzz.h"
#include "fonts/OutlineReader.h"

#include FT_TRUETYPE_TABLES_H

#include <array>
#include <new>
#include <unordered_map>

namespace sm::render {

namespace {

/// One library for the whole process: faces of several engines share nothing but this.
FT_Library Library()
{
    static const FT_Library library = [] {
        FT_Library made = nullptr;
        FT_Init_FreeType(&made);
        return made;
    }();
    return library;
}

std::string SafeName(FT_Face face)
{
    const char* name = FT_Get_Postscript_Name(face);
    std::string safe;
    for (const char* c = name != nullptr ? name : (face->family_name != nullptr ? face->family_name : "Font"); *c;
         ++c) {
        const bool kept = (*c >= 'a' && *c <= 'z') || (*c >= 'A' && *c <= 'Z') || (*c >= '0' && *c <= '9') || *c == '-';
        if (kept && safe.size() < 60) {
            safe += *c;
        }
    }
    return safe.empty() ? "Font" : safe;
}

/// Whether a glyph was loaded. One that isn't for want of memory must not count as an empty one.
bool IsLoaded(FT_Face face, FT_UInt glyph)
{
    const FT_Error error = FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE);
    if (error == FT_Err_Out_Of_Memory) {
        throw std::bad_alloc();
    }
    return error == 0;
}

bool HoldsTable(FT_Face face, const char (&tag)[5])
{
    FT_ULong length = 0;
    return FT_IS_SFNT(face) &&
           FT_Load_Sfnt_Table(face, FT_MAKE_TAG(tag[0], tag[1], tag[2], tag[3]), 0, nullptr, &length) == 0;
}

class FreeTypeFace final : public OutlineFace {
public:
    FreeTypeFace(FT_Face face, std::string path, int index)
        : m_face(face), m_file{std::move(path), index, HoldsTable(face, "CFF ")}, m_name(SafeName(face)),
          m_canBeParted(!FT_IS_CID_KEYED(face) && !FT_HAS_MULTIPLE_MASTERS(face) &&
                        (m_file.isCubic || HoldsTable(face, "glyf")))
    {
        m_capHeight = MeasuredCapHeight();
        m_low.fill(kUnknown);
    }
    ~FreeTypeFace() override
    {
        if (m_shaper != nullptr) {
            HarfBuzz::Loaded().fontDestroy(m_shaper);
        }
        FT_Done_Face(m_face);
    }

    const std::string& Name() const override { return m_name; }
    std::uint16_t UnitsPerEm() const override { return m_face->units_per_EM; }
    double CapHeight() const override { return m_capHeight; }
    double Descent() const override { return std::abs(m_face->descender) / static_cast<double>(m_face->units_per_EM); }

    InkSpan Ideographs() const override
    {
        if (m_ideographs.bottom == m_ideographs.top) {
            m_ideographs = MeasuredIdeographs();
        }
        return m_ideographs;
    }

    std::uint16_t Advance(std::uint32_t glyph) const override
    {
        const auto [found, isNew] = m_advances.try_emplace(glyph, 0);
        if (isNew && IsLoaded(m_face, glyph)) {
            found->second =
                static_cast<std::uint16_t>(std::clamp<FT_Pos>(m_face->glyph->metrics.horiAdvance, 0, 65535));
        }
        return found->second;
    }

    std::uint32_t GlyphOf(char32_t c) const override
    {
        if (c >= m_low.size()) {
            return FT_Get_Char_Index(m_face, c);
        }
        if (m_low[c] == kUnknown) {
            m_low[c] = FT_Get_Char_Index(m_face, c);
        }
        return m_low[c];
    }

    /// Every sheet of a set embeds most of the same letters.
    const GlyphContours& Contours(std::uint32_t glyph) const override
    {
        constexpr std::size_t kMostKept = 4096;
        if (m_contours.size() >= kMostKept) {
            m_contours.clear();
        }
        const auto [found, isNew] = m_contours.try_emplace(glyph);
        if (isNew && IsLoaded(m_face, glyph) && m_face->glyph->format == FT_GLYPH_FORMAT_OUTLINE) {
            ReadContours(m_face->glyph->outline, found->second);
        }
        return found->second;
    }

    const FontFile* File() const override { return m_canBeParted ? &m_file : nullptr; }

    void Outline(std::uint32_t glyph, Path& out) const override
    {
        out.Clear();
        if (IsLoaded(m_face, glyph) && m_face->glyph->format == FT_GLYPH_FORMAT_OUTLINE) {
            ReadOutline(m_face->glyph->outline, 1.0 / m_face->units_per_EM, out);
        }
    }

    double Shape(std::string_view text, bool rightToLeft, std::vector<ShapedGlyph>& out) const override
    {
        out.clear();
        const HarfBuzz& hb = HarfBuzz::Loaded();
        OpenShaper(hb);
        hb_buffer_t* buffer = hb.bufferCreate();
        hb.bufferAddUtf8(buffer, text.data(), static_cast<int>(text.size()), 0, static_cast<int>(text.size()));
        hb.bufferSetDirection(buffer, rightToLeft ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
        hb.bufferGuessSegmentProperties(buffer);
        hb.shape(m_shaper, buffer, nullptr, 0);
        unsigned count = 0;
        const hb_glyph_info_t* infos = hb.bufferGetGlyphInfos(buffer, &count);
        const hb_glyph_position_t* places = hb.bufferGetGlyphPositions(buffer, &count);
        const double em = 1.0 / m_face->units_per_EM;
        double pen = 0;
        for (unsigned i = 0; i < count; ++i) {
            out.push_back(
                {infos[i].codepoint, infos[i].cluster, {pen + places[i].x_offset * em, places[i].y_offset * em}});
            pen += places[i].x_advance * em;
        }
        hb.bufferDestroy(buffer);
        return pen;
    }

private:
    static constexpr std::uint32_t kUnknown = 0xFFFFFFFF;

    double MeasuredCapHeight() const
    {
        for (const char32_t c : {U'H', U'E', U'A', U'X'}) {
            const std::uint32_t glyph = FT_Get_Char_Index(m_face, c);
            if (glyph != 0 && IsLoaded(m_face, glyph) && m_face->glyph->metrics.horiBearingY > 0) {
                return static_cast<double>(m_face->glyph->metrics.horiBearingY) / m_face->units_per_EM;
            }
        }
        return 0.716; // that of most sans serif fonts
    }

    InkSpan MeasuredIdeographs() const
    {
        const double em = m_face->units_per_EM;
        for (const char32_t c : {U'国', U'図', U'田', U'를'}) {
            const std::uint32_t glyph = FT_Get_Char_Index(m_face, c);
            if (glyph != 0 && IsLoaded(m_face, glyph) && m_face->glyph->metrics.height > 0) {
                const auto& metrics = m_face->glyph->metrics;
                const double top = static_cast<double>(metrics.horiBearingY) / em;
                return {top - static_cast<double>(metrics.height) / em, top};
            }
        }
        return {-0.12, 0.88}; // the square of most fonts
    }

    void OpenShaper(const HarfBuzz& hb) const
    {
        if (m_shaper == nullptr) {
            hb_blob_t* blob = hb.blobCreateFromFile(m_file.path.c_str());
            hb_face_t* face = hb.faceCreate(blob, static_cast<unsigned>(m_file.index));
            m_shaper = hb.fontCreate(face);
            hb.fontSetScale(m_shaper, m_face->units_per_EM, m_face->units_per_EM);
            hb.faceDestroy(face);
            hb.blobDestroy(blob);
        }
    }

    FT_Face m_face;
    FontFile m_file;
    std::string m_name;
    bool m_canBeParted;
    double m_capHeight = 0;
    mutable InkSpan m_ideographs{0, 0};             ///< measured when it is asked for
    mutable std::array<std::uint32_t, 0x500> m_low; ///< glyphs of Latin, Greek and Cyrillic
    mutable std::unordered_map<std::uint32_t, std::uint16_t> m_advances;
    mutable std::unordered_map<std::uint32_t, GlyphContours> m_contours;
    mutable hb_font_t* m_shaper = nullptr;
};

} // namespace

std::unique_ptr<OutlineFace> OutlineFace::Open(const std::string& path, int index)
{
    FT_Face face = nullptr;
    if (Library() == nullptr || FT_New_Face(Library(), path.c_str(), index, &face) != 0) {
        return nullptr;
    }
    if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0) {
        FT_Done_Face(face);
        return nullptr;
    }
    return std::make_unique<FreeTypeFace>(face, path, index);
}

} // namespace sm::render
