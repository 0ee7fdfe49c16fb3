// SPDX-License-Identifier: GPL-3.0-or-later
#include "fonts/FontMap.h"

#include "base/files/File.h"
#include "base/files/Paths.h"
#include "base/text/Names.h"
#include "base/text/Utf8.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

namespace sm::render {

namespace {

using Words = std::vector<std::string_view>;

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

/// Where the word that begins at `from` ends.
std::size_t EndOfWord(std::string_view line, std::size_t from, bool quoted)
{
    while (from < line.size() && line[from] != '"' && (quoted || (!IsBlank(line[from]) && line[from] != '#'))) {
        ++from;
    }
    return from;
}

/// Quotes begin and end a word; what stands between them is one.
void SplitWords(std::string_view line, Words& words)
{
    words.clear();
    for (std::size_t at = 0; at < line.size() && line[at] != '#';) {
        const bool quoted = line[at] == '"';
        if (IsBlank(line[at])) {
            ++at;
            continue;
        }
        const std::size_t from = at + (quoted ? 1 : 0);
        at = EndOfWord(line, from, quoted);
        words.push_back(line.substr(from, at - from));
        at += quoted ? 1 : 0;
    }
}

std::string WithoutShx(std::string_view name)
{
    std::string key = base::FoldCase(name);
    if (key.ends_with(".shx")) {
        key.resize(key.size() - 4);
    }
    return key;
}

/// The number, when it is one within the limits.
std::optional<double> NumberOf(std::string_view word, double low, double high)
{
    double value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    const bool fits = error == std::errc{} && end == word.data() + word.size() && value >= low && value <= high;
    return fits ? std::optional(value) : std::nullopt;
}

std::optional<double> NumberAt(const Words& words, std::size_t at, double low, double high)
{
    return at < words.size() ? NumberOf(words[at], low, high) : std::nullopt;
}

/// "arial.ttf|LiberationSans-Regular.ttf*0.961"
FontChoices ChoicesOf(std::string_view word)
{
    FontChoices choices;
    while (!word.empty()) {
        const std::size_t end = word.find('|');
        const std::string_view one = word.substr(0, end);
        word.remove_prefix(end == std::string_view::npos ? word.size() : end + 1);
        const std::size_t star = one.find('*');
        const double width = star == std::string_view::npos ? 1 : NumberOf(one.substr(star + 1), 0.1, 10).value_or(1);
        choices.push_back({std::string(one.substr(0, star)), width});
    }
    return choices;
}

} // namespace

void FontMap::AddLine(const Words& words)
{
    const std::string_view kind = words.empty() ? std::string_view() : words[0];
    if (kind == "file" && words.size() >= 3) {
        m_files.try_emplace(base::FoldCase(words[1]), words[2]);
    } else if (kind == "family" && words.size() >= 3) {
        std::array<std::string_view, 4> files;
        for (std::size_t i = 0; i < files.size(); ++i) {
            files[i] = i + 2 < words.size() ? words[i + 2] : words[2];
        }
        m_families.try_emplace(base::FoldCase(words[1]), files);
    } else if (kind == "stroke" && words.size() >= 3) {
        AddStroke(words);
    } else if (kind == "advance" && words.size() >= 4) {
        AddAdvances(words);
    } else if (kind == "fallback" || kind == "strokefallback") {
        auto& list = kind == "fallback" ? m_fallbacks : m_strokeFallbacks;
        list.insert(list.end(), words.begin() + 1, words.end());
    }
}

void FontMap::AddStroke(const Words& words)
{
    StrokeChoice choice{std::string(words[2]), NumberAt(words, 3, 0.1, 10).value_or(1), {}, m_strokes.size()};
    choice.metrics.gap = NumberAt(words, 4, 0, 5);
    choice.metrics.space = NumberAt(words, 5, 0, 5);
    m_strokes.try_emplace(WithoutShx(words[1]), std::move(choice));
}

/// Advances belong to the line before them that names the stroke font.
void FontMap::AddAdvances(const Words& words)
{
    const auto found = m_strokes.find(WithoutShx(words[1]));
    const std::optional<double> advance = NumberAt(words, 2, 0, 10);
    if (found == m_strokes.end() || !advance) {
        return;
    }
    for (std::size_t at = 0; at < words[3].size();) {
        found->second.metrics.advances.try_emplace(base::NextCharacter(words[3], at), *advance);
    }
}

void FontMap::Add(std::string lines)
{
    std::string_view text = m_texts.emplace_back(std::move(lines));
    Words words;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        SplitWords(text.substr(0, end), words);
        AddLine(words);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

std::string FontMap::AddFile(const std::string& path)
{
    constexpr std::uint64_t kLargest = 1 << 20;
    std::error_code error;
    if (!std::filesystem::exists(base::ToPath(path), error)) {
        return {};
    }
    auto text = base::ReadRegularFile(path, kLargest);
    const bool isRead = text.has_value();
    Add(std::move(text).value_or(""));
    return isRead ? std::string() : path + " can't be read, so that other fonts stand in";
}

std::optional<FontChoices> FontMap::File(std::string_view name) const
{
    const auto found = m_files.find(base::FoldCase(name));
    return found == m_files.end() ? std::nullopt : std::optional(ChoicesOf(found->second));
}

std::optional<FontChoices> FontMap::Family(std::string_view name, bool bold, bool italic) const
{
    const auto found = m_families.find(base::FoldCase(name));
    if (found == m_families.end()) {
        return std::nullopt;
    }
    return ChoicesOf(found->second[(bold ? 1U : 0U) + (italic ? 2U : 0U)]);
}

const StrokeChoice* FontMap::Stroke(std::string_view name) const
{
    const auto found = m_strokes.find(WithoutShx(name));
    return found == m_strokes.end() ? nullptr : &found->second;
}

} // namespace sm::render
