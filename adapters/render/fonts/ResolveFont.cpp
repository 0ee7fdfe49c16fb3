// SPDX-License-Identifier: GPL-3.0-or-later
// Which font stands for one that a drawing names.
#include "fonts/FontLibrary.h"
#include "fonts/FontNames.h"

#include <algorithm>

namespace sm::render {

namespace {

constexpr const char* kLastStroke = "standard.lff";

/// Some programs write the blanks of a font's name so.
std::string WithBlanks(std::string name)
{
    std::replace(name.begin(), name.end(), '_', ' ');
    return name;
}

} // namespace

Font FontLibrary::Resolve(const Wish& wish)
{
    const std::string ending = EndingOf(wish.file);
    const std::string& family = wish.style.family;
    if (std::optional<Font> named = ResolveNamed(wish)) {
        return *named;
    }
    const bool namesStrokes = ending.empty() && m_map.Stroke(wish.file.empty() ? family : wish.file) != nullptr;
    if (IsOutlineEnding(ending) || (!family.empty() && ending != ".shx" && !namesStrokes)) {
        return ResolveOutline(wish);
    }
    const bool bare = ending.empty() && !wish.file.empty() && !namesStrokes;
    if (bare && (m_map.File(wish.file + ".ttf") || m_folders.Named(wish.file + ".ttf") != nullptr)) {
        return ResolveOutline({wish.style, wish.file + ".ttf", wish.folder, wish.who}); // "Arial" without an ending
    }
    if (bare && (m_map.Family(wish.file, false, false) || m_map.Family(WithBlanks(wish.file), false, false))) {
        drawing::TextStyle style = wish.style;
        style.family = wish.file;
        return ResolveOutline({style, {}, wish.folder, wish.who});
    }
    return ResolveShape({wish.style,
                         !wish.file.empty() ? wish.file
                         : namesStrokes     ? family
                                            : "txt",
                         wish.folder, wish.who});
}

/// The very font, beside the drawing.
std::optional<Font> FontLibrary::ResolveNamed(const Wish& wish)
{
    if (wish.file.empty() || wish.folder.empty()) {
        return std::nullopt;
    }
    const std::string file = EndingOf(wish.file).empty() ? wish.file + ".shx" : wish.file;
    const std::string* path = m_folders.Named(file, wish.folder);
    if (path == nullptr) {
        return std::nullopt;
    }
    if (IsOutlineEnding(EndingOf(file))) {
        const bool beside = FolderOf(*path) == wish.folder;
        const OutlineFace* face = beside ? FaceAt({*path, 0}) : nullptr;
        return face != nullptr ? std::optional(Font{face, nullptr, 1, 1}) : std::nullopt;
    }
    StrokeFont* stroke = StrokeIn(*path);
    return stroke != nullptr ? std::optional(Font{nullptr, stroke, 1, 1}) : std::nullopt;
}

/// The stroke font that is drawn when nothing better is known; null when this machine has none.
StrokeFont* FontLibrary::LastStroke(std::string& drawn)
{
    for (const char* other : {kLastStroke, "iso.lff", "unicode.lff"}) {
        drawn = other;
        if (StrokeFont* stroke = StrokeAt(drawn, m_map.Stroke("txt"))) {
            return stroke;
        }
    }
    return nullptr;
}

Font FontLibrary::ResolveShape(const Wish& wish)
{
    const std::string file = EndingOf(wish.file).empty() ? wish.file + ".shx" : wish.file;
    if (const std::string* path = m_folders.Named(file); path != nullptr && EndingOf(file) == ".shx") {
        if (StrokeFont* stroke = StrokeIn(*path)) {
            return {nullptr, stroke, 1, 1};
        }
    }
    const StrokeChoice* choice = m_map.Stroke(wish.file);
    std::string drawn = choice != nullptr ? choice->file : StemOf(wish.file) + ".lff";
    StrokeFont* stroke = StrokeAt(drawn, choice);
    double width = choice != nullptr ? choice->width : 1;
    if (stroke == nullptr) {
        stroke = LastStroke(drawn);
        width = m_map.Stroke("txt") != nullptr ? m_map.Stroke("txt")->width : 1;
    }
    if (stroke == nullptr) { // no stroke fonts on this machine: outlines rather than nothing
        const OutlineFace* face = AnyFace();
        m_substitutions.Note(wish.who, wish.file + " drawn with " + (face != nullptr ? face->Name() : "boxes"));
        return {face, nullptr, 1, 1};
    }
    m_substitutions.Note(wish.who, wish.file + " drawn with " + drawn);
    return {nullptr, stroke, width, 1};
}

Font FontLibrary::ResolveOutline(const Wish& wish)
{
    bool exact = false;
    SizedFace sized = FaceFor(wish, exact);
    if (sized.face == nullptr) {
        sized = {AnyFace(), 1};
    }
    const std::string& asked = wish.file.empty() ? wish.style.family : wish.file;
    if (sized.face == nullptr) { // no outline fonts on this machine: strokes rather than nothing
        return ResolveShape({wish.style, asked, wish.folder, wish.who});
    }
    if (!exact) {
        m_substitutions.Note(wish.who, asked + " drawn with " + sized.face->Name());
    }
    return {sized.face, nullptr, 1, sized.width};
}

FontLibrary::SizedFace FontLibrary::FaceFor(const Wish& wish, bool& exact)
{
    const drawing::TextStyle& style = wish.style;
    const bool styled = !style.family.empty() && (style.bold || style.italic);
    exact = !wish.file.empty() && !styled;
    const OutlineFace* face = exact ? FaceByName(wish.file) : nullptr;
    if (face != nullptr) {
        return {face, 1};
    }
    exact = false;
    return FaceInstead(wish);
}

FontLibrary::SizedFace FontLibrary::FaceInstead(const Wish& wish)
{
    const drawing::TextStyle& style = wish.style;
    std::string family = style.family.empty() ? StemOf(wish.file) : style.family;
    family = m_map.Family(family, false, false) ? family : WithBlanks(family);
    if (!style.family.empty() && (style.bold || style.italic)) {
        if (const SizedFace sized = FirstOf(m_map.Family(family, style.bold, style.italic)); sized.face != nullptr) {
            return sized;
        }
    }
    if (const SizedFace sized = FirstOf(m_map.File(wish.file)); sized.face != nullptr) {
        return sized;
    }
    if (const SizedFace sized = FirstOf(m_map.Family(family, style.bold, style.italic)); sized.face != nullptr) {
        return sized;
    }
    const auto place = m_folders.ForFamily(family, style.bold, style.italic);
    return {place ? FaceAt(*place) : nullptr, 1};
}

FontLibrary::SizedFace FontLibrary::FirstOf(const std::optional<FontChoices>& choices)
{
    if (choices) {
        for (const FontChoice& choice : *choices) {
            if (const OutlineFace* face = FaceByName(choice.file)) {
                return {face, choice.width};
            }
        }
    }
    return {};
}

const OutlineFace* FontLibrary::FaceByName(const std::string& file)
{
    const std::string* path = m_folders.Named(file);
    return path != nullptr && IsOutlineEnding(EndingOf(*path)) ? FaceAt({*path, 0}) : nullptr;
}

} // namespace sm::render
