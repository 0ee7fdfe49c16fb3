// SPDX-License-Identifier: GPL-3.0-or-later
// The table of fonts that stand for others: share/sheetmaker-pdf/fonts.map, and the user's own lines before it.
//
// A line is a keyword and words; "#" starts a comment, quotes keep blanks in a word:
//   file arial.ttf LiberationSans-Regular.ttf*0.961    a font file and what is drawn when it isn't installed
//   family Arial REGULAR BOLD ITALIC BOLDITALIC        a family likewise; files left out repeat the first
//   stroke romans romans.lff 1 0.29 0.95               a stroke font, its file, how much wider to draw its letters,
//                                                      the gap between them and the width of a blank (in heights)
//   advance txt 0.667 I1                               the width of these characters with their gap, in heights
//   fallback DejaVuSans.ttf                            asked in turn for characters a font doesn't have
//   strokefallback unicode.lff                         likewise for stroke fonts
// A file may be several, "arial.ttf|LiberationSans-Regular.ttf*0.961": the first that is installed counts; "*" says how
// much wider than the file's own its letters are drawn at the same height.
// Of two lines for one name the first read counts. Names are compared without letter case.
#pragma once

#include <array>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace sm::render {

/// An outline font's file that may stand for another.
struct FontChoice {
    std::string file;
    double width = 1;
};
using FontChoices = std::vector<FontChoice>;

/// Widths of a stroke font, in heights of capitals; what isn't set is the file's own.
struct StrokeMetrics {
    std::optional<double> gap, space;
    std::unordered_map<char32_t, double> advances; ///< with the gap behind
    [[nodiscard]] bool IsFile() const { return !gap && !space && advances.empty(); }
};

struct StrokeChoice {
    std::string file;
    double width = 1;
    StrokeMetrics metrics;
    std::size_t number = 0; ///< of its line: no two are alike
};

class FontMap {
public:
    FontMap() = default;
    FontMap(const FontMap&) = delete; // its tables look into its texts
    FontMap& operator=(const FontMap&) = delete;

    /// Adds the lines of a table; what can't be understood is left out.
    void Add(std::string lines);
    /// Adds a file's lines. What is wrong with a file that is there and can't be read; else nothing.
    std::string AddFile(const std::string& path);

    /// Nothing when the table has no line for it.
    [[nodiscard]] std::optional<FontChoices> File(std::string_view name) const;
    [[nodiscard]] std::optional<FontChoices> Family(std::string_view name, bool bold, bool italic) const;
    /// Null when there is none. `name` with or without ".shx".
    [[nodiscard]] const StrokeChoice* Stroke(std::string_view name) const;
    [[nodiscard]] const std::vector<std::string>& Fallbacks() const { return m_fallbacks; }
    [[nodiscard]] const std::vector<std::string>& StrokeFallbacks() const { return m_strokeFallbacks; }

private:
    void AddLine(const std::vector<std::string_view>& words);
    void AddStroke(const std::vector<std::string_view>& words);
    void AddAdvances(const std::vector<std::string_view>& words);

    // Of the hundreds of lines a drawing asks for a few: their choices stay text until then.
    std::deque<std::string> m_texts;
    std::map<std::string, std::string_view> m_files;
    std::map<std::string, std::array<std::string_view, 4>> m_families;
    std::map<std::string, StrokeChoice> m_strokes;
    std::vector<std::string> m_fallbacks, m_strokeFallbacks;
};

} // namespace sm::render
