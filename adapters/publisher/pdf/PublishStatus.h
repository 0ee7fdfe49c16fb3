// SPDX-License-Identifier: GPL-3.0-or-later
// What the publishing library's operations return, and the failure that carries such a status upwards.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace sm::publisher {

/// Below 0 the operation failed, except `ViewerMissing`: the PDF is saved. `LastErrorText` names cause and page.
enum class PublishStatus : std::int32_t {
    Done = 0,
    Internal = -1,            ///< a fault of our own or of a PDF library
    PostScriptError = -2,     ///< a page's PostScript failed, or gave no page or several
    DiskFull = -3,            ///< no room, or a quota or file size limit was met
    JobOptionsUnusable = -4,  ///< job options file missing, unreadable or refused
    TargetNotWritable = -5,   ///< the PDF's folder or file can't be written
    TimeLimit = -6,           ///< the interpreter went on past its deadline
    InterpreterMissing = -7,  ///< Ghostscript isn't installed
    InterpreterKilled = -8,   ///< the interpreter was ended by a signal or by its memory limit
    NoPage = -9,              ///< a save or a mark without a page
    TargetIsInput = -10,      ///< the PDF would overwrite one of its own inputs
    PostScriptMissing = -11,  ///< a page's file isn't there or can't be read
    ViewerMissing = -12,      ///< saved, but there is no program to show it
    NotPostScript = -13,      ///< a page's file doesn't begin with "%!"
    PageSizeUnusable = -14,   ///< width, height or resolution out of range
    WorkFolderUnusable = -15, ///< the private temporary folder can't be made or written
    ArchiveRefused = -16,     ///< the document holds what the standard asked for forbids
};

/// Thrown inside the publishing library only; its public operations turn it into a status and an error text.
class PublishFailure : public std::runtime_error {
public:
    PublishFailure(PublishStatus status, const std::string& text) : std::runtime_error(text), m_status(status) {}
    [[nodiscard]] PublishStatus Status() const { return m_status; }

private:
    PublishStatus m_status;
};

} // namespace sm::publisher
