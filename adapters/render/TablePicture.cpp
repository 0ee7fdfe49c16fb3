#include "render/NotePicture.h"

namespace sm::render {

namespace {

using drawing::TableData;

constexpr double kCellMargin = 0.06; // of a table style that says nothing else, in drawing units
constexpr double kTextHeight = 0.18, kTitleHeight = 0.25;

class Builder {
public:
    Builder(const TableData& table, NotePicture& picture) : m_table(table), m_picture(picture)
    {
        m_at = picture.ToPlane(table.insertion);
        const Vec2 along = Unit(picture.ToPlane(table.direction));
        m_right = along == Vec2{} ? Vec2{1, 0} : along;
        m_down = Left(m_right) * -1;
        m_columns = Edges(table.columnWidths);
        m_rows = Edges(table.rowHeights);
    }

    void Run()
    {
        const std::size_t columns = m_table.columnWidths.size();
        for (std::size_t i = 0; i < m_table.cells.size(); ++i) {
            if (!m_table.cells[i].hidden) {
                AddCell(m_table.cells[i], i / columns, i % columns);
            }
        }
    }

private:
    struct Box {
        double left, right, top, bottom;
    };

    static std::vector<double> Edges(const std::vector<double>& sizes)
    {
        std::vector<double> edges{0};
        for (const double size : sizes) {
            edges.push_back(edges.back() + size);
        }
        return edges;
    }
    [[nodiscard]] Vec2 At(double x, double y) const { return m_at + m_right * x + m_down * y; }

    void AddCell(const TableData::Cell& cell, std::size_t row, std::size_t column)
    {
        const auto end = [](const std::vector<double>& edges, std::size_t first, std::int32_t count) {
            return edges[std::min(first + static_cast<std::size_t>(count), edges.size() - 1)];
        };
        if (row + 1 >= m_rows.size()) {
            return;
        }
        const Box box{m_columns[column], end(m_columns, column, cell.columns), m_rows[row],
                      end(m_rows, row, cell.rows)};
        if (cell.filled && cell.fillColor) {
            drawing::Entity pen = NotePen(*cell.fillColor);
            m_picture.AddPolygon(
                {At(box.left, box.bottom), At(box.right, box.bottom), At(box.right, box.top), At(box.left, box.top)},
                pen, true);
        }
        m_picture.AddPolygon(
            {At(box.left, box.bottom), At(box.right, box.bottom), At(box.right, box.top), At(box.left, box.top)},
            NotePen());
        if (cell.isBlock) {
            AddBlock(cell, box);
        } else if (!cell.text.empty()) {
            AddText(cell, box, row);
        }
    }

    /// Columns and rows of the alignment: 0 left or top to 2.
    [[nodiscard]] static int Alignment(const TableData::Cell& cell, std::size_t row)
    {
        constexpr int kTopCenter = 2, kMiddleCenter = 5;
        const bool given = cell.alignment >= 1 && cell.alignment <= 9;
        return given ? cell.alignment : row == 0 ? kMiddleCenter : kTopCenter;
    }
    [[nodiscard]] Vec2 Place(int alignment, const Box& box) const
    {
        const int across = (alignment - 1) % 3, down = (alignment - 1) / 3;
        const double x = box.left + kCellMargin + (box.right - box.left - 2 * kCellMargin) * across / 2;
        const double y = box.top + kCellMargin + (box.bottom - box.top - 2 * kCellMargin) * down / 2;
        return At(x, y);
    }

    void AddText(const TableData::Cell& cell, const Box& box, std::size_t row)
    {
        drawing::MTextData text;
        static_cast<drawing::Entity&>(text) = NotePen(cell.textColor.value_or(drawing::kByBlock));
        text.text = cell.text;
        text.style = cell.style.value_or(0);
        text.height = cell.textHeight > 0 ? cell.textHeight : row == 0 ? kTitleHeight : kTextHeight;
        text.attachment = Alignment(cell, row);
        text.rotation = AngleOf(m_right) + cell.rotation;
        text.width = cell.rotation == 0 ? std::max(0.0, box.right - box.left - 2 * kCellMargin) : 0;
        m_picture.AddText(std::move(text), Place(Alignment(cell, row), box));
    }

    void AddBlock(const TableData::Cell& cell, const Box& box)
    {
        NotePicture::Copy copy;
        copy.insert.block = cell.block;
        const Vec2 at = Place(Alignment(cell, 1), box);
        copy.insert.insertion = {at.x, at.y, m_picture.elevation};
        copy.insert.extrusion = m_picture.extrusion;
        copy.insert.scale = {cell.blockScale, cell.blockScale, cell.blockScale};
        copy.insert.rotation = AngleOf(m_right) + cell.rotation;
        copy.attributes = cell.attributes;
        m_picture.copies.push_back(std::move(copy));
    }

    const TableData& m_table;
    NotePicture& m_picture;
    Vec2 m_at, m_right, m_down;
    std::vector<double> m_columns, m_rows;
};

} // namespace

void Build(const drawing::TableData& table, const NoteTools& tools, NotePicture& picture)
{
    picture.SetPlane(table.extrusion, table.insertion);
    if (table.block != drawing::kNoBlock && !tools.drawing.EntitiesOf(table.block).empty()) {
        NotePicture::Copy copy;
        copy.insert.block = table.block;
        const Vec2 at = picture.ToPlane(table.insertion);
        copy.insert.insertion = {at.x, at.y, picture.elevation};
        copy.insert.extrusion = table.extrusion;
        copy.insert.rotation = AngleOf(picture.ToPlane(table.direction));
        copy.insert.color = drawing::kByBlock;
        copy.insert.linetype = 1;
        copy.insert.lineweight = drawing::kLineweightByBlock;
        picture.copies.push_back(std::move(copy));
    } else if (!table.columnWidths.empty() && !table.rowHeights.empty()) {
        Builder(table, picture).Run();
    }
}

} // namespace sm::render
