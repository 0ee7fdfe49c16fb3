// SPDX-License-Identifier: GPL-3.0-or-later
// What a drawing names: files that it shows, addresses that it links to.
#include "document/Annotations.h"
#include "drawing/Drawing.h"
#include "drawing/FindReferenced.h"
#include "drawing/Finding.h"
#include "drawing/entities/Hyperlinks.h"
#include "fuzz/Target.h"
#include "fuzz/targets/Scratch.h"
#include "fuzz/targets/SmallDrawings.h"
#include "fuzz/targets/Targets.h"
#include "render/References.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>

namespace sm::fuzz {

namespace {

/// Pages that can't be shown: which files are asked for is what is looked at.
class NoPages final : public render::IPageRasterizer {
public:
    Vec2 SizeOf(const std::string& path, std::int32_t page) override
    {
        if (path.starts_with("/dev/") || path.starts_with("/proc/") || page < 1)
            Fail("pages of files are asked for, from the first on");
        return {8, 11};
    }
    Pixels Show(const std::string&, std::int32_t, double) override { throw std::runtime_error("is none"); }
};

const std::string& Places()
{
    static const std::string kPlaces = [] {
        namespace fs = std::filesystem;
        const std::string folder = ScratchFolder() + "/places";
        fs::create_directories(folder + "/sub");
        for (const char* name : {"places/plan.pdf", "places/sub/a.png", "places/Other.DXF", "places/plan.dxf"})
            WriteScratch(name, std::string(name).ends_with("plan.dxf") || std::string(name).ends_with("DXF")
                                   ? DrawingOf({"0\nLINE\n10\n1\n11\n9\n", "", "", ""})
                                   : "%PDF-1.4");
        return folder;
    }();
    return kPlaces;
}

/// A drawing whose reference, picture and underlay have that name.
std::string DrawingThatNames(std::string name)
{
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return DrawingOf(
        {"", "0\nBLOCK\n2\nSITE\n70\n4\n1\n" + name + "\n0\nENDBLK\n",
         "0\nIMAGEDEF\n5\n60\n1\n" + name + "\n10\n9\n20\n9\n280\n1\n0\nPDFDEFINITION\n5\n61\n1\n" + name + "\n2\n1\n",
         ""});
}

void ShowReferences(const std::string& name)
{
    const auto drawing = drawing::Drawing::FromBytes(DrawingThatNames(name), Places() + "/host.dxf");
    render::References references(*drawing, {{Places() + "/sub"}, std::make_shared<NoPages>(), {}});
    for (std::uint32_t block = 0; block < drawing->Blocks().size(); ++block)
        if (references.IsXref(block))
            (void)references.XrefOf(block);
    for (const drawing::ImageDefinition& definition : drawing->ImageDefinitions()) {
        if (definition.kind == drawing::ImageDefinition::Kind::Pdf)
            (void)references.PageOf(definition, {}, 5);
        else
            (void)references.PictureOf(definition, {}, {10, 10}, 24);
    }
    (void)references.UseOf(Places() + "/plan.pdf");
    for (const drawing::Finding& finding : references.Findings())
        CheckReason(finding.text);
}

/// A document of one page that links are made for.
class LinkStand {
public:
    LinkStand()
    {
        m_pdf.emptyPDF();
        m_pages.push_back({QPDFObjectHandle::parse("<</Type/Page/MediaBox[0 0 9 9]>>"), "Plan", 1, 1});
    }
    void Make(const std::string& url)
    {
        const publisher::Note note = [](const std::string&) {};
        auto link = publisher::LinkMaker(m_pdf, m_pages, note).Make({1, 2, 3, 4, url}, m_pages.front());
        if (link.getKey("/A").isNull() == link.getKey("/Dest").isNull())
            Fail("a link leads to an address or to a sheet");
    }

private:
    QPDF m_pdf;
    std::vector<publisher::SheetPage> m_pages;
};

} // namespace

void FuzzPaths(std::string_view input)
{
    const std::string name(input);
    const std::string found = drawing::FindReferenced(name, {Places(), {Places() + "/sub"}});
    constexpr std::array kForbidden{"/dev/", "/proc/", "/sys/", "/net/"};
    if (std::ranges::any_of(kForbidden, [&](const char* folder) { return found.starts_with(folder); }))
        Fail("nothing in the folders of the system is found");
    if (!found.empty() && !std::filesystem::is_regular_file(found))
        Fail("what is found is a regular file");
    if (input.size() % 16 == 0) // a drawing takes a hundred times as long as a name
        try {
            ShowReferences(name);
        } catch (const drawing::DrawingError& error) {
            CheckReason(error.what());
        }
}

/// Pairs of lines: extended data of a line, and objects that its texts' fields are looked for in.
void FuzzHyperlinks(std::string_view input)
{
    const std::size_t cut = std::min(input.find("0\nFIELD\n"), input.size());
    try {
        const auto drawing = drawing::Drawing::FromBytes(
            DrawingOf({"0\nTEXT\n5\n50\n102\n{ACAD_XDICTIONARY\n360\n90\n102\n}\n10\n1\n40\n3\n1\na\n" +
                           std::string(input.substr(0, cut)),
                       "",
                       "0\nDICTIONARY\n5\n90\n330\n50\n3\nACAD_"
                       "FIELD\n360\n91\n0\nDICTIONARY\n5\n91\n330\n90\n3\nTEXT\n360\n92\n" +
                           std::string(input.substr(cut)),
                       ""}),
            "plan.dxf");
        std::vector<drawing::Hyperlink> links;
        for (const drawing::EntityRecord& record : drawing->EntitiesOf(drawing->Layouts().front().block)) {
            drawing::ReadHyperlinks(*drawing, record, links);
            LinkStand stand;
            for (const drawing::Hyperlink& link : links) {
                stand.Make(link.url);
                stand.Make("#" + link.subLocation);
            }
        }
    } catch (const drawing::DrawingError& error) {
        CheckReason(error.what(), "plan.dxf: ");
    }
}

Inputs PathSeeds()
{
    return {"plan.pdf",
            "sub\\A.PNG",
            "C:\\Work\\sub/a.png",
            "\\\\server\\share\\plan.dxf",
            "/dev/zero",
            "../places/plan.dxf",
            "other.dxf",
            "http://x.y/plan.dxf",
            "/proc/self/mem",
            "./././sub/../plan.pdf",
            "%pipe%ls",
            "\"; ls"};
}

Inputs HyperlinkSeeds()
{
    return {
        "1001\nPE_URL\n1000\nhttp://x.y/\n1002\n{\n1000\nwords\n1002\n{\n1071\n1\n1002\n}\n1002\n}\n",
        "1001\nPE_URL\n1000\na.html\n1002\n{\n1000\nwords\n1000\nPlan\n1002\n}\n1000\nmailto:a@b\n1002\n{\n1002\n}\n",
        "0\nFIELD\n5\n92\n330\n91\n100\nAcDbField\n1\n_text\n2\n%<\\_FldIdx "
        "0>%\n90\n1\n360\n93\n97\n0\n0\nFIELD\n5\n93\n330\n92\n1\nAcVar\n"
        "2\n\\AcVar Author \\href \"http://x.y#Plan#words\"\n90\n0\n97\n0\n"};
}

} // namespace sm::fuzz
