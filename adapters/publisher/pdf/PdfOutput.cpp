// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/PdfOutput.h"

#include "pdf/FilePipeline.h"
#include "pdf/PdfNumbers.h"

#include <algorithm>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

constexpr double kObjectStreams = 1.5; ///< the first version that has them

/// The version to be written; told when it isn't the one that was asked for.
double LevelFor(QPDF& pdf, const std::vector<LargeFile>& files, const PdfForm& form, const NoteOutput& note)
{
    const double needed = form.encryption ? 1.7 : files.empty() ? LevelNeeded(pdf) : std::max(LevelNeeded(pdf), 1.5);
    if (form.level >= needed) {
        return form.level;
    }
    note(fmt::format("the PDF is of version {} rather than {} (/CompatibilityLevel): what it holds needs that",
                     NumberText(needed), NumberText(form.level)));
    return needed;
}

/// All may be done with the document by whoever can open it but changing its security.
void Encrypt(QPDFWriter& writer, const Encryption& passwords)
{
    writer.setR6EncryptionParameters(passwords.userPassword.c_str(), passwords.ownerPassword.c_str(), true, true, true,
                                     true, true, true, qpdf_r3p_full, true);
}

void Shape(QPDFWriter& writer, const std::vector<LargeFile>& files, const PdfForm& form, const NoteOutput& note)
{
    if (form.encryption) {
        Encrypt(writer, *form.encryption);
    } else if (form.reproducible) {
        writer.setDeterministicID(true);
    }
    if (form.linearized && files.empty()) {
        writer.setLinearization(true);
    } else if (form.linearized) {
        note("the PDF is not linearised (/Optimize), since it holds large attached files");
    }
}

} // namespace

double LevelNeeded(QPDF& pdf)
{
    const auto pages = pdf.getAllPages();
    if (std::ranges::any_of(pages, [](QPDFObjectHandle page) { return page.hasKey("/UserUnit"); })) {
        return 1.6;
    }
    return pdf.getRoot().hasKey("/OCProperties") ? 1.5 : 1.4;
}

void WritePdf(QPDF& pdf, const std::vector<LargeFile>& files, const PdfForm& form, const NoteOutput& note,
              TargetFile& target)
{
    const double level = LevelFor(pdf, files, form, note);
    ExpectFiles(pdf, files, form.reproducible);
    FilePipeline pipeline(target);
    QPDFWriter writer(pdf);
    writer.setOutputPipeline(&pipeline);
    writer.setObjectStreamMode(level < kObjectStreams ? qpdf_o_disable : qpdf_o_generate);
    writer.setDecodeLevel(qpdf_dl_none);
    writer.setCompressStreams(true); // object streams; all others are compressed by now
    writer.setMinimumPDFVersion(fmt::format("{:.1f}", level));
    Shape(writer, files, form, note);
    writer.write();
    AppendFiles(pdf, writer, files, target);
}

} // namespace sm::publisher
