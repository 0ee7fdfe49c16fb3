// SPDX-License-Identifier: GPL-3.0-or-later
// The embedded publishing library: PostScript files and marks become one PDF; the conversion log is a text file.
#pragma once

#include "ports/IDesktop.h"
#include "ports/IPubDoc.h"
#include "publisher/Navigation.h"
#include "publisher/PdfForm.h"
#include "publisher/StampTexts.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace sm::publisher {

/// A file that a PDF holds.
struct EmbeddedFile {
    std::string name; ///< in the PDF
    std::string path;
    std::uint64_t bytes = 0;
    friend bool operator==(const EmbeddedFile&, const EmbeddedFile&) = default;
};

/// What one successful `SaveToPdf` did.
struct SaveReport {
    std::string pdfPath;
    std::size_t pages = 0;
    std::size_t interpreterRuns = 0;
    std::size_t marksDrawn = 0;
    std::size_t marksNotDrawn = 0;      ///< attachments whose file could no longer be read
    std::vector<EmbeddedFile> embedded; ///< in the order of the marks, each path once
    std::vector<std::string>
        attachmentsLost;               ///< paths of files that should have been embedded; each was told by a note
    std::vector<std::string> marksOff; ///< stamps, icons and fields that lie off their pages; each was told by a note
    std::uintmax_t pdfBytes = 0;
    std::chrono::microseconds makingPages{0}; ///< wall time in the PostScript interpreter
    std::chrono::microseconds assembling{0};  ///< wall time of structure, compression and writing
};

/// Callbacks; empty ones are skipped. They run on the caller's thread and must not throw.
struct PublishObserver {
    /// One line in plain words about something that was carried past or done otherwise than asked.
    std::function<void(const std::string& line)> note;
    std::function<void(const SaveReport& report)> saved;
};

struct PublisherOptions {
    /// Folder of the conversion log; made when missing (mode 0700).
    std::string logFolder;
    /// Takes the place of the log's file name when not empty, so that worker processes write files of their own.
    std::string logFileName;
    /// Receives the log's whole text when no program can show it; empty: nothing is printed.
    std::function<void(const std::string& text)> printLog;
    /// Where documents make their private temporary folders; empty: $TMPDIR or the system's.
    std::string workFolder;
    /// Name looked up on $PATH, or a path.
    std::string interpreter = "gs";
    /// Somebody waits for the pages: one that needs the interpreter is refused when it is added where there is none,
    /// and the document tells the remedy.
    bool refusesEarly = false;
    /// A run of the interpreter may take `deadline` and, for each megabyte of PostScript, `deadlinePerMegabyte` more.
    std::chrono::milliseconds deadline{60000};
    std::chrono::milliseconds deadlinePerMegabyte{4000};
    /// The PDF's Producer entry.
    std::string producer = "Sheetmaker PDF";
    /// The documents' title in place of the one that they are given, when not empty.
    std::string title;
    NavigationWanted navigation;
    PdfForm form;
    /// What the file at a path is to the run ("the underlay \"plan.pdf\""), when saving must not replace it; empty
    /// text: nothing. May be empty.
    std::function<std::string(const std::string& path)> useOf;
    /// Why a file of `bytes` bytes is not to be attached, as the end of a sentence; empty text: it may be. May be
    /// empty.
    std::function<std::string(const std::string& path, std::uint64_t bytes)> refuseAttachment;
    /// Makes who sets, for one document, the stamps that the standard fonts can't show; empty: stand-ins show them.
    std::function<std::unique_ptr<IStampTexts>()> stampTexts;
    PublishObserver observer;
};

/// `desktop` shows files and asks for names; it must outlive the library and all its objects.
/// Nothing is started or opened before the first page or log line asks for it.
std::unique_ptr<IPublishingLibrary> CreatePublisher(const PublisherOptions& options, IDesktop& desktop);

} // namespace sm::publisher
