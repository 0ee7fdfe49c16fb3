// SPDX-License-Identifier: GPL-3.0-or-later
#include "ghostscript/PdfPages.h"

#include "base/files/PrivateFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>

namespace sm::ghostscript {
namespace {

class PdfPagesTest : public testing::Test {
protected:
    /// One page of 144 by 72 points with a red left half, and whatever else its dictionary says.
    std::string Write(const std::string& more = {}) const
    {
        const std::string body = "1 0 0 rg 0 0 72 72 re f";
        const std::string path = m_folder.Path() + "/a (page).pdf";
        std::ofstream(path, std::ios::binary)
            << "%PDF-1.4\n1 0 obj <</Type /Catalog /Pages 2 0 R>> endobj\n"
            << "2 0 obj <</Type /Pages /Kids [3 0 R] /Count 1>> endobj\n"
            << "3 0 obj <</Type /Page /Parent 2 0 R /MediaBox [0 0 144 72] /Contents 4 0 R" << more << ">> endobj\n"
            << "4 0 obj <</Length " << body.size() << ">> stream\n"
            << body << "\nendstream endobj\ntrailer <</Root 1 0 R /Size 5>>\n%%EOF\n";
        return path;
    }
    /// What was thrown; "" for nothing.
    template <class Call> static std::string ErrorOf(const Call& call)
    {
        try {
            call();
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return {};
    }

    base::PrivateFolder m_folder{""};
    PdfPages m_pages{"gs"};
};

TEST_F(PdfPagesTest, TellsThePagesSizeAsShown)
{
    const PdfPages::Size upright = m_pages.SizeOf(Write(), 1);
    EXPECT_EQ(std::pair(upright.width, upright.height), std::pair(2.0, 1.0));
    const PdfPages::Size turned = m_pages.SizeOf(Write(" /Rotate 90"), 1);
    EXPECT_EQ(std::pair(turned.width, turned.height), std::pair(1.0, 2.0));
    const PdfPages::Size cropped = m_pages.SizeOf(Write(" /CropBox [0 0 36 72]"), 1);
    EXPECT_EQ(std::pair(cropped.width, cropped.height), std::pair(0.5, 1.0));
}

TEST_F(PdfPagesTest, ShowsThePageFromTheTop)
{
    const PdfPages::Pixels pixels = m_pages.Show(Write(), 1, 36);
    EXPECT_EQ(pixels.width, 72);
    EXPECT_EQ(pixels.height, 36);
    std::string row;
    for (int x = 0; x < 72; ++x)
        row += x < 36 ? std::string("\xFF\0\0", 3) : std::string("\xFF\xFF\xFF", 3);
    std::string expected;
    for (int y = 0; y < 36; ++y)
        expected += row;
    EXPECT_TRUE(pixels.rgb == expected);
}

TEST_F(PdfPagesTest, TellsWhyAPageCanNotBeDrawn)
{
    const std::string path = Write();
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(m_pages.SizeOf(path, 2)); }),
              "can't be drawn: the file has no such page, or can't be read");
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(m_pages.Show(m_folder.Path() + "/none.pdf", 1, 1)); }),
              "can't be drawn: the PostScript interpreter failed on it");
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(PdfPages("nobodys-gs").SizeOf(path, 1)); }),
              "can't be drawn: the program nobodys-gs is not there; install it: sudo apt-get install ghostscript");
}

} // namespace
} // namespace sm::ghostscript
