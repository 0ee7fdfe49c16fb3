// SPDX-License-Identifier: GPL-3.0-or-later
// The conversion log of a set of sheets: each sheet opens a log of its own, and one text is made of them.
#pragma once

#include "machine/LogFiles.h"

#include <filesystem>
#include <string>

namespace sm::app {

class SetLog {
public:
    /// `stateFolder` holds the user's log; `file`, unless it is empty, is written in its place. The sheets' logs lie
    /// beside it while they are made.
    SetLog(std::filesystem::path stateFolder, const std::string& file);
    /// Removes what is left of a sheet's log.
    ~SetLog();
    SetLog(const SetLog&) = delete;
    SetLog& operator=(const SetLog&) = delete;

    /// The file name that the sheets' logs are to have, and their folder.
    [[nodiscard]] const std::string& SheetLogName() const { return m_sheetLog; }
    [[nodiscard]] std::string Folder() const { return m_files.Folder(); }
    /// Why no log can be kept, as a sentence without its end; empty when it can.
    [[nodiscard]] std::string Trouble() const { return m_files.Trouble(); }
    /// Adds what the sheet's log holds, and removes that.
    void TakeSheetLog();
    void Add(const std::string& line) { m_text += line + "\n"; }
    /// Puts what was taken into the log's place. False when it can't be.
    bool Finish() const;

private:
    [[nodiscard]] std::filesystem::path InFolder(const std::string& name) const;

    LogFiles m_files;
    std::string m_sheetLog, m_part, m_text;
};

} // namespace sm::app
