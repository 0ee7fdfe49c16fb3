// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/ContentsPages.h"

#include "marks/StampText.h"

#include <algorithm>
#include <fmt/format.h>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

namespace sm::publisher {

namespace {

// Points.
constexpr double kWidth = 595.276, kHeight = 841.89, kMargin = 56.7, kRight = kWidth - kMargin;
constexpr double kPitch = 16, kIndent = 14, kGap = 6, kNumberRoom = 40, kBelowLine = 4, kTitleRoom = 34;
constexpr std::int32_t kSize = 10, kTitleSize = 18, kGrey = 0x808080;
constexpr const char* kPlain = "Helvetica";
constexpr const char* kBold = "Helvetica-Bold";
constexpr const char* kTitle = "Contents";

bool BeginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

/// Points; of a text that the standard font lacks, no less than it can be.
double WidthOf(const std::string& text, bool bold)
{
    const StampText encoded = EncodeStampText(text, FindStampFont(bold ? kBold : kPlain));
    return kSize * (encoded.complete ? encoded.width
                                     : static_cast<double>(std::count_if(text.begin(), text.end(), BeginsCharacter)));
}

/// How many bytes of a text stand in a line of that width: up to a blank where there is one, at least a character.
std::size_t FirstLine(const std::string& text, bool bold, double width)
{
    std::size_t fits = 0, blank = 0;
    for (std::size_t end = 1; end <= text.size(); ++end) {
        if (end < text.size() && !BeginsCharacter(text[end])) {
            continue;
        }
        if (fits > 0 && WidthOf(text.substr(0, end), bold) > width) {
            return blank > 0 ? blank : fits;
        }
        fits = end;
        blank = text[end - 1] == ' ' ? end : blank;
    }
    return fits;
}

std::size_t LinesOnPage(bool first)
{
    return static_cast<std::size_t>((kHeight - 2 * kMargin - (first ? kTitleRoom : 0)) / kPitch);
}

TextStampMark Text(double x, double y, const std::string& text, const char* font)
{
    TextStampMark mark{x, y, text, font, kSize};
    mark.isEmbedded = true;
    return mark;
}

} // namespace

ContentsPages::ContentsPages(const std::vector<SheetPage>& sheets, const NavigationWanted& wanted) : m_wanted(wanted)
{
    if (!wanted.contents || sheets.empty()) {
        return;
    }
    std::vector<Line> lines;
    std::string heading;
    for (const SheetPage& sheet : sheets) {
        const std::string own = wanted.heading ? wanted.heading(sheet.number) : std::string();
        if (!own.empty() && own != heading) {
            AddEntry(own, true, sheet.number, lines);
        }
        heading = own;
        AddEntry(sheet.title.empty() ? fmt::format("Sheet {}", sheet.number) : sheet.title, false, sheet.number, lines);
    }
    LayOut(lines);
}

/// A title that is too long goes on in the next line.
void ContentsPages::AddEntry(const std::string& text, bool isHeading, std::size_t sheet, std::vector<Line>& lines) const
{
    const double indent = m_wanted.heading && !isHeading ? kIndent : 0;
    std::string rest = text;
    do {
        const std::size_t length = FirstLine(rest, isHeading, kRight - kMargin - indent - kNumberRoom);
        lines.push_back({rest.substr(0, length), isHeading, length == rest.size(), sheet});
        rest.erase(0, length);
    } while (!rest.empty());
}

void ContentsPages::LayOut(const std::vector<Line>& lines)
{
    m_lines.emplace_back();
    for (const Line& line : lines) {
        // No heading stands alone at the end of a page.
        const std::size_t room = LinesOnPage(m_lines.size() == 1) - m_lines.back().size();
        if (room < (line.isHeading ? 2U : 1U)) {
            m_lines.emplace_back();
        }
        m_lines.back().push_back(line);
    }
    m_pages.resize(m_lines.size());
    for (std::size_t page = 0; page < m_lines.size(); ++page) {
        double y = kHeight - kMargin - kSize;
        if (page == 0) {
            TextStampMark title = Text(kMargin, kHeight - kMargin - kTitleSize, kTitle, kBold);
            title.fontSize = kTitleSize;
            m_pages[page].emplace_back(title);
            y -= kTitleRoom;
        }
        for (const Line& line : m_lines[page]) {
            AddLine(line, y, m_pages[page]);
            y -= kPitch;
        }
    }
}

/// The text, and behind the last line of a sheet's title dots that lead to its page number.
void ContentsPages::AddLine(const Line& line, double y, Marks& marks) const
{
    const std::size_t page = line.sheet + m_pages.size();
    const double x = kMargin + (m_wanted.heading && !line.isHeading ? kIndent : 0);
    marks.emplace_back(Text(x, y, line.text, line.isHeading ? kBold : kPlain));
    LinkMark link{kMargin, y - kBelowLine, kRight, y - kBelowLine + kPitch, {}};
    link.page = page;
    marks.emplace_back(link);
    if (line.isHeading || !line.isLast) {
        return;
    }
    TextStampMark number = Text(kRight, y, std::to_string(page), kPlain);
    number.justification = 2;
    const double end = kRight - WidthOf(number.text, false) - kGap;
    const double room = end - x - WidthOf(line.text, false) - kGap;
    TextStampMark dots = Text(end, y, "", kPlain);
    dots.text.assign(static_cast<std::size_t>(std::max(room / WidthOf(".", false), 0.0)), '.');
    dots.color = kGrey;
    dots.justification = 2;
    if (!dots.text.empty()) {
        marks.emplace_back(dots);
    }
    marks.emplace_back(number);
}

void ContentsPages::AddTo(QPDF& pdf, std::vector<SheetPage>& sheets) const
{
    for (SheetPage& sheet : sheets) {
        sheet.number += Count();
    }
    QPDFPageDocumentHelper document(pdf);
    for (std::size_t number = Count(); number > 0; --number) {
        auto page = pdf.makeIndirectObject(QPDFObjectHandle::parse(
            fmt::format("<< /Type /Page /MediaBox [0 0 {} {}] /Resources << >> >>", kWidth, kHeight)));
        page.replaceKey("/Contents", pdf.newStream("\n"));
        document.addPage(QPDFPageObjectHelper(page), true);
        const std::string title = number == 1 ? kTitle : fmt::format("{} {}", kTitle, number);
        sheets.insert(sheets.begin(), {pdf.getAllPages().front(), title, 1, number, &m_pages[number - 1]});
    }
}

NavigationWanted ContentsPages::Navigation() const
{
    NavigationWanted wanted = m_wanted;
    if (m_wanted.heading) {
        wanted.heading = [heading = m_wanted.heading, count = Count()](std::size_t page) {
            return page > count ? heading(page - count) : std::string();
        };
    }
    return wanted;
}

} // namespace sm::publisher
