// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/FontLibrary.h"

#include "base/text/Keywords.h"
#include "base/text/Names.h"
#include "drawing/Drawing.h"
#include "fonts/FontNames.h"
#include "fonts/Unicode.h"

#include <algorithm>

namespace sm::render {

namespace {

/// The code page of a big font's characters: the drawing's own, or, where that has none of two bytes, the one that
/// fonts of such names are made for.
std::string BigFontPage(const std::string& file, const std::string& codePage)
{
    struct Kin {
        std::string_view part, page;
    };
    static constexpr Kin kKin[] = {{"chinese", "ANSI_950"}, {"big5", "ANSI_950"}, {"wh", "ANSI_949"},
                                   {"ksc", "ANSI_949"},     {"hang", "ANSI_949"}, {"bigfont", "ANSI_932"},
                                   {"ext", "ANSI_932"},     {"jis", "ANSI_932"}};
    const std::string drawn = base::UpperAscii(codePage), name = base::FoldCase(file);
    for (const char* page : {"932", "936", "949", "950"}) {
        if (drawn.ends_with(page)) {
            return codePage;
        }
    }
    for (const Kin& kin : kKin) {
        if (name.starts_with(kin.part) || (name.starts_with('@') && name.substr(1).starts_with(kin.part))) {
            return std::string(kin.page);
        }
    }
    return "ANSI_936";
}

/// A letter of `from` as wide as if it were one of `beside`.
StrokeGlyph Fitted(const StrokeGlyph& glyph, const StrokeFont& from, const StrokeFont& beside)
{
    const double own = from.LetterWidth(), wanted = beside.LetterWidth();
    const double ink = glyph.advance - glyph.gap;
    const double model = beside.IsEven() && ink > 0.5 * own ? ink : own;
    const double wider = own > 0 && wanted > 0 ? std::clamp(wanted / model, 0.6, 1.6) : 1;
    StrokeGlyph fitted = glyph;
    for (Vec2& point : fitted.path.points) {
        point.x *= wider;
    }
    fitted.gap = glyph.path.Empty() || wanted <= 0 ? glyph.gap : beside.LetterGap();
    fitted.advance = ink * wider + fitted.gap;
    return fitted;
}

} // namespace

FontLibrary::FontLibrary(const std::string& dataFolder, const std::string& userFolder)
    : m_folders(UserFontFolders(userFolder))
{
    for (const std::string& folder : {userFolder, dataFolder}) {
        if (!folder.empty()) {
            const std::string trouble = m_map.AddFile(folder + "/fonts.map");
            if (!trouble.empty()) {
                m_troubles.push_back(trouble);
            }
        }
    }
}

std::vector<std::string> FontLibrary::Substitutions() const
{
    std::vector<std::string> lines = m_substitutions.Lines();
    for (const auto& troubles : {m_troubles, m_folders.Troubles()}) {
        lines.insert(lines.end(), troubles.begin(), troubles.end());
    }
    return lines;
}

const Font& FontLibrary::ForStyle(const drawing::Drawing& drawing, std::uint32_t style)
{
    static const drawing::TextStyle kNone;
    const auto& styles = drawing.TextStyles();
    const drawing::TextStyle& asked = style < styles.size() ? styles[style] : kNone;
    const std::size_t slot = std::min<std::size_t>(style, styles.size());
    if (m_styles.size() <= slot) {
        m_styles.resize(slot + 1);
    }
    StyleEntry& entry = m_styles[slot];
    if (entry.font != nullptr && entry.fontFile == asked.fontFile && entry.bigFontFile == asked.bigFontFile &&
        entry.family == asked.family && entry.bold == asked.bold && entry.italic == asked.italic &&
        entry.path == drawing.Path()) {
        return *entry.font;
    }
    const std::string folder = FolderOf(drawing.Path());
    const std::string key = folder + '\n' + asked.name + '\n' + asked.fontFile + '\n' + asked.bigFontFile + '\n' +
                            asked.family + (asked.bold ? "\nb" : "\n") + (asked.italic ? "i" : "");
    auto& font = m_styleFonts[key];
    if (!font) {
        const Wish wish{asked, FileNameOf(asked.fontFile), folder, "style " + asked.name};
        font = std::make_unique<Font>(Resolve(wish));
        font->big = font->stroke != nullptr ? BigFontOf(wish, drawing.CodePage()) : nullptr;
    }
    entry = {asked.fontFile, asked.bigFontFile, asked.family, drawing.Path(), asked.bold, asked.italic, font.get()};
    return *font;
}

const Font& FontLibrary::ForFamily(const std::string& family, bool bold, bool italic)
{
    const std::string key = base::FoldCase(family) + (bold ? "|b" : "|") + (italic ? "i" : "");
    const auto known = m_named.find(key);
    if (known != m_named.end()) {
        return known->second;
    }
    drawing::TextStyle style;
    style.family = family;
    style.bold = bold;
    style.italic = italic;
    const bool isShape = EndingOf(family) == ".shx" || m_map.Stroke(family) != nullptr;
    return m_named[key] = isShape ? ResolveShape({style, family, {}, "text"}) : ResolveOutline({style, {}, {}, "text"});
}

const Font& FontLibrary::ForShapeFile(const std::string& file)
{
    const std::string key = base::FoldCase(file) + "|shx";
    const auto known = m_named.find(key);
    if (known != m_named.end()) {
        return known->second;
    }
    const std::size_t comma = file.find(',');
    drawing::TextStyle style;
    style.bigFontFile = comma == std::string::npos ? "" : file.substr(comma + 1);
    const Wish wish{style, FileNameOf(file.substr(0, comma)), {}, "text"};
    Font& font = m_named[key] = ResolveShape(wish);
    font.big = font.stroke != nullptr ? BigFontOf(wish, {}) : nullptr;
    return font;
}

const OutlineFace* FontLibrary::FaceAt(const FontPlace& place)
{
    auto [entry, isNew] = m_faces.try_emplace(place.path + "#" + std::to_string(place.index));
    if (isNew) {
        entry->second = OutlineFace::Open(place.path, place.index);
    }
    return entry->second.get();
}

const OutlineFace* FontLibrary::AnyFace()
{
    for (const std::string& file : m_map.Fallbacks()) {
        if (const OutlineFace* face = FaceByName(file)) {
            return face;
        }
    }
    const auto place = m_folders.ForFamily("sans-serif", false, false);
    return place ? FaceAt(*place) : nullptr;
}

/// A stroke font's file with the widths of the font it stands for.
StrokeFont* FontLibrary::StrokeAt(const std::string& file, const StrokeChoice* choice)
{
    const bool own = choice == nullptr || choice->metrics.IsFile();
    auto [entry, isNew] =
        m_strokes.try_emplace(base::FoldCase(file) + (own ? "" : "|" + std::to_string(choice->number)));
    if (isNew) {
        const std::string* path = m_folders.Named(file);
        entry->second = path != nullptr && EndingOf(*path) == ".lff" ? StrokeFont::Open(*path) : nullptr;
        if (entry->second && !own) {
            entry->second->SetMetrics(choice->metrics, choice->width);
        }
    }
    return entry->second.get();
}

StrokeFont* FontLibrary::StrokeIn(const std::string& path)
{
    auto [entry, isNew] = m_strokes.try_emplace(path);
    if (isNew) {
        entry->second = StrokeFont::Open(path);
    }
    return entry->second.get();
}

/// The big font of a style; null where it names none or this machine hasn't it, which is noted.
StrokeFont* FontLibrary::BigFontOf(const Wish& wish, const std::string& codePage)
{
    const std::string asked = FileNameOf(wish.style.bigFontFile);
    if (asked.empty()) {
        return nullptr;
    }
    const std::string file = EndingOf(asked).empty() ? asked + ".shx" : asked;
    const std::string* path = wish.folder.empty() ? m_folders.Named(file) : m_folders.Named(file, wish.folder);
    StrokeFont* font = nullptr;
    if (path != nullptr) {
        const std::string page = BigFontPage(file, codePage);
        auto [entry, isNew] = m_strokes.try_emplace(*path + '|' + page);
        if (isNew) {
            entry->second = StrokeFont::OpenBig(*path, page);
        }
        font = entry->second.get();
    }
    if (font == nullptr) {
        m_substitutions.Note(wish.who, "big font " + asked + " drawn with outline fonts");
    }
    return font;
}

/// A letter that `beside` lacks, taken over from another stroke font.
const StrokeGlyph* FontLibrary::FindInStrokes(StrokeFont& beside, char32_t character)
{
    for (const std::string& file : m_map.StrokeFallbacks()) {
        const StrokeFont* other = StrokeAt(file, nullptr);
        if (const StrokeGlyph* strokes = other != nullptr ? other->Find(character) : nullptr) {
            return &beside.Adopt(character, Fitted(*strokes, *other, beside));
        }
    }
    return nullptr;
}

GlyphSource FontLibrary::Find(const Font& font, char32_t character)
{
    if (font.face != nullptr) {
        if (const std::uint32_t glyph = font.face->GlyphOf(character); glyph != 0) {
            return {font.face, glyph, nullptr, nullptr};
        }
        return FindElsewhere(character);
    }
    const StrokeGlyph* two = font.big != nullptr && character > 0x7F ? font.big->Find(character) : nullptr;
    if (two != nullptr) {
        return {nullptr, character, font.big, two};
    }
    if (font.stroke != nullptr) {
        if (const StrokeGlyph* strokes = font.stroke->Find(character)) {
            return {nullptr, character, font.stroke, strokes};
        }
        // No stroke font has all of Chinese and Japanese: a text in one font looks better than one in two.
        const GlyphSource outline = IsEastAsian(character) ? FindElsewhere(character) : GlyphSource();
        if (outline.face != nullptr) {
            return outline;
        }
        if (const StrokeGlyph* strokes = FindInStrokes(*font.stroke, character)) {
            return {nullptr, character, font.stroke, strokes};
        }
    }
    return FindElsewhere(character);
}

GlyphSource FontLibrary::FindElsewhere(char32_t character)
{
    auto [entry, isNew] = m_elsewhere.try_emplace(character);
    if (isNew) {
        entry->second = FindInFallbacks(character);
    }
    return entry->second;
}

GlyphSource FontLibrary::FindInFallbacks(char32_t character)
{
    for (const std::string& file : m_map.Fallbacks()) {
        const OutlineFace* face = FaceByName(file);
        if (const std::uint32_t glyph = face != nullptr ? face->GlyphOf(character) : 0; glyph != 0) {
            return {face, glyph, nullptr, nullptr};
        }
    }
    const auto place = m_folders.ForCharacter(character);
    const OutlineFace* face = place ? FaceAt(*place) : nullptr;
    if (const std::uint32_t glyph = face != nullptr ? face->GlyphOf(character) : 0; glyph != 0) {
        return {face, glyph, nullptr, nullptr};
    }
    return {};
}

} // namespace sm::render
