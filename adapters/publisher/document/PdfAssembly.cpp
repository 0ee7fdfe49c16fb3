// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/PdfAssembly.h"

#include "archive/ArchiveMarks.h"
#include "dialect/PdfLayers.h"
#include "document/ContentsPages.h"
#include "document/MarkWriter.h"
#include "pdf/PdfNumbers.h"
#include "pdf/PdfOutput.h"
#include "pdf/PublishStatus.h"
#include "pdf/Qpdf.h"
#include "pdf/StreamCompression.h"
#include "pdf/TargetFile.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <memory>

namespace sm::publisher {

namespace {

constexpr double kLargestSide = 14400; // PDF 1.7, annex C

std::shared_ptr<QPDF> OpenSource(const MadePages& made, std::size_t pageCount)
{
    if (made.document) {
        return made.document;
    }
    auto pdf = std::make_shared<QPDF>();
    pdf->setSuppressWarnings(true);
    pdf->processFile(made.path.c_str());
    if (pdf->numWarnings() > 0 || pdf->getAllPages().size() != pageCount) {
        throw PublishFailure(PublishStatus::Internal, "The PDF pages that were made can't be read.");
    }
    return pdf;
}

void SetPageSize(QPDF& pdf, QPDFObjectHandle page, double width, double height)
{
    const double unit = UserUnitFor(width, height);
    const auto zero = QPDFObjectHandle::newInteger(0);
    page.replaceKey("/MediaBox",
                    QPDFObjectHandle::newArray({zero, zero, QPDFObjectHandle::newReal(NumberText(width / unit)),
                                                QPDFObjectHandle::newReal(NumberText(height / unit))}));
    for (const char* key : {"/CropBox", "/BleedBox", "/TrimBox", "/ArtBox", "/Rotate", "/UserUnit"}) {
        page.removeKey(key);
    }
    if (unit > 1) {
        page.replaceKey("/UserUnit", QPDFObjectHandle::newReal(NumberText(unit)));
        const std::string scale = NumberText(1 / unit);
        page.addPageContents(pdf.newStream(fmt::format("q {} 0 0 {} 0 0 cm\n", scale, scale)), true);
        page.addPageContents(pdf.newStream("\nQ\n"), false);
    }
}

/// The document that holds the pages in their order: the only source itself, or a new one.
class Collection {
public:
    Collection(const std::vector<MadePages>& sources, const std::vector<PagePlace>& pages)
    {
        for (std::size_t i = 0; i < sources.size(); ++i) {
            const auto count = std::ranges::count(pages, i, &PagePlace::source);
            m_sources.push_back(OpenSource(sources[i], static_cast<std::size_t>(count)));
        }
        if (sources.size() != 1) {
            m_new.emptyPDF();
            QPDFPageDocumentHelper document(m_new);
            for (const PagePlace& place : pages) {
                document.addPage(QPDFPageObjectHelper(m_sources[place.source]->getAllPages().at(place.index)), false);
            }
        }
    }
    QPDF& Document() { return m_sources.size() == 1 ? *m_sources.front() : m_new; }

private:
    std::vector<std::shared_ptr<QPDF>> m_sources;
    QPDF m_new;
};

void SetInformation(QPDF& pdf, const DocumentInfo& info)
{
    auto dictionary = QPDFObjectHandle::newDictionary();
    for (const auto& [key, value] : info.Entries()) {
        std::string name = "/";
        for (const char c : key) {
            name += c == '#' ? std::string("#23") : std::string(1, c); // qpdf escapes all but this itself
        }
        dictionary.replaceKey(name, QPDFObjectHandle::newUnicodeString(value));
    }
    pdf.getTrailer().replaceKey("/Info", pdf.makeIndirectObject(dictionary));
}

/// Stays uncompressed, so that those who know no PDF find it.
void SetMetadata(QPDF& pdf, const DocumentInfo& info, Archive archive)
{
    auto metadata = pdf.newStream(info.Xmp(archive));
    metadata.getDict().replaceKey("/Type", QPDFObjectHandle::newName("/Metadata"));
    metadata.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName("/XML"));
    pdf.getRoot().replaceKey("/Metadata", metadata);
}

std::vector<SheetPage> SizedSheets(QPDF& pdf, const std::vector<PagePlace>& pages)
{
    const auto& all = pdf.getAllPages();
    std::vector<SheetPage> sheets;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const PagePlace& place = pages[i];
        SetPageSize(pdf, all.at(i), place.width, place.height);
        sheets.push_back({all.at(i), place.title, UserUnitFor(place.width, place.height), i + 1, place.marks});
    }
    return sheets;
}

/// What is appended behind the document can't be encrypted or checked.
MarkForm MarkFormFor(const PdfForm& form)
{
    const bool archive = form.archive != Archive::None;
    return {archive || form.encryption ? Held::All : Held::Small, archive ? StampFonts::Embedded : StampFonts::Standard,
            form.reproducible ? Dated::No : Dated::Yes};
}

void SetLanguage(QPDF& pdf, const std::string& language)
{
    if (!language.empty()) {
        pdf.getRoot().replaceKey("/Lang", QPDFObjectHandle::newString(language));
    }
}

} // namespace

double UserUnitFor(double width, double height)
{
    const double side = std::max(width, height);
    return side <= kLargestSide ? 1 : std::ceil(side / kLargestSide * 100) / 100;
}

MarkTally AssemblePdf(const Assembly& assembly, TargetFile& target)
{
    try {
        Collection collection(assembly.sources, assembly.pages);
        QPDF& pdf = collection.Document();
        pdf.getRoot().removeKey("/Metadata");
        std::vector<SheetPage> sheets = SizedSheets(pdf, assembly.pages);
        const ContentsPages contents(sheets, assembly.navigation);
        contents.AddTo(pdf, sheets);
        DocumentInfo info = assembly.info;
        MarkTally tally = WriteMarks(pdf, sheets, assembly.stampTexts, info, MarkFormFor(assembly.form), assembly.note);
        WriteNavigation(pdf, sheets, contents.Navigation(), info.Value("Title").has_value());
        SetLanguage(pdf, assembly.form.language);
        WriteLayers(pdf, assembly.form.archive);
        SetInformation(pdf, info);
        if (assembly.form.archive != Archive::None) {
            AddArchiveMarks(pdf, assembly.form.archive);
            RequireArchivable(pdf, assembly.form.archive);
        }
        CompressStreams(pdf);
        SetMetadata(pdf, info, assembly.form.archive);
        WritePdf(pdf, tally.large, assembly.form, assembly.note, target);
        tally.large.clear(); // their document goes away
        tally.contentsPages = contents.Count();
        return tally;
    } catch (const PublishFailure&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw PublishFailure(PublishStatus::Internal, "There is not enough memory to put the PDF together.");
    } catch (const std::exception& error) {
        throw PublishFailure(PublishStatus::Internal,
                             fmt::format("The PDF could not be put together: {}.", error.what()));
    }
}

} // namespace sm::publisher
