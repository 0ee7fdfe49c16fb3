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

/// A file whose stream is still empty.
struct LargeFile {
    std::string path;
    base::FileStamp stamp;
    QPDFObjectHandle stream;
};

class EmbeddedFiles {
public:
    explicit EmbeddedFiles(QPDF& pdf) : m_pdf(pdf) {}

    struct Embedded {
        QPDFObjectHandle specification;
        std::uint64_t bytes = 0;
    };
    /// Nothing when the file can't be read. A file that has several names stands in the PDF once.
    std::optional<Embedded> Embed(const std::string& path);
    [[nodiscard]] const std::vector<LargeFile>& Large() const { return m_large; }

private:
    std::optional<QPDFObjectHandle> Stream(const std::string& path, const base::FileStamp& stamp);

    QPDF& m_pdf;
    std::map<std::string, Embedded> m_byPath;
    std::map<std::tuple<std::uint64_t, std::uint64_t>, QPDFObjectHandle> m_byFile; ///< device and inode
    std::vector<LargeFile> m_large;
    std::uint64_t m_held = 0; ///< bytes that are in memory
};

/// Before `pdf` is written: readies it for `AppendFiles`.
void ExpectFiles(QPDF& pdf, const std::vector<LargeFile>& files);
/// After `writer` wrote `pdf` to `target`: appends what the files hold, each read once. Throws PublishFailure when one
/// has changed since it was embedded.
void AppendFiles(QPDF& pdf, QPDFWriter& writer, const std::vector<LargeFile>& files, TargetFile& target);

} // namespace sm::publisher
