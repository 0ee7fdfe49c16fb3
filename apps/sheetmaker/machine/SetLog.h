// The conversion log of a set of sheets: each sheet opens a log of its own, and one text is made of them.
#pragma once

#include "base/files/Paths.h"

#include <filesystem>
#include <string>

namespace sm::app {

class SetLog {
public:
    /// `folder` holds the user's log and, while a sheet is made, the sheet's.
    explicit SetLog(std::filesystem::path folder);
    /// Removes what is left of a sheet's log, also that of a worker process that was ended.
    ~SetLog();
    SetLog(const SetLog&) = delete;
    SetLog& operator=(const SetLog&) = delete;

    /// The file name that the sheets' logs are to have.
    [[nodiscard]] const std::string& SheetLogName() const { return m_sheetLog; }
    /// Adds what the sheet's log holds, and removes that.
    void TakeSheetLog();
    void Add(const std::string& line) { m_text += line + "\n"; }
    /// Puts what was taken into the place of the user's log.
    void Finish() const;

private:
    [[nodiscard]] std::filesystem::path Part() const { return m_folder / base::ToPath(m_part); }

    std::filesystem::path m_folder;
    std::string m_sheetLog, m_part, m_text;
};

} // namespace sm::app
