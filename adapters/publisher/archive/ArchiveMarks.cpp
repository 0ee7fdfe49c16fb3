// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/ArchiveMarks.h"

#include "archive/ColorProfile.h"
#include "base/files/Paths.h"
#include "base/text/Keywords.h"
#include "pdf/PublishStatus.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <qpdf/QPDFEmbeddedFileDocumentHelper.hh>

namespace sm::publisher {

namespace {

using Object = QPDFObjectHandle;

// ISO 19005-2, 6.1.13.
constexpr int kDeepest = 28;
constexpr double kSmallestSide = 3;
constexpr std::size_t kLongestName = 127, kLongestString = 32767;

[[noreturn]] void Refuse(Archive archive, const std::string& what, const std::string& remedy)
{
    throw PublishFailure(PublishStatus::ArchiveRefused, fmt::format("{}, which PDF/A-{} forbids. {}", what,
                                                                    archive == Archive::A2b ? "2b" : "3b", remedy));
}

/// By the name's ending; what isn't known is a row of bytes.
std::string MediaType(const std::string& name)
{
    constexpr std::array<std::pair<const char*, const char*>, 14> kTypes{{{".pdf", "application/pdf"},
                                                                          {".txt", "text/plain"},
                                                                          {".csv", "text/csv"},
                                                                          {".xml", "text/xml"},
                                                                          {".html", "text/html"},
                                                                          {".png", "image/png"},
                                                                          {".jpg", "image/jpeg"},
                                                                          {".jpeg", "image/jpeg"},
                                                                          {".tif", "image/tiff"},
                                                                          {".tiff", "image/tiff"},
                                                                          {".zip", "application/zip"},
                                                                          {".json", "application/json"},
                                                                          {".dwg", "image/vnd.dwg"},
                                                                          {".dxf", "image/vnd.dxf"}}};
    const std::string ending = base::LowerAscii(base::ToText(base::ToPath(name).extension()));
    const auto* found = std::ranges::find_if(kTypes, [&](const auto& type) { return ending == type.first; });
    return found == kTypes.end() ? "application/octet-stream" : found->second;
}

/// The attached files belong to the document, each with its type.
void AssociateFiles(QPDF& pdf)
{
    QPDFEmbeddedFileDocumentHelper files(pdf);
    Object associated = Object::newArray();
    for (const auto& [name, specification] : files.getEmbeddedFiles()) {
        Object dictionary = specification->getObjectHandle();
        dictionary.replaceKey("/AFRelationship", Object::newName("/Unspecified"));
        QPDFEFStreamObjectHelper stream(specification->getEmbeddedFileStream());
        stream.setSubtype(MediaType(specification->getFilename()));
        associated.appendItem(dictionary);
    }
    if (associated.getArrayNItems() > 0) {
        pdf.getRoot().replaceKey("/AF", associated);
    }
}

void AddOutputIntent(QPDF& pdf)
{
    Object profile = pdf.newStream(StandardRgbProfile());
    profile.getDict().replaceKey("/N", Object::newInteger(3));
    Object intent = Object::parse("<</Type/OutputIntent/S/GTS_PDFA1/OutputConditionIdentifier(sRGB IEC61966-2-1)"
                                  "/Info(sRGB IEC61966-2-1)/RegistryName()>>");
    intent.replaceKey("/DestOutputProfile", profile);
    pdf.getRoot().replaceKey("/OutputIntents", Object::newArray({pdf.makeIndirectObject(intent)}));
}

bool IsEmbedded(Object font)
{
    if (font.getKey("/Subtype").isNameAndEquals("/Type3")) {
        return true;
    }
    if (font.getKey("/Subtype").isNameAndEquals("/Type0")) {
        font = font.getKey("/DescendantFonts").getArrayItem(0);
    }
    Object descriptor = font.getKey("/FontDescriptor");
    const auto holds = [&](const char* key) { return descriptor.getKey(key).isStream(); };
    return descriptor.isDictionary() && (holds("/FontFile") || holds("/FontFile2") || holds("/FontFile3"));
}

/// How deeply graphics states are saved.
class Nesting final : public Object::ParserCallbacks {
public:
    void handleObject(Object object) override
    {
        if (object.isOperator() && object.getOperatorValue() == "q") {
            deepest = std::max(deepest, ++m_depth);
        } else if (object.isOperator() && object.getOperatorValue() == "Q") {
            --m_depth;
        }
    }
    void handleEOF() override {}
    int deepest = 0;

private:
    int m_depth = 0;
};

void RequirePage(QPDFPageObjectHelper page, std::size_t number, Archive archive)
{
    const auto box = page.getMediaBox().getArrayAsRectangle();
    if (std::min(box.urx - box.llx, box.ury - box.lly) < kSmallestSide) {
        Refuse(archive, fmt::format("Page {} is narrower than {} points", number, kSmallestSide),
               "Choose a larger paper.");
    }
    const auto check = [&](Object resources) {
        Object fonts = resources.isDictionary() ? resources.getKey("/Font") : Object::newNull();
        for (auto& [key, font] : fonts.isDictionary() ? fonts.getDictAsMap() : std::map<std::string, Object>()) {
            if (!IsEmbedded(font)) {
                Refuse(archive,
                       fmt::format("Page {} has text in the font {}, which is not embedded", number,
                                   font.getKey("/BaseFont").isName() ? font.getKey("/BaseFont").getName().substr(1)
                                                                     : key.substr(1)),
                       "Install a font for that text.");
            }
        }
    };
    check(page.getAttribute("/Resources", false));
    page.forEachFormXObject(
        true, [&](Object& form, Object&, const std::string&) { check(form.getDict().getKey("/Resources")); });
    Nesting nesting;
    page.parseContents(&nesting);
    if (nesting.deepest > kDeepest) {
        Refuse(archive, fmt::format("Page {} nests clips {} deep", number, nesting.deepest),
               fmt::format("At most {} references may lie in each other.", kDeepest));
    }
}

void RequireInformation(Object info, Archive archive)
{
    for (auto& [key, value] : info.isDictionary() ? info.getDictAsMap() : std::map<std::string, Object>()) {
        const std::string name = key.substr(1, kLongestName);
        if (key.size() > kLongestName + 1 || (value.isString() && value.getStringValue().size() > kLongestString)) {
            Refuse(archive, fmt::format("The property \"{}\" is too long", name), "Shorten its name or value.");
        }
    }
}

} // namespace

void AddArchiveMarks(QPDF& pdf, Archive archive)
{
    AddOutputIntent(pdf);
    if (archive == Archive::A3b) {
        AssociateFiles(pdf);
    }
}

std::string ArchiveXmp(Archive archive)
{
    if (archive == Archive::None) {
        return {};
    }
    return fmt::format("  <rdf:Description rdf:about=\"\" xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\">\n"
                       "   <pdfaid:part>{}</pdfaid:part>\n   <pdfaid:conformance>B</pdfaid:conformance>\n"
                       "  </rdf:Description>\n",
                       archive == Archive::A2b ? 2 : 3);
}

void RequireArchivable(QPDF& pdf, Archive archive)
{
    QPDFEmbeddedFileDocumentHelper files(pdf);
    if (archive == Archive::A2b && files.hasEmbeddedFiles()) {
        Refuse(archive,
               fmt::format("The file \"{}\" is attached", files.getEmbeddedFiles().begin()->second->getFilename()),
               "PDF/A-3b may hold it.");
    }
    std::size_t number = 0;
    for (const QPDFPageObjectHelper& page : QPDFPageDocumentHelper(pdf).getAllPages()) {
        RequirePage(page, ++number, archive);
    }
    RequireInformation(pdf.getTrailer().getKey("/Info"), archive);
}

} // namespace sm::publisher
