#include "render/text/FontMap.h"

#include "render/text/Unicode.h"

#include <charconv>
#include <fstream>
#include <sstream>

namespace sm::render {

namespace {

std::vector<std::string> WordsOf(std::string_view line)
{
    std::vector<std::string> words;
    bool quoted = false, open = false;
    for (const char c : line) {
        if (c == '#' && !quoted) {
            break;
        }
        if (c == '"') {
            quoted = !quoted;
            if (quoted) {
                words.emplace_back();
            }
            open = quoted;
        } else if (!quoted && (c == ' ' || c == '\t' || c == '\r')) {
            open = false;
        } else {
            if (!open) {
                words.emplace_back();
                open = true;
            }
            words.back() += c;
        }
    }
    return words;
}

std::string WithoutShx(std::string_view name)
{
    std::string key = Lowered(name);
    if (key.ends_with(".shx")) {
        key.resize(key.size() - 4);
    }
    return key;
}

} // namespace

void FontMap::AddLine(const std::vector<std::string>& words)
{
    if (words.size() < 2) {
        return;
    }
    const std::string& kind = words[0];
    if (kind == "file" && words.size() == 3) {
        m_files.try_emplace(Lowered(words[1]), words[2]);
    } else if (kind == "family" && words.size() >= 3) {
        std::array<std::string, 4> files;
        for (std::size_t i = 0; i < files.size(); ++i) {
            files[i] = i + 2 < words.size() ? words[i + 2] : words[2];
        }
        m_families.try_emplace(Lowered(words[1]), files);
    } else if (kind == "stroke" && words.size() >= 3) {
        double width = 1;
        if (words.size() > 3) {
            std::from_chars(words[3].data(), words[3].data() + words[3].size(), width);
        }
        m_strokes.try_emplace(WithoutShx(words[1]), StrokeChoice{words[2], width > 0.1 && width < 10 ? width : 1});
    } else if (kind == "fallback" || kind == "strokefallback") {
        auto& list = kind == "fallback" ? m_fallbacks : m_strokeFallbacks;
        list.insert(list.end(), words.begin() + 1, words.end());
    }
}

void FontMap::Add(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        AddLine(WordsOf(text.substr(0, end)));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

bool FontMap::AddFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (!file || !(text << file.rdbuf())) {
        return false;
    }
    Add(text.view());
    return true;
}

const std::string* FontMap::File(std::string_view name) const
{
    const auto found = m_files.find(Lowered(name));
    return found == m_files.end() ? nullptr : &found->second;
}

const std::string* FontMap::Family(std::string_view name, bool bold, bool italic) const
{
    const auto found = m_families.find(Lowered(name));
    return found == m_families.end() ? nullptr : &found->second[(bold ? 1U : 0U) + (italic ? 2U : 0U)];
}

const StrokeChoice* FontMap::Stroke(std::string_view name) const
{
    const auto found = m_strokes.find(WithoutShx(name));
    return found == m_strokes.end() ? nullptr : &found->second;
}

} // namespace sm::render
