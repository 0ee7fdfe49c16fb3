// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are embedded in a PDF, each once. Large ones never stand in memory: while the document is put together an
// empty stream stands for them, and their bytes go into the saved file block by block.
#pragma once

#include "base/files/FileFacts.h"
#include "pdf/Qpdf.h"
#include "pdf/TargetFile.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace sm::publisher {

/// Whether the PDF says when a file was last changed: the same file on another disk may have another date.
enum class Dated { No, Yes };

/// A file whose stream is still empty.
struct LargeFile {
    std::string path;
    base::FileStamp stamp;
    QPDFObjectHandle stream;
    Dated dated = Dated::No;
};

/// Which files stand in memory: small ones, or all, where nothing can be appended to what was written.
enum class Held { Small, All };

class EmbeddedFiles {
public:
    EmbeddedFiles(QPDF& pdf, Held held, Dated dated);

    struct Embedded {
        QPDFObjectHandle specification;
        std::uint64_t bytes = 0;
    };
    /// Nothing when the file can't be read. A file that has several names stands in the PDF once.
    std::optional<Embedded> Embed(const std::string& path);
    [[nodiscard]] const std::vector<LargeFile>& Large() const { return m_large; }
    /// After the last one: names them in the document, so that readers list them beside the pages.
    void List();

private:
    std::optional<QPDFObjectHandle> Stream(const std::string& path, const base::FileStamp& stamp);

    QPDF& m_pdf;
    Dated m_dated;
    std::map<std::string, Embedded> m_byPath;
    std::map<std::tuple<std::uint64_t, std::uint64_t>, QPDFObjectHandle> m_byFile; ///< device and inode
    std::vector<LargeFile> m_large;
    std::uint64_t m_most;     ///< bytes that may be in memory
    std::uint64_t m_held = 0; ///< that are
};

/// Before `pdf` is written: readies it for `AppendFiles`. A reproducible document's identifier comes from the files.
void ExpectFiles(QPDF& pdf, const std::vector<LargeFile>& files, bool reproducible);
/// After `writer` wrote `pdf` to `target`: appends what the files hold, each read once. Throws PublishFailure when one
/// has changed since it was embedded.
void AppendFiles(QPDF& pdf, QPDFWriter& writer, const std::vector<LargeFile>& files, TargetFile& target);

} // namespace sm::publisher
