// The table of fonts that stand for others: share/sheetmaker-pdf/fonts.map, and the user's own lines before it.
//
// A line is a keyword and words; "#" starts a comment, quotes keep blanks in a word:
//   file arial.ttf LiberationSans-Regular.ttf          a font file and what is drawn when it isn't installed
//   family Arial REGULAR BOLD ITALIC BOLDITALIC        a family likewise; files left out repeat the first
//   stroke romans romans.lff 1.05                      a stroke font, its file and how much wider to draw it
//   fallback DejaVuSans.ttf                            asked in turn for characters a font doesn't have
//   strokefallback unicode.lff                         likewise for stroke fonts
// Of two lines for one name the first read counts. Names are compared without letter case.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sm::render {

struct StrokeChoice {
    std::string file;
    double width = 1;
};

class FontMap {
public:
    /// Adds the lines of a table; what can't be understood is left out.
    void Add(std::string_view text);
    /// Adds a file's lines; false when it can't be read.
    bool AddFile(const std::string& path);

    /// Null when the table has no line for it.
    [[nodiscard]] const std::string* File(std::string_view name) const;
    [[nodiscard]] const std::string* Family(std::string_view name, bool bold, bool italic) const;
    /// `name` with or without ".shx".
    [[nodiscard]] const StrokeChoice* Stroke(std::string_view name) const;
    [[nodiscard]] const std::vector<std::string>& Fallbacks() const { return m_fallbacks; }
    [[nodiscard]] const std::vector<std::string>& StrokeFallbacks() const { return m_strokeFallbacks; }

private:
    void AddLine(const std::vector<std::string>& words);

    std::map<std::string, std::string> m_files;
    std::map<std::string, std::array<std::string, 4>> m_families;
    std::map<std::string, StrokeChoice> m_strokes;
    std::vector<std::string> m_fallbacks, m_strokeFallbacks;
};

} // namespace sm::render
