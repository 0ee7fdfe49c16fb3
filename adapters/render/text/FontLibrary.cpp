#include "render/text/FontLibrary.h"

#include "render/text/Unicode.h"

#include <algorithm>

namespace sm::render {

namespace {

std::string FileNameOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string EndingOf(const std::string& file)
{
    const std::size_t dot = file.rfind('.');
    return dot == std::string::npos ? std::string() : Lowered(file.substr(dot));
}

std::string StemOf(const std::string& file)
{
    return file.substr(0, file.rfind('.'));
}

bool IsOutlineEnding(const std::string& ending)
{
    return ending == ".ttf" || ending == ".ttc" || ending == ".otf" || ending == ".pfb";
}

constexpr const char* kLastStroke = "standard.lff";

} // namespace

FontLibrary::FontLibrary(const std::string& dataFolder, const std::string& userFolder)
    : m_folders(userFolder.empty() ? std::vector<std::string>() : std::vector{userFolder + "/fonts"})
{
    for (const std::string& folder : {userFolder, dataFolder}) {
        if (!folder.empty()) {
            m_map.AddFile(folder + "/fonts.map");
        }
    }
}

void FontLibrary::Note(std::string line)
{
    if (std::find(m_substitutions.begin(), m_substitutions.end(), line) == m_substitutions.end()) {
        m_substitutions.push_back(std::move(line));
    }
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
    if (entry.font != nullptr && entry.fontFile == asked.fontFile && entry.family == asked.family &&
        entry.bold == asked.bold && entry.italic == asked.italic) {
        return *entry.font;
    }
    const std::string key = asked.name + '\n' + asked.fontFile + '\n' + asked.family + (asked.bold ? "\nb" : "\n") +
                            (asked.italic ? "i" : "");
    auto& font = m_styleFonts[key];
    if (!font) {
        font = std::make_unique<Font>(Resolve(asked));
    }
    entry = {asked.fontFile, asked.family, asked.bold, asked.italic, font.get()};
    return *font;
}

const Font& FontLibrary::ForFamily(const std::string& family, bool bold, bool italic)
{
    const std::string key = Lowered(family) + (bold ? "|b" : "|") + (italic ? "i" : "");
    const auto known = m_named.find(key);
    if (known != m_named.end()) {
        return known->second;
    }
    drawing::TextStyle style;
    style.family = family;
    style.bold = bold;
    style.italic = italic;
    const bool isShape = EndingOf(family) == ".shx" || m_map.Stroke(family) != nullptr;
    return m_named[key] = isShape ? ResolveShape(family, "text") : ResolveOutline(style, "text");
}

const Font& FontLibrary::ForShapeFile(const std::string& file)
{
    const std::string key = Lowered(file) + "|shx";
    const auto known = m_named.find(key);
    return known != m_named.end() ? known->second : m_named[key] = ResolveShape(FileNameOf(file), "text");
}

Font FontLibrary::Resolve(const drawing::TextStyle& style)
{
    const std::string who = "style " + style.name;
    const std::string file = FileNameOf(style.fontFile), ending = EndingOf(file);
    const bool namesStrokes = ending.empty() && m_map.Stroke(file.empty() ? style.family : file) != nullptr;
    if (IsOutlineEnding(ending) || (!style.family.empty() && ending != ".shx" && !namesStrokes)) {
        return ResolveOutline(style, who);
    }
    if (ending.empty() && !file.empty() && m_map.Stroke(file) == nullptr) {
        drawing::TextStyle named = style; // "Arial" without an ending
        named.fontFile = file + ".ttf";
        bool exact = false;
        if (m_map.File(named.fontFile) != nullptr || m_folders.Named(named.fontFile) != nullptr) {
            return {FaceFor(named, exact), nullptr, 1};
        }
    }
    return ResolveShape(!file.empty() ? file : namesStrokes ? style.family : "txt", who);
}

Font FontLibrary::ResolveShape(const std::string& file, const std::string& who)
{
    const StrokeChoice* choice = m_map.Stroke(file);
    std::string drawn = choice != nullptr ? choice->file : StemOf(file) + ".lff";
    double width = choice != nullptr ? choice->width : 1;
    StrokeFont* stroke = StrokeAt(drawn);
    for (const char* other : {kLastStroke, "iso.lff", "unicode.lff"}) {
        if (stroke == nullptr) {
            drawn = other;
            width = 1;
            stroke = StrokeAt(drawn);
        }
    }
    if (stroke == nullptr) { // no stroke fonts on this machine: outlines rather than nothing
        const OutlineFace* face = AnyFace();
        Note(who + ": font " + file + " drawn with " + (face != nullptr ? face->Name() : "boxes"));
        return {face, nullptr, 1};
    }
    Note(who + ": font " + file + " drawn with " + drawn);
    return {nullptr, stroke, width};
}

Font FontLibrary::ResolveOutline(const drawing::TextStyle& style, const std::string& who)
{
    bool exact = false;
    const OutlineFace* face = FaceFor(style, exact);
    if (face == nullptr) {
        face = AnyFace();
    }
    const std::string asked = style.fontFile.empty() ? style.family : FileNameOf(style.fontFile);
    if (face == nullptr) { // no outline fonts on this machine: strokes rather than nothing
        return ResolveShape(asked, who);
    }
    if (!exact) {
        Note(who + ": font " + asked + " drawn with " + face->Name());
    }
    return {face, nullptr, 1};
}

const OutlineFace* FontLibrary::FaceFor(const drawing::TextStyle& style, bool& exact)
{
    const std::string file = FileNameOf(style.fontFile);
    const bool styled = !style.family.empty() && (style.bold || style.italic);
    exact = !file.empty() && !styled;
    const OutlineFace* face = exact ? FaceByName(file) : nullptr;
    if (face != nullptr) {
        return face;
    }
    exact = false;
    const std::string* other = styled ? m_map.Family(style.family, style.bold, style.italic) : nullptr;
    if (other == nullptr) {
        other = m_map.File(file);
    }
    if (other == nullptr) {
        const std::string family = style.family.empty() ? StemOf(file) : style.family;
        other = m_map.Family(family, style.bold, style.italic);
    }
    face = other != nullptr ? FaceByName(*other) : nullptr;
    if (face != nullptr) {
        return face;
    }
    const auto place =
        m_folders.ForFamily(style.family.empty() ? StemOf(file) : style.family, style.bold, style.italic);
    return place ? FaceAt(*place) : nullptr;
}

const OutlineFace* FontLibrary::FaceByName(const std::string& file)
{
    const std::string* path = m_folders.Named(file);
    return path != nullptr ? FaceAt({*path, 0}) : nullptr;
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

StrokeFont* FontLibrary::StrokeAt(const std::string& file)
{
    auto [entry, isNew] = m_strokes.try_emplace(Lowered(file));
    if (isNew) {
        const std::string* path = m_folders.Named(file);
        entry->second = path != nullptr && path->ends_with(".lff") ? StrokeFont::Open(*path) : nullptr;
    }
    return entry->second.get();
}

GlyphSource FontLibrary::Find(const Font& font, char32_t character)
{
    if (font.face != nullptr) {
        if (const std::uint32_t glyph = font.face->GlyphOf(character); glyph != 0) {
            return {font.face, glyph, nullptr, nullptr};
        }
        return FindElsewhere(character);
    }
    if (font.stroke != nullptr) {
        if (const StrokeGlyph* strokes = font.stroke->Find(character)) {
            return {nullptr, character, font.stroke, strokes};
        }
        for (const std::string& file : m_map.StrokeFallbacks()) {
            StrokeFont* other = StrokeAt(file);
            if (const StrokeGlyph* strokes = other != nullptr ? other->Find(character) : nullptr) {
                return {nullptr, character, other, strokes};
            }
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
