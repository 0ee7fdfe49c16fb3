// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the plotter's pages: what is taken, and that they look as the interpreter makes them.
#include "dialect/DialectPageMaker.h"
#include "dialect/DialectPictures.h"
#include "pages/GhostscriptPageMaker.h"
#include "pdf/Qpdf.h"

#include "postscript/PsDocument.h"
#include "publisher/dialect/DialectTools.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace sm::publisher {
namespace {

namespace fs = std::filesystem;
using render::Picture;

/// The resources that the plotter writes for pictures.
std::string Written(const std::vector<Picture>& pictures)
{
    plotter::PsPictures written(testing::TempDir());
    for (const Picture& picture : pictures)
        written.Add(picture);
    std::string text;
    written.WriteTo([&](std::string_view piece) { text += piece; });
    return text;
}

std::string With(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

TEST(DialectPictures, AreTakenAsThePlotterWritesThem)
{
    const std::string text = Written({{4, Picture::Form::Gray, false, 1, 2, "ab"},
                                      {9, Picture::Form::JpegRgb, false, 5, 6,
                                       "\xFF\xD8\xFF"
                                       "1"},
                                      {5, Picture::Form::Mask, false, 9, 1, "ab"},
                                      {6, Picture::Form::Rgb, true, 1, 1, "abc"}}) +
                             "%%BeginResource: font F1\n";
    std::string_view setup = text;
    const auto pictures = TakeDialectPictures(setup);
    ASSERT_TRUE(pictures);
    ASSERT_EQ(pictures->size(), 4u);
    EXPECT_EQ(setup, "%%BeginResource: font F1\n");
    EXPECT_EQ(pictures->at(0).form, DialectPicture::Form::Gray);
    EXPECT_EQ(pictures->at(1).form, DialectPicture::Form::JpegRgb);
    EXPECT_EQ(pictures->at(1).width, 5);
    EXPECT_EQ(pictures->at(1).height, 6);
    EXPECT_EQ(pictures->at(1).data, "\xFF\xD8\xFF"
                                    "1");
    EXPECT_EQ(pictures->at(2).form, DialectPicture::Form::Mask);
    EXPECT_EQ(pictures->at(3).form, DialectPicture::Form::ClearRgb);
}

TEST(DialectPictures, AreRefusedWhenAnythingDiffers)
{
    const std::string good = Written({{4, Picture::Form::Gray, false, 1, 2, "ab"}});
    const std::pair<const char*, std::string> rows[] = {
        {"another name", With(good, "form I1", "form I2")},
        {"another filter", With(good, "ASCII85Decode", "ASCIIHexDecode")},
        {"more pixels than there are", With(With(good, "Width 1/", "Width 9/"), "Matrix[1 ", "Matrix[9 ")},
        {"no width", With(With(good, "Width 1/", "Width 0/"), "Matrix[1 ", "Matrix[0 ")},
        {"another matrix", With(good, "ImageMatrix[1 0 0 -2 0 2]", "ImageMatrix[2 0 0 -2 0 2]")},
        {"a procedure", With(good, "/DataSource null", "/DataSource{showpage}")},
        {"no end", With(good, "%%EndResource\n", "")},
        {"a sign that is no digit", With(good, "\n~>", "{\n~>")},
        {"data that don't end", With(good, "~>\n", "")},
        {"a JPEG that is none", Written({{9, Picture::Form::JpegRgb, false, 5, 6, "GIF89a"}})},
    };
    for (const auto& [name, text] : rows) {
        std::string_view setup = text;
        EXPECT_FALSE(TakeDialectPictures(setup)) << name;
    }
}

TEST(DialectPictures, AreLeftToTheInterpreterWhenJobOptionsChangeThem)
{
    using Form = DialectPicture::Form;
    const struct {
        const char* options;
        Form form;
        bool keep;
    } rows[] = {
        {"", Form::Rgb, true},
        {"/DownsampleColorImages false\n/AutoFilterColorImages false\n", Form::Rgb, true},
        {"/DownsampleColorImages true\n", Form::Rgb, false},
        {"/DownsampleColorImages true\n", Form::Gray, true},
        {"/DownsampleGrayImages true\n", Form::JpegGray, false},
        {"/AutoFilterColorImages true\n", Form::Rgb, false},
        {"/AutoFilterColorImages true\n", Form::JpegRgb, true},
        {"/ColorImageFilter /DCTEncode\n", Form::Rgb, false},
        {"/ColorImageFilter /DCTEncode\n/DownsampleColorImages true\n", Form::ClearRgb, true},
        {"/EncodeColorImages false\n/AutoFilterColorImages true\n", Form::Rgb, true},
        {"/DownsampleMonoImages true\n", Form::Mask, false},
        {"/AutoFilterGrayImages true\n", Form::Mask, true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(JobOptionsKeepPictures(row.options, {{row.form, 1, 1, ""}}), row.keep)
            << row.options << static_cast<int>(row.form);
    EXPECT_TRUE(JobOptionsKeepPictures("/DownsampleColorImages true\n", {}));
}

/// Two pages of 100 mm with the same colour picture, once straight and turned, and one picture of each other form.
class PicturePages : public testing::Test {
protected:
    PicturePages() : m_folder(fs::temp_directory_path() / ("pictures-" + std::to_string(::getpid())))
    {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder / "gs");
        OutputOf("gs -q -dBATCH -dNOPAUSE -sDEVICE=jpeg -r9 -g16x16 -o " + (m_folder / "green.jpg").string() +
                 " -c '0.2 0.7 0.3 setrgbcolor 0 0 999 999 rectfill showpage'");
    }
    ~PicturePages() override { fs::remove_all(m_folder); }

    static Picture Colours()
    {
        Picture picture{1, Picture::Form::Rgb, false, 8, 4, {}};
        for (std::int32_t i = 0; i < 32; ++i)
            picture.bytes += {static_cast<char>(i * 8), static_cast<char>(255 - i * 4), static_cast<char>(i % 8 * 30)};
        return picture;
    }
    Picture Jpeg() const
    {
        std::ifstream file(m_folder / "green.jpg", std::ios::binary);
        return {5, Picture::Form::JpegRgb, false, 16, 16, {std::istreambuf_iterator<char>(file), {}}};
    }

    std::vector<PageSource> Plot() const
    {
        std::vector<PageSource> pages;
        for (std::size_t number = 1; number <= 2; ++number) {
            plotter::PsWriter writer(1200, m_folder.string());
            render::Path box;
            box.MoveTo({5, 5});
            box.LineTo({95, 5});
            box.LineTo({95, 95});
            box.Close();
            writer.Fill(box, 0xFFE0A0, render::FillRule::NonZero);
            writer.Image(Colours(), {40, 0, 0, 20, 10, 10}, 0);
            writer.Image(Colours(), {0, 40, -20, 0, 90, 10}, 0);
            if (number == 1) {
                writer.Image({2, Picture::Form::Mask, false, 9, 2, std::string("\xAA\x80\x55\x00", 4)},
                             {30, 5, -5, 20, 10, 40}, 0x2040C0);
                writer.Image({3, Picture::Form::Gray, true, 2, 2, std::string("\x40\xFF\xFF\x80", 4)},
                             {20, 0, 0, 20, 60, 60}, 0);
                writer.Image(Jpeg(), {20, 0, 0, 10, 20, 75}, 0);
            }
            const std::string path = (m_folder / (std::to_string(number) + ".ps")).string();
            plotter::WriteDocument({"t", "c", 100, 100, 1200, 0}, writer, path);
            pages.push_back({path, 283.46, 283.46, 1200, number});
        }
        return pages;
    }
    std::string Saved(const MadePages& made, const std::string& name) const
    {
        if (!made.document)
            return made.path;
        const std::string path = (m_folder / name).string();
        QPDFWriter(*made.document, path.c_str()).write();
        return path;
    }

    fs::path m_folder;
};

/// How many values of two pictures differ by more than eight shades.
std::size_t ValuesThatDiffer(const std::string& one, const std::string& two)
{
    if (one.size() != two.size())
        return one.size() + two.size();
    std::size_t count = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        count += std::abs(static_cast<unsigned char>(one[i]) - static_cast<unsigned char>(two[i])) > 8 ? 1 : 0;
    return count;
}

TEST_F(PicturePages, LookAsTheInterpreterMakesThem)
{
    const auto pages = Plot();
    const std::string lossless =
        "<<\n/AutoFilterColorImages false\n/ColorImageFilter /FlateEncode\n/AutoFilterGrayImages "
        "false\n/GrayImageFilter /FlateEncode\n>> setdistillerparams\n";
    const auto interpreter = CreateGhostscriptPageMaker({"gs"});
    const std::string theirs = Saved(interpreter->MakePages(pages, lossless, (m_folder / "gs").string()), "theirs.pdf");
    const auto direct = CreateDialectPageMaker(std::make_unique<NoOthers>());
    const std::string ours = Saved(direct->MakePages(pages, lossless, m_folder.string()), "ours.pdf");
    OutputOf("qpdf --check " + ours);
    for (const char* page : {"1", "2"}) {
        const std::string raster = std::string("pdftoppm -r 72 -singlefile -f ") + page + " ";
        const std::string one = OutputOf(raster + ours), two = OutputOf(raster + theirs);
        ASSERT_GT(one.size(), 200'000u);
        // Edges of pixels fall on the device's a little otherwise.
        EXPECT_LE(ValuesThatDiffer(one, two), one.size() / 200) << "page " << page;
    }
}

TEST_F(PicturePages, ShareOneObjectForEqualPictures)
{
    const auto direct = CreateDialectPageMaker(std::make_unique<NoOthers>());
    const std::string ours = Saved(direct->MakePages(Plot(), "", m_folder.string()), "ours.pdf");
    EXPECT_EQ(OutputOf("qpdf --qdf --object-streams=disable " + ours + " - | grep -c -a '/Subtype /Image'"), "4\n");
    EXPECT_EQ(OutputOf("pdfimages -list " + ours + " | awk 'NR > 2 {print $1, $3, $4, $5, $6, $9}'"),
              "1 image 8 4 rgb image\n1 image 8 4 rgb image\n1 stencil 9 2 - image\n1 image 2 2 gray image\n"
              "1 image 16 16 rgb jpeg\n2 image 8 4 rgb image\n2 image 8 4 rgb image\n");
}

} // namespace
} // namespace sm::publisher
