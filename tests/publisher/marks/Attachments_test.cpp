// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are embedded: small and large ones, one file under several names, and those that can't be.
#include "publisher/PublisherStand.h"

#include <filesystem>

namespace sm::publisher {
namespace {

/// What lists the files of the document finds one in its catalogue and at the icon on its page.
std::string ListedTwice(const std::string& name)
{
    return "2 embedded files\n1: " + name + "\n2: " + name + "\n";
}

using Lines = std::vector<std::string>;

constexpr std::size_t kLarge = std::size_t{9} << 20; // larger than what is held in memory

/// Bytes that repeat, or that nothing makes smaller.
std::string Bytes(std::size_t size, bool repeats)
{
    std::string bytes(size, '\0');
    std::uint64_t state = 88172645463325252U;
    for (std::size_t i = 0; i < size; ++i) {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        bytes[i] = static_cast<char>(repeats ? i % 251 : state >> 11);
    }
    return bytes;
}

class AttachmentsTest : public PublisherTest {
protected:
    AttachmentsTest() : m_doc(Library()->CreatePubDoc()) {}

    bool Attach(const std::string& path)
    {
        if (m_pages++ == 0) {
            EXPECT_EQ(m_doc->AddPsFile(NewPage(*m_doc), 400, 500, 600, 1, ""), 0) << m_doc->LastErrorText();
        }
        bool added = false;
        EXPECT_EQ(m_doc->AddAttachmentMark(0, 100, 100, path, added), 0);
        return added;
    }
    std::string Save()
    {
        EXPECT_EQ(m_doc->SaveToPdf(Out("marked.pdf"), 0, false, true), 0) << m_doc->LastErrorText();
        const ToolResult checked = RunTool("qpdf --check " + Out("marked.pdf"));
        EXPECT_EQ(checked.exitCode, 0) << checked.output;
        return Out("marked.pdf");
    }
    std::string Detached(const std::string& pdf, int number) const
    {
        EXPECT_EQ(RunTool("pdfdetach -save " + std::to_string(number) + " -o " + Out("back") + " " + pdf).exitCode, 0);
        return ReadFile(Out("back"));
    }
    std::string Sum(const std::string& path) const { return RunTool("md5sum < " + path).output.substr(0, 32); }

    std::shared_ptr<IPubDoc> m_doc;
    int m_pages = 0;
};

struct SizeRow {
    const char* name;
    std::size_t size;
    bool repeats;
    std::uintmax_t least, most; ///< bytes of the PDF
};

class AttachedSizes : public AttachmentsTest, public testing::WithParamInterface<SizeRow> {};

TEST_P(AttachedSizes, ComeBackByteForByteWithSizeAndChecksum)
{
    const SizeRow& row = GetParam();
    const std::string bytes = Bytes(row.size, row.repeats);
    WriteFile(Out("report.bin"), bytes);
    RunTool("touch -d '2020-02-29 23:59:58 UTC' " + Out("report.bin"));
    EXPECT_TRUE(Attach(Out("report.bin")));
    const std::string pdf = Save();
    EXPECT_EQ(RunTool("pdfdetach -list " + pdf).output, ListedTwice("report.bin"));
    EXPECT_TRUE(Detached(pdf, 1) == bytes);
    const std::string parameters = RunTool("mutool show " + pdf + " pages/1/Annots/1/FS/EF/F/Params").output;
    EXPECT_NE(parameters.find("/Size " + std::to_string(row.size) + "\n"), std::string::npos) << parameters;
    EXPECT_NE(parameters.find("/ModDate (D:20200229235958Z)\n"), std::string::npos) << parameters;
    EXPECT_EQ(RunTool("qpdf --json=2 --json-key=qpdf " + pdf + " | grep -o '\"/CheckSum\": .*\"'").output,
              "\"/CheckSum\": \"b:" + Sum(Out("report.bin")) + "\"\n");
    EXPECT_GE(m_reports.at(0).pdfBytes, row.least);
    EXPECT_LE(m_reports.at(0).pdfBytes, row.most);
    EXPECT_EQ(m_reports.at(0).pdfBytes, std::filesystem::file_size(pdf));
    EXPECT_EQ(m_reports.at(0).embedded, (std::vector<EmbeddedFile>{{"report.bin", Out("report.bin"), row.size}}));
    EXPECT_EQ(m_notes, Lines{});
}

INSTANTIATE_TEST_SUITE_P(Files, AttachedSizes,
                         testing::Values(SizeRow{"OneByte", 1, true, 1000, 20000},
                                         SizeRow{"SmallRepeating", 1 << 20, true, 1000, 40000},
                                         SizeRow{"LargeRepeating", kLarge, true, 10000, 200000},
                                         SizeRow{"LargePacked", kLarge, false, kLarge, kLarge + 20000}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(AttachmentsTest, SeveralLargeOnesAndASmallOneStandTogether)
{
    const std::string first = Bytes(kLarge, true), second = Bytes(kLarge + 1, false), small = Bytes(5000, true);
    WriteFile(Out("first.bin"), first);
    WriteFile(Out("second.bin"), second);
    WriteFile(Out("small.bin"), small);
    for (const char* name : {"first.bin", "small.bin", "second.bin"}) {
        EXPECT_TRUE(Attach(Out(name)));
    }
    const std::string pdf = Save();
    EXPECT_EQ(RunTool("pdfdetach -list " + pdf).output,
              "6 embedded files\n1: first.bin\n2: second.bin\n3: small.bin\n4: first.bin\n5: small.bin\n6: "
              "second.bin\n");
    EXPECT_TRUE(Detached(pdf, 1) == first);
    EXPECT_TRUE(Detached(pdf, 2) == second);
    EXPECT_TRUE(Detached(pdf, 3) == small);
    EXPECT_TRUE(Detached(pdf, 6) == second);
    EXPECT_EQ(RunTool("pdfinfo " + pdf + " | grep -c '^Pages: *1$'").output, "1\n");
    EXPECT_EQ(RunTool("mutool show " + pdf + " trailer/Info/Producer").output, "(Test Producer 1.0)\n");
}

TEST_F(AttachmentsTest, OneFileUnderSeveralNamesIsEmbeddedOnce)
{
    for (const std::size_t size : {kLarge, std::size_t{70000}}) {
        const std::string bytes = Bytes(size, false);
        WriteFile(Out("first.bin"), bytes);
        std::filesystem::create_hard_link(Out("first.bin"), Out("second.bin"));
        m_pages = 0;
        m_doc = Library()->CreatePubDoc();
        for (const char* name : {"first.bin", "second.bin", "first.bin"}) {
            EXPECT_TRUE(Attach(Out(name)));
        }
        const std::string pdf = Save();
        EXPECT_LE(std::filesystem::file_size(pdf), size + 20000);
        EXPECT_EQ(m_reports.back().embedded, (std::vector<EmbeddedFile>{{"first.bin", Out("first.bin"), size},
                                                                        {"second.bin", Out("second.bin"), size}}));
        EXPECT_TRUE(Detached(pdf, 2) == bytes);
        std::filesystem::remove(Out("first.bin"));
        std::filesystem::remove(Out("second.bin"));
    }
}

TEST_F(AttachmentsTest, WhatIsRefusedIsNotAddedAndTold)
{
    m_options.refuseAttachment = [](const std::string&, std::uint64_t bytes) {
        return bytes > 10 ? "it has " + std::to_string(bytes) + " bytes" : std::string();
    };
    m_doc = Library()->CreatePubDoc();
    WriteFile(Out("ten.txt"), "0123456789");
    WriteFile(Out("eleven.txt"), "0123456789a");
    EXPECT_TRUE(Attach(Out("ten.txt")));
    EXPECT_FALSE(Attach(Out("eleven.txt")));
    EXPECT_FALSE(Attach(Out("gone.txt")));
    EXPECT_FALSE(Attach(m_root));
    EXPECT_FALSE(Attach("/dev/null"));
    std::filesystem::create_symlink("/proc/self/status", Out("status.txt"));
    EXPECT_FALSE(Attach(Out("status.txt")));
    const std::string pdf = Save();
    EXPECT_EQ(RunTool("pdfdetach -list " + pdf).output, ListedTwice("ten.txt"));
    EXPECT_EQ(m_notes,
              (Lines{"Page 1: the file " + Out("eleven.txt") + " could not be attached: it has 11 bytes",
                     "Page 1: the file " + Out("gone.txt") + " could not be attached: there is no such file",
                     "Page 1: the file " + m_root + " could not be attached: it is a folder",
                     "Page 1: the file /dev/null could not be attached: it is not an ordinary file",
                     "Page 1: the file " + Out("status.txt") + " could not be attached: it is not an ordinary file"}));
    EXPECT_EQ(m_reports.at(0).attachmentsLost,
              (Lines{Out("eleven.txt"), Out("gone.txt"), m_root, "/dev/null", Out("status.txt")}));
}

TEST_F(AttachmentsTest, ALargeFileThatIsCutWhileItIsReadFailsTheSave)
{
    // The note on the second file comes when the first is embedded but its bytes aren't read yet.
    m_options.observer.note = [this](const std::string& line) {
        m_notes.push_back(line);
        std::filesystem::resize_file(Out("report.bin"), kLarge - 1);
    };
    m_doc = Library()->CreatePubDoc();
    WriteFile(Out("report.bin"), Bytes(kLarge, true));
    WriteFile(Out("gone.txt"), "x");
    EXPECT_TRUE(Attach(Out("report.bin")));
    EXPECT_TRUE(Attach(Out("gone.txt")));
    std::filesystem::remove(Out("gone.txt"));
    WriteFile(Out("marked.pdf"), "old");
    EXPECT_EQ(m_doc->SaveToPdf(Out("marked.pdf"), 0, false, true), -1);
    EXPECT_EQ(m_doc->LastErrorText(), "The attached file " + Out("report.bin") +
                                          " changed while it was read. Save again when nobody writes to it.");
    EXPECT_EQ(m_notes,
              Lines{"Page 1: the file " + Out("gone.txt") + " could not be attached: it can't be read any more"});
    EXPECT_EQ(ReadFile(Out("marked.pdf")), "old");
    EXPECT_EQ(ListTree(m_root + "/out"), (Lines{"marked.pdf", "report.bin"}));
}

} // namespace
} // namespace sm::publisher
