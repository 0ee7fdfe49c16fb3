// SPDX-License-Identifier: GPL-3.0-or-later
// Page bodies become compressed content streams part by part.
#include "dialect/DialectPage.h"
#include "dialect/PackedBody.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace sm::publisher {
namespace {

/// Some megabytes of lines and texts; line `odd` is `instead`.
std::string Body(int odd = -1, const std::string& instead = "")
{
    std::string body;
    for (int i = 0; i < 60000; ++i) {
        const std::string n = std::to_string(i);
        body += i == odd ? instead
                         : n + " 20 m\n30 " + n + " l\nS\nBT\n/F1 8 Tf\n1 " + n + " Td\n(S\x20" + n + ") Tj\nET\n";
    }
    return body;
}

class PackedBody : public testing::Test {
protected:
    PackedBody() : m_path((std::filesystem::temp_directory_path() / ("packed-" + std::to_string(::getpid()))).string())
    {
    }
    ~PackedBody() override { std::filesystem::remove(m_path); }

    /// What the streams of a body say together; "(refused)" when there are none.
    std::string Unpacked(const std::string& body, std::size_t* count = nullptr)
    {
        std::ofstream(m_path, std::ios::binary) << body;
        std::error_code unreadable;
        const base::MappedFile file(m_path, base::MappedFile::Reading::InParts, unreadable);
        Deflater deflater;
        const auto packed = PackDialectBody(file, file.Bytes(), 0, deflater);
        if (!packed)
            return "(refused)";
        QPDF pdf;
        pdf.emptyPDF();
        std::string all;
        for (const auto& part : packed->parts) {
            auto stream = pdf.newStream();
            stream.replaceStreamData(part, QPDFObjectHandle::newName("/FlateDecode"), QPDFObjectHandle::newNull());
            const auto data = stream.getStreamData();
            all.append(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
        }
        if (count != nullptr)
            *count = packed->parts.size();
        return all;
    }

private:
    std::string m_path;
};

TEST_F(PackedBody, KeepsEveryByteInOrder)
{
    const std::string body = Body();
    std::size_t count = 0;
    EXPECT_TRUE(Unpacked(body, &count) == body);
    EXPECT_GE(count, 3u);
    EXPECT_EQ(Unpacked("0 g\n"), "0 g\n");
}

TEST_F(PackedBody, RefusesAFaultInAnyPart)
{
    for (const int line : {0, 30000, 59999}) {
        EXPECT_EQ(Unpacked(Body(line, "1 2 moveto\n")), "(refused)") << line;
        EXPECT_EQ(Unpacked(Body(line, "Q\n")), "(refused)") << line;
        EXPECT_EQ(Unpacked(Body(line, "q\n")), "(refused)") << line;
        EXPECT_EQ(Unpacked(Body(line, "Q\nq\n")), "(refused)") << line;
    }
    EXPECT_NE(Unpacked(Body(7, "q\nQ\n")), "(refused)");
}

TEST(DialectBody, IsCutBehindStrokes)
{
    EXPECT_EQ(CutDialectBody("0 0 m\n1 1 l\nS\nBT\nS\n0 0 m\n", 2),
              (std::vector<std::string_view>{"0 0 m\n1 1 l\nS\n", "BT\nS\n", "0 0 m\n"}));
    EXPECT_EQ(CutDialectBody("0 0 m\n", 100), (std::vector<std::string_view>{"0 0 m\n"}));
    EXPECT_TRUE(CutDialectBody("", 100).empty());
}

} // namespace
} // namespace sm::publisher
