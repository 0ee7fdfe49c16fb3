// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/DimStyles.h"
#include "drawing/entities/Dimensions.h"
#include "drawing/entities/Texts.h"
#include "notes/NotePicture.h"
#include "notes/ToleranceSymbols.h"

#include <string_view>

namespace sm::render {

namespace {

/// A stretch of a cell: text, or one sign.
struct Item {
    std::string text;
    char symbol = ' ';
};

constexpr std::string_view kSymbolStart = "{\\Fgdt;";

/// The sign that `text` begins with ("{\Fgdt;j}"); a blank when it begins with none.
char SymbolAt(std::string_view text)
{
    const std::size_t letter = kSymbolStart.size();
    const bool starts = text.starts_with(kSymbolStart) || text.starts_with("{\\fgdt;");
    return starts && text.size() > letter + 1 && text[letter + 1] == '}' && IsToleranceSymbol(text[letter])
               ? text[letter]
               : ' ';
}

std::vector<Item> ItemsOf(std::string_view text)
{
    std::vector<Item> items;
    while (!text.empty()) {
        if (const char symbol = SymbolAt(text); symbol != ' ') {
            items.push_back({"", symbol});
            text.remove_prefix(kSymbolStart.size() + 2);
            continue;
        }
        if (items.empty() || items.back().symbol != ' ') {
            items.emplace_back();
        }
        items.back().text += text.front();
        text.remove_prefix(1);
    }
    return items;
}

std::vector<std::string_view> Split(std::string_view text, std::string_view separator)
{
    std::vector<std::string_view> parts;
    for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator)) {
        parts.push_back(text.substr(0, at));
        text.remove_prefix(at + separator.size());
    }
    parts.push_back(text);
    return parts;
}

class ToleranceBuilder {
public:
    ToleranceBuilder(const drawing::ToleranceData& tolerance, const drawing::DimStyle& style, const NoteTools& tools,
                     NotePicture& picture)
        : m_tools(tools), m_picture(picture), m_linePen(NotePen(style.dimensionColor, style.dimensionWeight)),
          m_textPen(NotePen(style.textColor)), m_height(style.textHeight * style.scale)
    {
        const Vec2 given = Unit(picture.ToPlane(tolerance.direction));
        m_right = given == Vec2{} ? Vec2{1, 0} : given;
        static_cast<drawing::Entity&>(m_text) = m_textPen;
        m_text.style = style.textStyle;
        m_text.rotation = AngleOf(m_right);
    }

    void AddRow(std::string_view line, Vec2 at)
    {
        const std::vector<std::string_view> cells = Split(line, "%%v");
        for (const std::string_view cell : cells) {
            if (cell.find_first_not_of(' ') != std::string_view::npos) {
                at = AddCell(ItemsOf(cell), at);
            }
        }
    }
    /// From one row to the next: a row is twice as high as its letters.
    [[nodiscard]] Vec2 Down() const { return Left(m_right) * (-2 * m_height); }

private:
    Vec2 AddCell(const std::vector<Item>& items, Vec2 at)
    {
        double width = 0;
        std::vector<double> widths;
        for (const Item& item : items) {
            widths.push_back(item.symbol != ' ' ? m_height * kSymbolSize : WidthOf(item.text));
            width += widths.back();
        }
        const double cell = std::max(width + m_height, 2 * m_height);
        const Vec2 end = at + m_right * cell, rise = Left(m_right) * m_height;
        m_picture.AddPolygon({at - rise, end - rise, end + rise, at + rise}, m_linePen);
        Vec2 pen = at + m_right * ((cell - width) / 2);
        for (std::size_t i = 0; i < items.size(); ++i) {
            AddItem(items[i], pen, widths[i]);
            pen = pen + m_right * widths[i];
        }
        return end;
    }

    double WidthOf(const std::string& text)
    {
        m_text.text = text;
        m_text.height = m_height;
        return m_tools.Measure(m_text).x;
    }

    /// `at`: the middle of the item's left side.
    void AddItem(const Item& item, Vec2 at, double width)
    {
        constexpr std::int32_t kMiddleLeft = 4, kMiddle = 5;
        if (item.symbol == ' ') {
            SetText(item.text, m_height, kMiddleLeft);
            m_picture.AddText(m_text, at);
            return;
        }
        const Vec2 x = m_right * width, y = Left(x), corner = at - y * 0.5;
        AppendToleranceSymbol(m_picture.Add(m_textPen), item.symbol, {x.x, x.y, y.x, y.y, corner.x, corner.y});
        if (const char letter = ToleranceSymbolLetter(item.symbol); letter != ' ') {
            constexpr double kPart = 0.6, kCentre = 4.0 / 9;
            SetText(std::string(1, letter), m_height * kPart, kMiddle);
            m_picture.AddText(m_text, corner + x * kCentre + y * kCentre);
        }
    }

    void SetText(const std::string& text, double height, std::int32_t attachment)
    {
        m_text.text = text;
        m_text.height = height;
        m_text.attachment = attachment;
    }

    static constexpr double kSymbolSize = 1.2; // of the letters' height
    const NoteTools& m_tools;
    NotePicture& m_picture;
    drawing::Entity m_linePen, m_textPen;
    drawing::MTextData m_text;
    double m_height;
    Vec2 m_right;
};

} // namespace

void Build(const drawing::ToleranceData& tolerance, const drawing::DimStyle& style, const NoteTools& tools,
           NotePicture& picture)
{
    picture.SetPlane(tolerance.extrusion, tolerance.insertion);
    ToleranceBuilder builder(tolerance, style, tools, picture);
    Vec2 at = picture.ToPlane(tolerance.insertion);
    for (const std::string_view line : Split(tolerance.text, "\n")) {
        builder.AddRow(line, at);
        at = at + builder.Down();
    }
}

} // namespace sm::render
