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
    /// Adds the lines of a table; what can't be understood is left out.
    void Add(std::string_view text);
    /// Adds a file's lines. What is wrong with a file that is there and can't be read; else nothing.
    std::string AddFile(const std::string& path);

    /// Null when the table has no line for it.
    [[nodiscard]] const FontChoices* File(std::string_view name) const;
    [[nodiscard]] const FontChoices* Family(std::string_view name, bool bold, bool italic) const;
    /// `name` with or without ".shx".
    [[nodiscard]] const StrokeChoice* Stroke(std::string_view name) const;
    [[nodiscard]] const std::vector<std::string>& Fallbacks() const { return m_fallbacks; }
    [[nodiscard]] const std::vector<std::string>& StrokeFallbacks() const { return m_strokeFallbacks; }

private:
    void AddLine(const std::vector<std::string>& words);
    void AddStroke(const std::vector<std::string>& words);
    void AddAdvances(const std::vector<std::string>& words);

    std::map<std::string, FontChoices> m_files;
    std::map<std::string, std::array<FontChoices, 4>> m_families;
    std::map<std::string, StrokeChoice> m_strokes;
    std::vector<std::string> m_fallbacks, m_strokeFallbacks;
};

} // namespace sm::render
