// SPDX-License-Identifier: GPL-3.0-or-later
// What is written for pictures.
#include "plotter/PsWritten.h"
#include "postscript/PsWriter.h"

#include <gtest/gtest.h>

namespace sm::plotter {
namespace {

using render::Matrix2;
using render::Picture;
using Form = Picture::Form;

template <class Write> std::string TextOf(Write write)
{
    std::string text;
    write([&](std::string_view piece) { text += piece; });
    return text;
}

std::string ResourcesOf(PsWriter& writer)
{
    return TextOf([&](const BodyText::Sink& sink) { writer.Pictures().WriteTo(sink); });
}

Picture Jpeg()
{
    return {7, Form::JpegRgb, false, 2, 1, std::string("\xFF\xD8\xFF\xE0\0\0\0\0%", 9)};
}

TEST(PsPictures, AreDefinedOnceAndPlacedOften)
{
    PsWriter writer(254, testing::TempDir());
    writer.Image(Jpeg(), {20, 0, 0, 10, 5, 6}, 0);
    writer.Image(Jpeg(), {0, 2.5, -5, 0, 1.0001, 0}, 0);
    EXPECT_EQ(BodyOf(writer), "q\n200 0 0 100 50 60 cm\n/I1 Do\nQ\nq\n0 25 -50 0 10.001 0 cm\n/I1 Do\nQ\n");
    EXPECT_EQ(ResourcesOf(writer), R"(%%BeginResource: form I1
/I1s currentfile/ASCII85Decode filter/ReusableStreamDecode filter
s4IA0z,l
~>
def
/I1<</ImageType 1/Width 2/Height 1/BitsPerComponent 8/Decode[0 1 0 1 0 1]/ImageMatrix[2 0 0 -1 0 1]/Space /DeviceRGB/Filter/DCTDecode/DataSource null/Data I1s>>def
%%EndResource
)");
}

TEST(PsPictures, HaveADictionaryForEachForm)
{
    const struct {
        Picture picture;
        const char* dictionary;
    } rows[] = {
        {{1, Form::Mask, false, 9, 1, std::string("\xFF\x80", 2)},
         "/I1<</ImageType 1/Width 9/Height 1/BitsPerComponent 1/Decode[1 0]/ImageMatrix[9 0 0 -1 0 1]/Space null"
         "/Filter/FlateDecode/DataSource null/Data I1s>>def\n"},
        {{1, Form::Gray, false, 1, 2, "ab"},
         "/I1<</ImageType 1/Width 1/Height 2/BitsPerComponent 8/Decode[0 1]/ImageMatrix[1 0 0 -2 0 2]/Space "
         "/DeviceGray/Filter/FlateDecode/DataSource null/Data I1s>>def\n"},
        {{1, Form::Gray, true, 1, 2, "ab"},
         "/I1<</ImageType 4/Width 1/Height 2/BitsPerComponent 8/Decode[0 1]/MaskColor[255]/ImageMatrix[1 0 0 -2 0 "
         "2]/Space /DeviceGray/Filter/FlateDecode/DataSource null/Data I1s>>def\n"},
        {{1, Form::Rgb, true, 1, 1, "abc"},
         "/I1<</ImageType 4/Width 1/Height 1/BitsPerComponent 8/Decode[0 1 0 1 0 1]/MaskColor[255 255 "
         "255]/ImageMatrix[1 0 0 -1 0 1]/Space /DeviceRGB/Filter/FlateDecode/DataSource null/Data I1s>>def\n"},
        {{1, Form::JpegGray, true, 1, 1, "abc"},
         "/I1<</ImageType 1/Width 1/Height 1/BitsPerComponent 8/Decode[0 1]/ImageMatrix[1 0 0 -1 0 1]/Space "
         "/DeviceGray/Filter/DCTDecode/DataSource null/Data I1s>>def\n"},
    };
    for (const auto& row : rows) {
        PsWriter writer(254, testing::TempDir());
        writer.Image(row.picture, {}, 0);
        const std::string resources = ResourcesOf(writer);
        const std::size_t at = resources.find("/I1<<");
        ASSERT_NE(at, std::string::npos);
        EXPECT_EQ(resources.substr(at), std::string(row.dictionary) + "%%EndResource\n");
    }
}

TEST(PsPictures, MasksArePaintedInTheirColour)
{
    PsWriter writer(254, testing::TempDir());
    writer.Image({3, Form::Mask, false, 8, 1, "a"}, {1, 0, 0, 1, 0, 0}, 0xFF0000);
    EXPECT_EQ(BodyOf(writer), "1 0 0 rg\nq\n10 0 0 10 0 0 cm\n/I1 Do\nQ\n");
}

TEST(PsPictures, NoLineOfThemLooksLikeAComment)
{
    PsWriter writer(254, testing::TempDir());
    std::string bytes;
    for (std::size_t i = 0; i < 90'000; ++i) { // digits '%' everywhere: base 85 of these bytes is "%%%%%"
        bytes += "\x0C\x98\x00\xB4"[i % 4];
    }
    writer.Image({1, Form::JpegGray, false, 1, 1, bytes}, {}, 0);
    const std::string resources = ResourcesOf(writer);
    EXPECT_NE(resources.find("\n %%%%%"), std::string::npos);
    const std::size_t data = resources.find("filter\n") + 7, end = resources.find("~>");
    EXPECT_EQ(resources.substr(data, end - data).find("\n%"), std::string::npos);
    EXPECT_NE(resources[data], '%');
}

} // namespace
} // namespace sm::plotter
