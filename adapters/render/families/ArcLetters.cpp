// SPDX-License-Identifier: GPL-3.0-or-later
#include "families/ArcLetters.h"

#include "base/text/Utf8.h"
#include "fonts/Unicode.h"
#include "text/BidiRuns.h"
#include "text/TextCodes.h"

#include <algorithm>
#include <utility>

namespace sm::render {

namespace {

struct CutText {
    std::vector<ArcLetter> letters; ///< as they are read
    std::vector<std::size_t> from;  ///< of each, its first byte in `whole`
    std::string whole;              ///< without codes
};

std::string CodesOf(const CodedPiece& piece, bool underlined)
{
    return std::string(piece.under || underlined ? "%%u" : "") + (piece.over ? "%%o" : "") +
           (piece.strike ? "%%k" : "");
}

/// Turned alone such characters would lose the shapes that they have in their word.
bool Joins(char32_t c)
{
    return IsComplex(c) && !IsHebrewLetter(c);
}

void CutPiece(const CodedPiece& piece, bool underlined, CutText& cut)
{
    const std::string codes = CodesOf(piece, underlined);
    char32_t before = 0;
    for (std::size_t at = 0; at < piece.text.size();) {
        const std::size_t from = at;
        const char32_t c = base::NextCharacter(piece.text, at);
        if (from == 0 || !(IsMark(c) || (Joins(c) && Joins(before)))) {
            cut.from.push_back(cut.whole.size() + from);
            cut.letters.push_back({codes, {}, 0});
        }
        cut.letters.back().text.append(piece.text, from, at - from);
        before = c;
    }
    cut.whole += piece.text;
}

/// A bracket opens towards what it holds, from whichever side that is read.
void Mirror(std::string& letter)
{
    static constexpr std::pair<std::string_view, std::string_view> kPairs[] = {
        {"(", ")"}, {"[", "]"}, {"{", "}"}, {"<", ">"}, {"«", "»"}};
    for (const auto& [open, close] : kPairs) {
        if (letter == open || letter == close) {
            letter = letter == open ? close : open;
            return;
        }
    }
}

std::vector<ArcLetter> InVisualOrder(CutText cut)
{
    std::vector<ArcLetter> seen;
    for (const BidiRun& run : VisualRuns(cut.whole)) {
        const auto first = std::ranges::lower_bound(cut.from, run.from) - cut.from.begin();
        const auto last = std::ranges::lower_bound(cut.from, run.to) - cut.from.begin();
        const auto begin = cut.letters.begin() + first, end = cut.letters.begin() + last;
        if (run.rightToLeft) {
            std::for_each(begin, end, [](ArcLetter& letter) { Mirror(letter.text); });
            std::reverse(begin, end);
        }
        seen.insert(seen.end(), begin, end);
    }
    return seen;
}

} // namespace

std::vector<ArcLetter> CutIntoLetters(std::string_view line, bool underlined)
{
    std::vector<CodedPiece> pieces;
    DecodeLine(line, pieces);
    CutText cut;
    for (const CodedPiece& piece : pieces)
        CutPiece(piece, underlined, cut);
    if (RunsBothWays(cut.whole))
        return InVisualOrder(std::move(cut));
    return std::move(cut.letters);
}

} // namespace sm::render
