#include "publisher/DialectPageMaker.h"

#include "publisher/DialectFontObjects.h"
#include "publisher/PdfNumbers.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace sm::publisher {

namespace {

/// A file's bytes, mapped; empty when it can't be read.
class MappedFile {
public:
    explicit MappedFile(const std::string& path)
    {
        const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        struct stat facts = {};
        if (descriptor >= 0 && ::fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_size > 0) {
            m_size = static_cast<std::size_t>(facts.st_size);
            m_bytes = ::mmap(nullptr, m_size, PROT_READ, MAP_PRIVATE, descriptor, 0);
        }
        if (descriptor >= 0) {
            ::close(descriptor);
        }
    }
    ~MappedFile()
    {
        if (m_bytes != MAP_FAILED) {
            ::munmap(m_bytes, m_size);
        }
    }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    [[nodiscard]] std::string_view Bytes() const
    {
        return m_bytes == MAP_FAILED ? std::string_view() : std::string_view(static_cast<const char*>(m_bytes), m_size);
    }

private:
    void* m_bytes = MAP_FAILED;
    std::size_t m_size = 0;
};

class DialectPageMaker final : public IPageMaker {
public:
    explicit DialectPageMaker(std::unique_ptr<IPageMaker> others) : m_others(std::move(others)) {}

    MadePages MakePages(const std::vector<PageSource>& pages, const std::string& jobOptions,
                        const std::string& folder) override
    {
        QPDF pdf;
        pdf.emptyPDF();
        DialectPictureObjects pictures(pdf);
        bool ours = DialectRespects(jobOptions);
        for (std::size_t i = 0; i < pages.size() && ours; ++i) {
            ours = AddPage(pdf, pages[i], jobOptions, pictures);
        }
        return ours ? MadePages{{}, Written(pdf)} : m_others->MakePages(pages, jobOptions, folder);
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
        auto dictionary = QPDFObjectHandle::parse("<</Type/Page/Resources<</ProcSet[/PDF/Text]>>>>");
        const auto zero = QPDFObjectHandle::newInteger(0);
        dictionary.replaceKey(
            "/MediaBox", QPDFObjectHandle::newArray({zero, zero, QPDFObjectHandle::newReal(NumberText(source.width)),
                                                     QPDFObjectHandle::newReal(NumberText(source.height))}));
        dictionary.getKey("/Resources").replaceKey("/Font", fonts);
        if (!page->pictures.empty()) {
            dictionary.getKey("/Resources").replaceKey("/XObject", pictures.Resources(page->pictures));
        }
        dictionary.replaceKey("/Contents", pdf.newStream(std::string(page->content)));
        QPDFPageDocumentHelper(pdf).addPage(QPDFPageObjectHelper(pdf.makeIndirectObject(dictionary)), false);
        return true;
    }

    static std::shared_ptr<const std::string> Written(QPDF& pdf)
    {
        QPDFWriter writer(pdf);
        writer.setOutputMemory();
        writer.setStreamDataMode(qpdf_s_preserve);
        writer.setObjectStreamMode(qpdf_o_disable);
        writer.write();
        const auto buffer = writer.getBufferSharedPointer();
        return std::make_shared<const std::string>(reinterpret_cast<const char*>(buffer->getBuffer()),
                                                   buffer->getSize());
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
