// SPDX-License-Identifier: GPL-3.0-or-later
// The records of a drawing that isn't written itself (a DWG, a DXF that can hold none), in a file of their own beside
// it.
#pragma once

#include "drawing/RecordsPlace.h"
#include "tags/FileBytes.h"
#include "write/RecordPatch.h"

#include <string>
#include <vector>

namespace sm::drawing {

class RecordsFile {
public:
    /// Reads `drawing` + ".sheetmaker" when there is one. Throws DrawingError for one that can't be read or understood.
    explicit RecordsFile(const std::string& drawing);

    /// The record, the 1001 item first; an empty one was removed. Null when the file says nothing of it.
    [[nodiscard]] const std::vector<XDataItem>* Find(const std::string& application) const;
    /// Puts `changes` over the records and writes the file, atomically; with `keepBackup` the former one stays beside
    /// it (".bak"). Throws DrawingError and leaves the file as it was.
    void Save(const RecordChanges& changes, bool keepBackup);

private:
    std::string m_drawing, m_path;
    RecordChanges m_records;
    FileStamp m_stamp; ///< all zero: no file
};

} // namespace sm::drawing
