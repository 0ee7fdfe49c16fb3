#include "publisher/DialectPageMaker.h"

#include "publisher/DialectFontObjects.h"
#include "publisher/PackedBody.h"
#include "publisher/PdfNumbers.h"

namespace sm::publisher {

namespace {

class DialectPageMaker final : public IPageMaker {
public:
    explicit DialectPageMaker(std::unique_ptr<IPageMaker> others) : m_others(std::move(others)) {}

    MadePages MakePages(const std::vector<PageSource>& pages, const std::string& jobOptions,
                        const std::string& folder) override
    {
        auto pdf = std::make_shared<QPDF>();
        pdf->emptyPDF();
        DialectPictureObjects pictures(*pdf);
        bool ours = DialectRespects(jobOptions);
        for (std::size_t i = 0; i < pages.size() && ours; ++i) {
            ours = AddPage(*pdf, pages[i], jobOptions, pictures);
        }
        return ours ? MadePages{{}, std::move(pdf)} : m_others->MakePages(pages, jobOptions, folder);
    }

private:
    static bool AddPage(QPDF& pdf, const PageSource& source, const std::string& jobOptions,
                        DialectPictureObjects& pictures)
    {
        const MappedFile file(source.psPath);
        auto page = ReadDialectPage(file.Bytes());
        if (!page || !JobOptionsKeepPictures(jobOptions, page->pictures)) {
            return false;
        }
        auto fonts = QPDFObjectHandle::newDictionary();
        for (const DialectFont& font : page->fonts) {
            auto object = MakeFontObject(pdf, font);
            if (object.isNull()) {
                return false;
            }
            fonts.replaceKey("/" + font.name, object);
        }
        const auto parts = PackDialectBody(file, page->body, page->pictures.size());
        if (!parts) {
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
        dictionary.replaceKey("/Contents", Contents(pdf, *parts));
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

    std::unique_ptr<IPageMaker> m_others;
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

std::unique_ptr<IPageMaker> CreateDialectPageMaker(std::unique_ptr<IPageMaker> others)
{
    return std::make_unique<DialectPageMaker>(std::move(others));
}

} // namespace sm::publisher
