// SPDX-License-Identifier: GPL-3.0-or-later
// Objects of other programs: the container, the presentation in it, and Windows metafiles.
#include "ole/CompoundFile.h"
#include "ole/OlePicture.h"
#include "render/SmallDrawing.h"

#include <gmock/gmock.h>

#include <bit>

namespace sm::render {
namespace {

std::string BytesOf(std::uint64_t value, unsigned count)
{
    std::string bytes;
    for (unsigned i = 0; i < count; ++i) {
        bytes += i < sizeof value ? static_cast<char>(value >> (8 * i) & 0xFF) : '\0';
    }
    return bytes;
}

/// A record of a metafile: its function and its arguments as words, behind them bytes.
struct Record {
    unsigned function;
    std::vector<int> words;
    std::string more = {};
};

std::string Metafile(const std::vector<Record>& records)
{
    std::string file = BytesOf(1, 2) + BytesOf(9, 2) + BytesOf(0x300, 2) + BytesOf(0, 12);
    for (const Record& record : records) {
        std::string arguments;
        for (const int word : record.words) {
            arguments += BytesOf(static_cast<std::uint16_t>(word), 2);
        }
        arguments += record.more;
        file += BytesOf(3 + arguments.size() / 2, 4) + BytesOf(record.function, 2) + arguments;
    }
    return file + BytesOf(3, 4) + BytesOf(0, 2);
}

/// A window of 100 by 50 units, then the records.
std::string Window(std::vector<Record> records)
{
    records.insert(records.begin(), {{0x20B, {0, 0}}, {0x20C, {50, 100}}});
    return Metafile(records);
}

/// A bitmap of two pixels side by side, red and blue.
std::string TwoPixels()
{
    return BytesOf(40, 4) + BytesOf(2, 4) + BytesOf(1, 4) + BytesOf(1, 2) + BytesOf(24, 2) + std::string(24, '\0') +
           BytesOf(0xFF0000, 3) + BytesOf(0x0000FF, 3) + BytesOf(0, 2);
}

/// Streams of a compound file, each in large sectors.
std::string Compound(const std::vector<std::pair<std::string, std::string>>& streams)
{
    constexpr std::size_t kSector = 512, kSmallest = 4096;
    constexpr std::uint32_t kEnd = 0xFFFFFFFE, kTable = 0xFFFFFFFD, kFree = 0xFFFFFFFF;
    std::vector<std::uint32_t> next{kTable, kEnd}; // the table of sectors, the directory
    std::string directory, data;
    const auto entry = [&](const std::string& name, unsigned kind, std::uint32_t start, std::uint64_t size) {
        std::string field;
        for (const char c : name) {
            field += BytesOf(static_cast<unsigned char>(c), 2);
        }
        field.resize(64);
        directory += field + BytesOf((name.size() + 1) * 2, 2) + BytesOf(kind, 1) + std::string(49, '\0') +
                     BytesOf(start, 4) + BytesOf(size, 8);
    };
    entry("Root Entry", 5, kEnd, 0);
    for (const auto& [name, content] : streams) {
        std::string padded = content;
        padded.resize(std::max(kSmallest, (content.size() + kSector - 1) / kSector * kSector));
        entry(name, 2, static_cast<std::uint32_t>(next.size()), std::max(kSmallest, content.size()));
        for (std::size_t left = padded.size() / kSector; left > 0; --left) {
            next.push_back(left > 1 ? static_cast<std::uint32_t>(next.size() + 1) : kEnd);
        }
        data += padded;
    }
    next.resize(kSector / 4, kFree);
    directory.resize(kSector);
    std::string file = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(16, '\0') + BytesOf(0x3E, 2) + BytesOf(3, 2) +
                       BytesOf(0xFFFE, 2) + BytesOf(9, 2) + BytesOf(6, 2) + std::string(10, '\0') + BytesOf(1, 4) +
                       BytesOf(1, 4) + BytesOf(0, 4) + BytesOf(4096, 4) + BytesOf(kEnd, 4) + BytesOf(0, 4) +
                       BytesOf(kEnd, 4) + BytesOf(0, 4) + BytesOf(0, 4);
    for (int i = 1; i < 109; ++i) {
        file += BytesOf(kFree, 4);
    }
    for (const std::uint32_t number : next) {
        file += BytesOf(number, 4);
    }
    return file + directory + data;
}

/// A presentation stream of a clipboard format.
std::string Presentation(std::uint32_t format, const std::string& data)
{
    return BytesOf(0xFFFFFFFF, 4) + BytesOf(format, 4) + BytesOf(4, 4) + BytesOf(1, 4) + BytesOf(0xFFFFFFFF, 4) +
           BytesOf(2, 4) + BytesOf(0, 4) + BytesOf(1000, 4) + BytesOf(500, 4) + BytesOf(data.size(), 4) + data;
}

/// The entity's data: its corners, from (0, 0) to (100, 50), and the compound file.
std::string ObjectData(const std::string& file)
{
    std::string data = "\x01\x55";
    for (const double value : {0.0, 50.0, 0.0, 100.0, 50.0, 0.0, 100.0, 0.0, 0.0, 0.0, 0.0, 0.0}) {
        data += BytesOf(std::bit_cast<std::uint64_t>(value), 8);
    }
    data.resize(124);
    return data + BytesOf(file.size(), 4) + file;
}

SmallDrawing DrawingWith(const std::string& data)
{
    SmallDrawing drawing;
    drawing.raw = "0\nOLE2FRAME\n8\n0\n70\n2\n10\n7\n20\n7\n30\n0\n11\n8\n21\n8\n31\n0\n90\n" +
                  std::to_string(data.size()) + "\n";
    constexpr std::size_t kChunk = 127;
    for (std::size_t at = 0; at < data.size(); at += kChunk) {
        drawing.raw += "310\n";
        for (const char c : data.substr(at, kChunk)) {
            const auto byte = static_cast<unsigned char>(c);
            drawing.raw += {"0123456789ABCDEF"[byte >> 4], "0123456789ABCDEF"[byte & 15]};
        }
        drawing.raw += "\n";
    }
    drawing.raw += "1\nOLE\n";
    return drawing;
}

constexpr const char* kPresentation = "\x02OlePres000";
const std::string kRed = std::string("\xFF\0\0\0", 4), kBlue = std::string("\0\0\xFF\0", 4);
/// A pen of one unit and of a colour, an empty brush, a full one.
const Record kPen{0x2FA, {0, 1, 0}, kRed}, kNoPen{0x2FA, {5, 0, 0}, kRed};
const Record kBrush{0x2FC, {0}, kBlue + BytesOf(0, 2)}, kNoBrush{0x2FC, {1}, kBlue + BytesOf(0, 2)};
const Record kSelectFirst{0x12D, {0}}, kSelectSecond{0x12D, {1}};

struct OlePictureRow {
    const char* name;
    std::vector<Record> records;
    Lines lines;
};

class MetafileTest : public testing::TestWithParam<OlePictureRow> {};

TEST_P(MetafileTest, IsDrawnInItsFrame)
{
    const std::string file = Compound({{kPresentation, Presentation(3, Window(GetParam().records))}});
    Lines lines = LinesOf(DrawingWith(ObjectData(file)));
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines.front(), "clip m 0 50 l 100 50 l 100 0 l 0 0 h");
    EXPECT_EQ(lines.back(), "pop");
    EXPECT_EQ(Lines(lines.begin() + 1, lines.end() - 1), GetParam().lines);
}

const OlePictureRow kOlePictureRows[] = {
    {"Line", {kPen, kSelectFirst, {0x214, {10, 20}}, {0x213, {10, 60}}}, {"stroke FF0000 1 m 20 40 l 60 40"}},
    {"LinesGoOn",
     {{0x214, {0, 0}}, {0x213, {10, 0}}, {0x213, {10, 30}}},
     {"stroke 000000 0 m 0 50 l 0 40", "stroke 000000 0 m 0 40 l 30 40"}},
    {"Polygon",
     {kNoPen, kSelectFirst, kBrush, kSelectSecond, {0x324, {3, 0, 0, 10, 0, 10, 10}}},
     {"fill 0000FF evenodd m 0 50 l 10 50 l 10 40 h"}},
    {"PolygonsByTheWindingRule",
     {kNoPen, kSelectFirst, kBrush, kSelectSecond, {0x106, {2}}, {0x538, {2, 2, 3, 0, 0, 5, 5, 0, 0, 10, 0, 10, 10}}},
     {"fill 0000FF nonzero m 0 50 l 5 45 h m 0 50 l 10 50 l 10 40 h"}},
    {"Polyline", {{0x325, {2, 0, 0, 10, 5}}}, {"stroke 000000 0 m 0 50 l 10 45"}},
    {"RectangleWithItsOutline",
     {kPen, kSelectFirst, kNoBrush, kSelectSecond, {0x41B, {20, 40, 10, 10}}},
     {"stroke FF0000 1 box 10 30 40 40"}},
    {"ObjectsTakeFreeNumbers",
     {kPen, kBrush, {0x1F0, {0}}, kNoPen, kSelectFirst, kSelectSecond, {0x41B, {20, 40, 10, 10}}},
     {"fill 0000FF evenodd box 10 30 40 40"}},
    {"StatesAreKeptAndPutBack",
     {{0x1E, {}}, kPen, kSelectFirst, {0x127, {-1}}, {0x214, {0, 0}}, {0x213, {0, 10}}},
     {"stroke 000000 0 m 0 50 l 10 50"}},
    {"Clip",
     {{0x416, {20, 30, 10, 10}}, {0x214, {0, 0}}, {0x213, {0, 10}}, {0x12C, {0}}, {0x213, {15, 20}}},
     {"clip box 10 30 30 40", "pop", "stroke 000000 0 m 10 50 l 20 35"}},
    {"BlockOfABrush",
     {kBrush, kSelectFirst, {0x940, {0x21, 0xF0, 0, 0, 0, 10, 20, 5, 5}}},
     {"fill 0000FF evenodd box 5 35 25 45"}},
    {"BlackBlock", {{0x61D, {0x42, 0, 10, 20, 5, 5}}}, {"fill 000000 evenodd box 5 35 25 45"}},
    {"Bitmap", {{0xF43, {0x20, 0xCC, 0, 1, 2, 0, 0, 10, 20, 5, 5}, TwoPixels()}}, {"image rgb 2x1 [20 0 0 10 5 35]"}},
    {"TextOnItsBaseLine",
     {{0x2FB, {-10, 0, 0, 0, 400, 0, 0, 0, 0}, "Arial" + std::string(27, '\0')},
      kSelectFirst,
      {0x209, {}, kRed},
      {0x12E, {24}},
      {0x521, {3}, "A\xE9g" + std::string(1, '\0') + BytesOf(20, 2) + BytesOf(10, 2)}},
     {"text FF0000 [7.16 0 0 7.16 10 30] \\fArial|b0|i0;A\u00E9g"}},
    {"TextOfAnotherCharacterSet",
     {{0x2FB, {-10, 0, 0, 0, 700, 1, static_cast<int>(204U << 8), 0, 0}, "Arial" + std::string(27, '\0')},
      kSelectFirst,
      {0x12E, {24}},
      {0xA32, {20, 10, 1, 0}, "\xC0" + std::string(1, '\0')}},
     {"text 000000 [7.16 0 0 7.16 10 30] \\fArial|b1|i1;\u0410"}},
};

INSTANTIATE_TEST_SUITE_P(Records, MetafileTest, testing::ValuesIn(kOlePictureRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(OleFrames, ShowBitmapsOfPresentationsAndOfTheirOwnData)
{
    const std::string file = "BM" + std::string(8, '\0') + BytesOf(54, 4) + TwoPixels();
    for (const auto& [name, stream] :
         std::vector<std::pair<std::string, std::string>>{{kPresentation, Presentation(8, TwoPixels())},
                                                          {"CONTENTS", file},
                                                          {"\x01Ole10Native", BytesOf(file.size(), 4) + file}}) {
        SCOPED_TRACE(name);
        EXPECT_THAT(
            LinesOf(DrawingWith(ObjectData(Compound({{"Workbook", "cells"}, {name, stream}})))),
            testing::ElementsAre("clip m 0 50 l 100 50 l 100 0 l 0 0 h", "image rgb 2x1 [100 0 0 50 0 0]", "pop"));
    }
}

TEST(OleFrames, WithoutAPictureShowTheirFrameAndAreTold)
{
    for (const std::string& file : {Compound({{"Workbook", "cells"}}), std::string("no compound file")}) {
        const Drawn drawn = Render(DrawingWith(ObjectData(file)));
        EXPECT_THAT(drawn.lines, testing::Contains("stroke 000000 0.25 m 0 50 l 100 50 l 100 0 l 0 0 h"));
        EXPECT_THAT(drawn.notDrawn, testing::ElementsAre("OLE2FRAME 0 1"));
        EXPECT_THAT(drawn.remarks,
                    testing::ElementsAre(
                        "an object of another program without a picture that can be read drawn as its frame 1"));
    }
}

TEST(OleFrames, WithoutDataHaveTheirCornersInGroups)
{
    SmallDrawing drawing;
    drawing.raw = "0\nOLE2FRAME\n8\n0\n10\n10\n20\n40\n30\n0\n11\n30\n21\n20\n31\n0\n";
    EXPECT_THAT(LinesOf(drawing), testing::ElementsAre("stroke 000000 0.25 m 10 40 l 30 40 l 30 20 l 10 20 h"));
}

TEST(OleFrames, RecordsThatNobodyKnowsAreTold)
{
    const std::string file = Compound({{kPresentation, Presentation(3, Window({{0x748, {1, 2}}, {0x213, {0, 10}}}))}});
    EXPECT_THAT(Render(DrawingWith(ObjectData(file))).remarks,
                testing::ElementsAre("a part of the picture of another program's object left out 1"));
}

TEST(OleFrames, DamagedObjectsEndNothing)
{
    const std::string file =
        Compound({{kPresentation, Presentation(3, Window({kPen, kSelectFirst, {0x213, {0, 10}}}))}});
    for (std::size_t length = 0; length < file.size(); length += 97) {
        ReadOlePicture(file.substr(0, length));
        std::string flipped = file;
        flipped[length] = static_cast<char>(~flipped[length]);
        ReadOlePicture(flipped);
    }
    EXPECT_EQ(ReadOlePicture(file).steps.size(), 1U);
}

TEST(OleFrames, TheHeaderOfPlaceableMetafilesGivesTheirWindow)
{
    const std::string header = BytesOf(0x9AC6CDD7, 4) + BytesOf(0, 2) + BytesOf(10, 2) + BytesOf(20, 2) +
                               BytesOf(60, 2) + BytesOf(40, 2) + std::string(8, '\0');
    const OlePicture picture = ReadMetafile(header + Metafile({{0x214, {20, 10}}, {0x213, {40, 60}}}));
    EXPECT_EQ(picture.width, 50);
    EXPECT_EQ(picture.height, 20);
    ASSERT_EQ(picture.steps.size(), 1U);
    EXPECT_EQ(RecordingCanvas::Points(picture.steps[0].path), " m 0 20 l 50 0");
}

/// A record of an enhanced metafile: its type, 32-bit numbers, bytes behind them.
struct WideRecord {
    unsigned type;
    std::vector<std::int64_t> numbers;
    std::string more = {};
};

/// An enhanced metafile whose frame is 100 by 50 pixels: 100 pixels are 100 millimetres.
std::string Enhanced(const std::vector<WideRecord>& records)
{
    std::string file = BytesOf(1, 4) + BytesOf(88, 4) + std::string(16, '\0') + BytesOf(0, 8) + BytesOf(10000, 4) +
                       BytesOf(5000, 4) + " EMF" + std::string(28, '\0') + BytesOf(100, 4) + BytesOf(100, 4) +
                       BytesOf(100, 4) + BytesOf(100, 4);
    for (const WideRecord& record : records) {
        std::string content;
        for (const std::int64_t number : record.numbers) {
            content += BytesOf(static_cast<std::uint32_t>(number), 4);
        }
        content += record.more;
        file += BytesOf(record.type, 4) + BytesOf(8 + content.size(), 4) + content;
    }
    return file + BytesOf(14, 4) + BytesOf(20, 4) + std::string(12, '\0');
}

struct WideRow {
    const char* name;
    std::vector<WideRecord> records;
    Lines lines;
};

class EnhancedMetafileTest : public testing::TestWithParam<WideRow> {};

TEST_P(EnhancedMetafileTest, IsDrawnInItsFrame)
{
    const std::string file = Compound({{kPresentation, Presentation(14, Enhanced(GetParam().records))}});
    Lines lines = LinesOf(DrawingWith(ObjectData(file)));
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines.front(), "clip m 0 50 l 100 50 l 100 0 l 0 0 h");
    EXPECT_EQ(Lines(lines.begin() + 1, lines.end() - 1), GetParam().lines);
}

std::string Shorts(const std::vector<int>& values)
{
    std::string bytes;
    for (const int value : values) {
        bytes += BytesOf(static_cast<std::uint16_t>(value), 2);
    }
    return bytes;
}

/// A red pen of two units, and a blue brush without a pen.
const WideRecord kRedPen{38, {1, 0, 2, 0, 0xFF}}, kSelectOne{37, {1}}, kBlueBrush{39, {1, 0, 0xFF0000, 0}},
    kStockNoPen{37, {0x80000008}};

const WideRow kWideRows[] = {
    {"Line", {kRedPen, kSelectOne, {27, {10, 20}}, {54, {60, 20}}}, {"stroke FF0000 2 m 10 30 l 60 30"}},
    {"PolygonOfShortPoints",
     {kStockNoPen, kBlueBrush, kSelectOne, {86, {0, 0, 0, 0, 3}, Shorts({0, 0, 10, 0, 10, 10})}},
     {"fill 0000FF evenodd m 0 50 l 10 50 l 10 40 h"}},
    {"CurveOfLongPoints",
     {{2, {0, 0, 0, 0, 4, 0, 0, 10, 0, 20, 10, 30, 10}}},
     {"stroke 000000 0 m 0 50 c 10 50 20 40 30 40"}},
    {"PolygonsByTheWindingRule",
     {kStockNoPen,
      kBlueBrush,
      kSelectOne,
      {19, {2}},
      {91, {0, 0, 0, 0, 2, 5, 2, 3}, Shorts({0, 0, 5, 5, 0, 0, 10, 0, 10, 10})}},
     {"fill 0000FF nonzero m 0 50 l 5 45 h m 0 50 l 10 50 l 10 40 h"}},
    {"AWindowScales",
     {{17, {8}}, {9, {1000, 500}}, {11, {100, 50}}, kRedPen, kSelectOne, {27, {100, 200}}, {54, {600, 200}}},
     {"stroke FF0000 0.2 m 10 30 l 60 30"}},
    {"AWorldTurns", // by a quarter
     {{35,
       {},
       BytesOf(0, 4) + BytesOf(0x3F800000, 4) + BytesOf(0xBF800000, 4) + BytesOf(0, 4) + BytesOf(0x41A00000, 4) +
           BytesOf(0, 4)},
      {27, {0, 0}},
      {54, {10, 0}}},
     {"stroke 000000 0 m 20 50 l 20 40"}},
    {"StatesAreKeptAndPutBack",
     {{33, {}}, kRedPen, kSelectOne, {34, {-1}}, {27, {0, 0}}, {54, {10, 0}}},
     {"stroke 000000 0 m 0 50 l 10 50"}},
    {"APathIsFilledAndStroked",
     {{39, {1, 0, 0xFF0000, 0}},
      kSelectOne,
      {59, {}},
      {27, {0, 0}},
      {54, {10, 0}},
      {54, {10, 10}},
      {61, {}},
      {60, {}},
      {63, {0, 0, 0, 0}}},
     {"fill 0000FF evenodd m 0 50 l 10 50 l 10 40 h", "stroke 000000 0 m 0 50 l 10 50 l 10 40 h"}},
    {"Bitmap",
     {{81, {0, 0, 0, 0, 5, 5, 0, 0, 2, 1, 80, 40, 120, 8, 0, 0xCC0020, 20, 10}, TwoPixels()}},
     {"image rgb 2x1 [20 0 0 10 5 35]"}},
    {"TextWithAFont",
     {{82, {1, -10, 0, 0, 0, 700, 0, 0}, Shorts({'A', 'r', 'i', 'a', 'l', 0}) + std::string(52, '\0')},
      kSelectOne,
      {22, {24}},
      {24, {0xFF}},
      {84, {0, 0, 0, 0, 1, 0, 0, 10, 20, 2, 76, 0, 0, 0, 0, 0, 0}, Shorts({0x416, 'a'})}},
     {"text FF0000 [7.16 0 0 7.16 10 30] \\fArial|b1|i0;\u0416a"}},
};

INSTANTIATE_TEST_SUITE_P(Records, EnhancedMetafileTest, testing::ValuesIn(kWideRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(OleFrames, DamagedEnhancedMetafilesEndNothing)
{
    std::string file;
    for (const WideRow& row : kWideRows) {
        file = Enhanced(row.records);
        for (std::size_t i = 0; i < file.size(); ++i) {
            std::string flipped = file;
            flipped[i] = static_cast<char>(~flipped[i]);
            ReadMetafile(flipped);
            ReadMetafile(file.substr(0, i));
        }
    }
    EXPECT_EQ(ReadMetafile(file).steps.size(), 1U);
}

} // namespace
} // namespace sm::render
