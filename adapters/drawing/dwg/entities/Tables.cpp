// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"
#include "dwg/entities/InsertFields.h"
#include "dwg/entities/TableCells.h"

namespace sm::drawing::dwg {

void DecodeTable(Object& object)
{
    const InsertFields insert = ReadInsert(object, false);
    TagSink& sink = object.sink;
    object.WriteName(2, insert.block);
    sink.Point(10, insert.insertion);
    sink.HandleTag(343, insert.block);
    object.WriteExtrusion(insert.extrusion);
    const Fields before = object;
    const TableGrid grid = object.Since(Release::R2010) ? ReadTableContent(object) : ReadTableCells(object);
    if (!object.Lost())
        WriteTableGrid(object, grid);
    else if (!object.names.Of(insert.block).empty()) // its picture is there, and that is what is drawn
        static_cast<Fields&>(object) = before;
}

} // namespace sm::drawing::dwg
