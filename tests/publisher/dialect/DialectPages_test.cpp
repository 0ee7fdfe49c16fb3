// SPDX-License-Identifier: GPL-3.0-or-later
// The plotter's own pages, made without the interpreter and with it: the same picture and the same text.
#include "dialect/DialectPageMaker.h"
#include "pages/GhostscriptPageMaker.h"
#include "pdf/Qpdf.h"

#include "drawing/Drawing.h"
#include "plotter/Plotter.h"
#include "publisher/dialect/DialectTools.h"
#include "render/RenderReport.h"
#include "render/TextLayout.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace sm::publisher {
namespace {

namespace fs = std::filesystem;

/// How many values of two grey pictures differ by more than eight shades of 256; all when they aren't of one size. The
/// interpreter writes numbers with fewer digits, coordinates in dots and widths of letters in whole thousandths, which
/// shows at the edges of letters and lines here and there.
std::size_t PixelsThatDiffer(const std::string& one, const std::string& two)
{
    if (one.size() != two.size())
        return one.size() + two.size();
    std::size_t count = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        count += std::abs(static_cast<unsigned char>(one[i]) - static_cast<unsigned char>(two[i])) > 8 ? 1 : 0;
    return count;
}

class DialectPages : public testing::TestWithParam<const char*> {
protected:
    DialectPages() : m_folder(fs::temp_directory_path() / ("dialect-" + std::to_string(::getpid())))
    {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder / "gs");
    }
    ~DialectPages() override { fs::remove_all(m_folder); }

    /// Every layout of a sample, plotted.
    std::vector<PageSource> Plot(const std::string& sample)
    {
        const auto drawing = drawing::Drawing::Open(std::string(SM_SOURCE_DIR "/samples/") + sample);
        const auto text = render::TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""});
        std::vector<PageSource> pages;
        for (const drawing::Layout& layout : drawing->Layouts()) {
            const std::string path = (m_folder / (std::to_string(pages.size()) + ".ps")).string();
            render::RenderReport report(*drawing);
            plotter::PlotToPostScript({*drawing, layout, layout.plot, 1200, layout.name, "test", {}}, path, *text,
                                      report);
            pages.push_back({path, layout.plot.paperWidth * 72 / 25.4, layout.plot.paperHeight * 72 / 25.4, 1200,
                             pages.size() + 1});
        }
        return pages;
    }
    std::string Saved(const MadePages& made, const std::string& name)
    {
        if (!made.document)
            return made.path;
        const std::string path = (m_folder / name).string();
        QPDFWriter(*made.document, path.c_str()).write();
        return path;
    }

    /// The same pages with one box, as the interpreter rounds its own and the box decides where a pixel begins.
    std::string OneBox(const std::string& pdf)
    {
        OutputOf("qpdf --qdf --object-streams=disable " + pdf +
                 " - | sed -z -E 's!/MediaBox \\[[^]]*\\]!/MediaBox [ 0 0 1300 1300 ]!g' > " + pdf + ".box");
        return pdf + ".box 2>/dev/null";
    }

    fs::path m_folder;
};

TEST_P(DialectPages, LookAsTheInterpreterMakesThem)
{
    const auto pages = Plot(GetParam());
    const auto interpreter = CreateGhostscriptPageMaker({"gs"});
    const std::string theirs = Saved(interpreter->MakePages(pages, "", (m_folder / "gs").string()), "theirs.pdf");
    const auto direct = CreateDialectPageMaker(std::make_unique<NoOthers>());
    const std::string ours = Saved(direct->MakePages(pages, "", m_folder.string()), "ours.pdf");
    OutputOf("qpdf --check " + ours);
    EXPECT_EQ(OutputOf("pdftotext -raw " + ours + " -"), OutputOf("pdftotext -raw " + theirs + " -"));
    for (std::size_t i = 1; i <= pages.size(); ++i) {
        const std::string raster = "pdftoppm -r 100 -gray -singlefile -f " + std::to_string(i) + " ";
        EXPECT_LE(PixelsThatDiffer(OutputOf(raster + OneBox(ours)), OutputOf(raster + OneBox(theirs))), 800u)
            << "page " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, DialectPages, testing::Values("house.dxf", "flange.dxf", "site.dxf"));

} // namespace
} // namespace sm::publisher
