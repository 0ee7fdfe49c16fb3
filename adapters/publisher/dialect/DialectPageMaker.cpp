// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/DialectPageMaker.h"

#include "dialect/DialectFontObjects.h"
#include "dialect/PackedBody.h"
#include "dialect/PdfLayers.h"
#include "pages/PageFile.h"
#include "pdf/PdfNumbers.h"

#include <algorithm>

namespace sm::publisher {

namespace {

class DialectPageMaker final : public IPageMaker {
public:
    DialectPageMaker(std::unique_ptr<IPageMaker> others, NoteTaker note)
        : m_others(std::move(others)), m_note(std::move(note))
    {
    }

    void CheckPage(const PageSource& page, const std::string& jobOptions) override
    {
        std::error_code unreadable;
        const base::MappedFile file(page.psPath, base::MappedFile::Reading::InParts, unreadable);
        if (unreadable) { // too large for a process of 32 bits, for one
            FailReading(page.psPath, page.number, unreadable.message());
        }
        const auto ours = DialectRespects(jobOptions) ? ReadDialectPage(file.Bytes()) : std::nullopt;
        if (!ours || !JobOptionsKeepPictures(jobOptions, ours->pictures)) {
            m_others->CheckPage(page, jobOptions);
        }
    }

    MadePages MakePages(const std::vector<PageSource>& pages, const std::string& jobOptions,
                        const std::string& folder) override
    {
        auto pdf = std::make_shared<QPDF>();
        pdf->emptyPDF();
        DialectPictureObjects pictures(*pdf);
        FontObjects fonts(*pdf);
        Deflater deflater;
        bool ours = DialectRespects(jobOptions);
        for (std::size_t i = 0; i < pages.size() && ours; ++i) {
            ours = AddPage(*pdf, pages[i], jobOptions, pictures, fonts, deflater);
        }
        if (ours) {
            for (const std::string& remark : fonts.Finish()) {
                Tell(remark);
            }
            return {{}, std::move(pdf)};
        }
        for (const PageSource& page : pages) {
            TellLosses(page);
        }
        return m_others->MakePages(pages, jobOptions, folder);
    }

private:
    static bool AddPage(QPDF& pdf, const PageSource& source, const std::string& jobOptions,
                        DialectPictureObjects& pictures, FontObjects& shared, Deflater& deflater)
    {
        std::error_code unreadable;
        const base::MappedFile file(source.psPath, base::MappedFile::Reading::InParts, unreadable);
        if (unreadable) {
            FailReading(source.psPath, source.number, unreadable.message());
        }
        auto page = ReadDialectPage(file.Bytes());
        if (!page || !JobOptionsKeepPictures(jobOptions, page->pictures)) {
            return false;
        }
        auto fonts = QPDFObjectHandle::newDictionary();
        for (const DialectFont& font : page->fonts) {
            auto object = shared.Font(font);
            if (object.isNull()) {
                return false;
            }
            fonts.replaceKey("/" + font.name, object);
        }
        const auto packed = PackDialectBody(file, page->body, page->pictures.size(), deflater);
        const auto declared = [&](std::uint32_t layer) { return page->layers.contains(layer); };
        if (!packed || !std::all_of(packed->layers.begin(), packed->layers.end(), declared)) {
            return false;
        }
        auto dictionary = QPDFObjectHandle::parse("<</Type/Page/Resources<</ProcSet[/PDF/Text]>>>>");
        const auto zero = QPDFObjectHandle::newInteger(0);
        dictionary.replaceKey(
            "/MediaBox", QPDFObjectHandle::newArray({zero, zero, QPDFObjectHandle::newReal(NumberText(source.width)),
                                                     QPDFObjectHandle::newReal(NumberText(source.height))}));
        dictionary.getKey("/Resources").replaceKey("/Font", fonts);
        if (!page->pictures.empty()) {
            dictionary.getKey("/Resources").replaceKey("/XObject", pictures.Resources(page->pictures));
        }
        AddNamedResources(pdf, dictionary.getKey("/Resources"), page->layers, packed->opacities);
        dictionary.replaceKey("/Contents", Contents(pdf, packed->parts));
        QPDFPageDocumentHelper(pdf).addPage(QPDFPageObjectHelper(pdf.makeIndirectObject(dictionary)), false);
        return true;
    }

    static QPDFObjectHandle Contents(QPDF& pdf, const std::vector<std::shared_ptr<Buffer>>& parts)
    {
        std::vector<QPDFObjectHandle> streams;
        for (const auto& part : parts) {
            streams.push_back(pdf.newStream());
            streams.back().replaceStreamData(part, QPDFObjectHandle::newName("/FlateDecode"),
                                             QPDFObjectHandle::newNull());
        }
        return streams.size() == 1 ? streams.front() : QPDFObjectHandle::newArray(streams);
    }

    /// What an interpreter does not take over from a page of the plotter.
    void TellLosses(const PageSource& source) const
    {
        std::error_code unreadable; // the interpreter says so
        const base::MappedFile file(source.psPath, base::MappedFile::Reading::InParts, unreadable);
        const std::string page = "Page " + std::to_string(source.number) + " was made by the PostScript interpreter: ";
        if (file.Bytes().find("\n%SheetmakerLayer: ") != std::string_view::npos) {
            Tell(page + "the drawing's layers are not kept in it");
        }
        if (file.Bytes().find(" gs\n") != std::string_view::npos) {
            Tell(page + "what is transparent in the drawing is opaque in it");
        }
    }

    void Tell(const std::string& line) const
    {
        if (m_note) {
            m_note(line);
        }
    }

    std::unique_ptr<IPageMaker> m_others;
    NoteTaker m_note;
};

} // namespace

bool DialectRespects(const std::string& jobOptions)
{
    constexpr std::string_view kColors = "/ColorConversionStrategy /";
    const std::size_t colors = jobOptions.find(kColors);
    const bool colorsStay =
        colors == std::string::npos || jobOptions.compare(colors + kColors.size(), 19, "LeaveColorUnchanged") == 0;
    return colorsStay && jobOptions.find("/EmbedAllFonts false") == std::string::npos;
}

std::unique_ptr<IPageMaker> CreateDialectPageMaker(std::unique_ptr<IPageMaker> others, NoteTaker note)
{
    return std::make_unique<DialectPageMaker>(std::move(others), std::move(note));
}

} // namespace sm::publisher
