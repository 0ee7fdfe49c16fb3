// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/EmbeddedFiles.h"

#include "base/files/File.h"
#include "base/files/Paths.h"
#include "pdf/Deflater.h"
#include "pdf/FilePipeline.h"
#include "pdf/PdfUpdate.h"
#include "pdf/PublishStatus.h"

#include <chrono>
#include <filesystem>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <limits>
#include <qpdf/Pl_Flate.hh>
#include <qpdf/QPDFEFStreamObjectHelper.hh>
#include <qpdf/QPDFEmbeddedFileDocumentHelper.hh>
#include <qpdf/QPDFFileSpecObjectHelper.hh>
#include <qpdf/QUtil.hh>

namespace sm::publisher {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kHeldAtMost = std::uint64_t{8} << 20; // of a document's small files together
constexpr std::size_t kBlock = std::size_t{1} << 18;

PublishFailure ChangedFile(const std::string& path)
{
    return PublishFailure(PublishStatus::Internal,
                          fmt::format("The attached file {} changed while it was read. Save again when nobody writes "
                                      "to it.",
                                      path));
}

/// When a file was last changed, as a PDF writes dates (PDF 1.7, 7.9.4), UTC.
std::string DateText(const base::FileStamp& stamp)
{
    const std::chrono::sys_seconds time{std::chrono::seconds(stamp.seconds)};
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date{day};
    const std::chrono::hh_mm_ss clock{time - day};
    return fmt::format("D:{:04}{:02}{:02}{:02}{:02}{:02}Z", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), clock.hours().count(),
                       clock.minutes().count(), clock.seconds().count());
}

/// Reads a large file, once and in blocks, into the PDF.
class Appender {
public:
    Appender(const LargeFile& file, PdfUpdate& update, TargetFile& target)
        : m_large(file), m_update(update), m_raw(target)
    {
        std::error_code error;
        m_file = base::File::Open(file.path, error);
        if (!m_file.IsOpen() || m_file.Facts().stamp != file.stamp) {
            throw ChangedFile(file.path);
        }
        m_blockSize = m_file.Read(m_block.data(), m_block.size());
    }

    /// The file's checksum.
    std::string Run()
    {
        const int length = m_update.NewNumber(), parameters = m_update.NewNumber();
        const bool packs = IsWorthPacking();
        m_update.Begin(m_update.NumberOf(m_large.stream));
        m_update.Write(fmt::format("<< /Type /EmbeddedFile /Length {} 0 R /Params {} 0 R {}>>\nstream\n", length,
                                   parameters, packs ? "/Filter /FlateDecode " : ""));
        const std::uint64_t begin = m_update.Position();
        std::string checksum = packs ? Packed() : Copied(m_raw);
        const std::uint64_t end = m_update.Position();
        m_update.Write("\nendstream\nendobj\n");
        m_update.Begin(length);
        m_update.Write(fmt::format("{}\nendobj\n", end - begin));
        m_update.Begin(parameters);
        const std::string date = m_large.dated == Dated::Yes ? "/ModDate (" + DateText(m_large.stamp) + ") " : "";
        m_update.Write(
            fmt::format("<< /Size {} {}/CheckSum <{}> >>\nendobj\n", m_read, date, QUtil::hex_encode(checksum)));
        return checksum;
    }

private:
    /// Judged by the first block: archives and pictures are packed already.
    [[nodiscard]] bool IsWorthPacking() const
    {
        return Deflater().Pack({m_block.data(), m_blockSize})->getSize() < m_blockSize / 16 * 15;
    }

    std::string Packed()
    {
        Pl_Flate packer("attached file", &m_raw, Pl_Flate::a_deflate);
        return Copied(packer);
    }

    /// The PDF library takes the checksum of what a new file's stream is given: a document that is thrown away serves.
    std::string Copied(Pipeline& to)
    {
        QPDF scratch;
        scratch.emptyPDF();
        auto stream = QPDFEFStreamObjectHelper::createEFStream(scratch, [&](Pipeline* digest) { Copy(to, *digest); });
        return stream.getChecksum();
    }

    void Copy(Pipeline& to, Pipeline& digest)
    {
        while (m_blockSize > 0) {
            const auto* bytes = reinterpret_cast<const unsigned char*>(m_block.data());
            to.write(bytes, m_blockSize);
            digest.write(bytes, m_blockSize);
            m_read += m_blockSize;
            if (m_read > m_large.stamp.size) {
                throw ChangedFile(m_large.path);
            }
            m_blockSize = m_file.Read(m_block.data(), m_block.size());
        }
        if (m_file.Facts().stamp != m_large.stamp || m_read != m_large.stamp.size) {
            throw ChangedFile(m_large.path);
        }
        to.finish();
        digest.finish();
    }

    const LargeFile& m_large;
    PdfUpdate& m_update;
    FilePipeline m_raw;
    base::File m_file;
    std::string m_block = std::string(kBlock, '\0');
    std::size_t m_blockSize = 0;
    std::uint64_t m_read = 0;
};

} // namespace

EmbeddedFiles::EmbeddedFiles(QPDF& pdf, Held held, Dated dated)
    : m_pdf(pdf), m_dated(dated), m_most(held == Held::All ? std::numeric_limits<std::uint64_t>::max() : kHeldAtMost)
{
}

void EmbeddedFiles::List()
{
    if (m_byPath.empty()) {
        return;
    }
    QPDFEmbeddedFileDocumentHelper list(m_pdf);
    for (const auto& [path, embedded] : m_byPath) {
        const fs::path name = base::ToPath(path).filename();
        std::string key = base::ToText(name);
        for (int i = 2; list.getEmbeddedFile(key); ++i) {
            key = fmt::format("{} ({}){}", base::ToText(name.stem()), i, base::ToText(name.extension()));
        }
        list.replaceEmbeddedFile(key, QPDFFileSpecObjectHelper(embedded.specification));
    }
}

std::optional<QPDFObjectHandle> EmbeddedFiles::Stream(const std::string& path, const base::FileStamp& stamp)
{
    if (stamp.size <= m_most - m_held) {
        const auto bytes = base::ReadRegularFile(path, m_most - m_held);
        if (!bytes) {
            return std::nullopt;
        }
        m_held += bytes->size();
        auto stream = QPDFEFStreamObjectHelper::createEFStream(m_pdf, *bytes);
        if (m_dated == Dated::Yes) {
            stream.setModDate(DateText(stamp));
        }
        return stream.getObjectHandle();
    }
    std::error_code error;
    if (!base::MayRead(path, error)) {
        return std::nullopt;
    }
    m_large.push_back(
        {path, stamp, QPDFEFStreamObjectHelper::createEFStream(m_pdf, std::string()).getObjectHandle(), m_dated});
    return m_large.back().stream;
}

std::optional<EmbeddedFiles::Embedded> EmbeddedFiles::Embed(const std::string& path)
{
    const auto known = m_byPath.find(path);
    if (known != m_byPath.end()) {
        return known->second;
    }
    std::error_code error;
    const base::FileFacts facts = base::FactsOf(path, error);
    if (facts.kind != base::FileKind::File) {
        return std::nullopt;
    }
    const std::tuple file(facts.stamp.device, facts.stamp.inode);
    const auto same = m_byFile.find(file);
    const auto stream = same != m_byFile.end() && facts.stamp.inode != 0 ? same->second : Stream(path, facts.stamp);
    if (!stream) {
        return std::nullopt;
    }
    m_byFile.emplace(file, *stream);
    const std::string name = base::ToText(base::ToPath(path).filename());
    const auto specification =
        QPDFFileSpecObjectHelper::createFileSpec(m_pdf, name, QPDFEFStreamObjectHelper(*stream)).getObjectHandle();
    return m_byPath.emplace(path, Embedded{specification, facts.stamp.size}).first->second;
}

void ExpectFiles(QPDF& pdf, const std::vector<LargeFile>& files, bool reproducible)
{
    if (!files.empty()) {
        KnownId(pdf, reproducible);
    }
}

void AppendFiles(QPDF& pdf, QPDFWriter& writer, const std::vector<LargeFile>& files, TargetFile& target)
{
    if (files.empty()) {
        return;
    }
    PdfUpdate update(pdf, writer, target);
    FileId id = KnownId(pdf, false);
    for (const LargeFile& file : files) {
        const std::string checksum = Appender(file, update, target).Run();
        for (std::size_t i = 0; i < id.size() && i < checksum.size(); ++i) {
            id[i] ^= static_cast<unsigned char>(checksum[i]);
        }
    }
    update.Finish(id);
}

} // namespace sm::publisher
