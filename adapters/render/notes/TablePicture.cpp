// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/entities/TableEntities.h"
#include "drawing/entities/Texts.h"
#include "notes/NotePicture.h"

#include <array>

namespace sm::render {

namespace {

using drawing::TableData;

class TableBuilder {
public:
    TableBuilder(const TableData& table, NotePicture& picture) : m_table(table), m_picture(picture)
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
        for (const bool own : {false, true}) { // edges with a way of their own lie over the others
            ForEachCell([&](const TableData::Cell& cell, const Box& box, const TableData::Kind& kind) {
                if (!own) {
                    AddFill(cell, box, kind);
                }
                AddBorders(cell, box, own);
            });
        }
        ForEachCell([&](const TableData::Cell& cell, const Box& box, const TableData::Kind& kind) {
            if (cell.isBlock) {
                AddBlock(cell, box, kind);
            } else if (!cell.text.empty()) {
                AddText(cell, box, kind);
            }
        });
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

    template <class Take> void ForEachCell(Take take) const
    {
        const std::size_t columns = m_table.columnWidths.size();
        const auto end = [](const std::vector<double>& edges, std::size_t first, std::int32_t count) {
            return edges[std::min(first + static_cast<std::size_t>(count), edges.size() - 1)];
        };
        for (std::size_t i = 0; i < m_table.cells.size(); ++i) {
            const TableData::Cell& cell = m_table.cells[i];
            const std::size_t row = i / columns, column = i % columns;
            if (!cell.hidden && row + 1 < m_rows.size()) {
                take(cell,
                     Box{m_columns[column], end(m_columns, column, cell.columns), m_rows[row],
                         end(m_rows, row, cell.rows)},
                     m_table.KindOfRow(row));
            }
        }
    }

    void AddFill(const TableData::Cell& cell, const Box& box, const TableData::Kind& kind)
    {
        if (cell.filled.value_or(kind.filled)) {
            m_picture.AddPolygon(
                {At(box.left, box.bottom), At(box.right, box.bottom), At(box.right, box.top), At(box.left, box.top)},
                NotePen(cell.fillColor.value_or(kind.fillColor)), true);
        }
    }

    [[nodiscard]] const TableData::Cell& Covered(const TableData::Cell& cell, std::size_t step) const
    {
        const auto index = static_cast<std::size_t>(&cell - m_table.cells.data());
        return step < m_table.cells.size() - index ? m_table.cells[index + step] : cell;
    }

    void AddBorders(const TableData::Cell& cell, const Box& box, bool own)
    {
        const std::size_t across = static_cast<std::size_t>(cell.columns) - 1;
        const std::size_t down = (static_cast<std::size_t>(cell.rows) - 1) * m_table.columnWidths.size();
        const std::array<Vec2, 4> corners{At(box.left, box.top), At(box.right, box.top), At(box.right, box.bottom),
                                          At(box.left, box.bottom)};
        for (std::size_t side = 0; side < corners.size(); ++side) {
            // The far edges of a merged cell are kept with the last cells that it covers.
            const std::size_t step = side == TableData::Right ? across : side == TableData::Bottom ? down : 0;
            const TableData::Border& border = Covered(cell, step).borders[side];
            if (border.Own() == own && !border.hidden) {
                m_picture.AddLine(corners[side], corners[(side + 1) % corners.size()],
                                  NotePen(border.color.value_or(drawing::kByBlock),
                                          border.lineweight.value_or(drawing::kLineweightByBlock)));
            }
        }
    }

    [[nodiscard]] static int Alignment(const TableData::Cell& cell, const TableData::Kind& kind)
    {
        const auto valid = [](std::int32_t alignment) { return alignment >= 1 && alignment <= 9; };
        constexpr int kTopCenter = 2;
        return valid(cell.alignment) ? cell.alignment : valid(kind.alignment) ? kind.alignment : kTopCenter;
    }
    [[nodiscard]] Vec2 Place(int alignment, const Box& box) const
    {
        const int across = (alignment - 1) % 3, down = (alignment - 1) / 3;
        const double x = box.left + m_table.marginX + (box.right - box.left - 2 * m_table.marginX) * across / 2;
        const double y = box.top + m_table.marginY + (box.bottom - box.top - 2 * m_table.marginY) * down / 2;
        return At(x, y);
    }

    void AddText(const TableData::Cell& cell, const Box& box, const TableData::Kind& kind)
    {
        drawing::MTextData text;
        static_cast<drawing::Entity&>(text) = NotePen(cell.textColor.value_or(kind.textColor));
        text.text = cell.text;
        text.style = cell.style.value_or(kind.style);
        text.height = cell.textHeight > 0 ? cell.textHeight : kind.textHeight;
        text.attachment = Alignment(cell, kind);
        text.rotation = AngleOf(m_right) + cell.rotation;
        text.width = cell.rotation == 0 ? std::max(0.0, box.right - box.left - 2 * m_table.marginX) : 0;
        m_picture.AddText(std::move(text), Place(text.attachment, box));
    }

    /// The block's base point stands where a text would.
    void AddBlock(const TableData::Cell& cell, const Box& box, const TableData::Kind& kind)
    {
        NotePicture::Copy copy;
        copy.insert.block = cell.block;
        const Vec2 at = Place(Alignment(cell, kind), box);
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
        TableBuilder(table, picture).Run();
    }
}

} // namespace sm::render
