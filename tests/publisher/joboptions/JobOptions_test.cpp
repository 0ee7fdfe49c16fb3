// SPDX-License-Identifier: GPL-3.0-or-later
#include "publisher/JobOptions.h"

#include "pdf/PublishStatus.h"
#include "publisher/PublisherStand.h"

#include <algorithm>
#include <filesystem>

namespace sm::publisher {
namespace {

std::string Utf16(const std::string& text, bool bigEndian, bool mark)
{
    std::string bytes = !mark ? "" : bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text) {
        bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    }
    return bytes;
}

std::string Refusal(const std::string& text)
{
    try {
        ParseJobOptions(text, "Any.joboptions");
    } catch (const PublishFailure& failure) {
        EXPECT_EQ(static_cast<std::int32_t>(failure.Status()), -4);
        return failure.what();
    }
    return "accepted";
}

struct Accepted {
    std::string name, text, clean;
    std::vector<std::string> leftOut;
};

TEST(JobOptions, KeepsWhatThePagesNeedAndLeavesOutTheRest)
{
    const std::string plain = "<< /ColorImageResolution 300 >> setdistillerparams";
    const std::string clean = "/ColorImageResolution 300\n";
    const std::vector<Accepted> rows = {
        {"plain", plain, clean, {}},
        {"UTF-8 mark", "\xEF\xBB\xBF" + plain, clean, {}},
        {"UTF-16 little endian", Utf16(plain, false, true), clean, {}},
        {"UTF-16 big endian", Utf16(plain, true, true), clean, {}},
        {"UTF-16 without mark", Utf16(plain, false, false), clean, {}},
        {"comments and Macintosh line ends",
         "% first\r<<% second\r/ColorImageResolution 300\r>>\rsetdistillerparams\r",
         clean,
         {}},
        {"page device at the end",
         plain + "\n<< /HWResolution [2400 2400] /PageSize [612 792] >> setpagedevice",
         clean,
         {"setpagedevice"}},
        {"later setting wins",
         "<< /SubsetFonts true /SubsetFonts false >> setdistillerparams",
         "/SubsetFonts false\n",
         {}},
        {"later dictionary wins", "<< /OPM 0 >> setdistillerparams << /OPM 1 >> setdistillerparams", "/OPM 1\n", {}},
        {"numbers",
         "<< /ColorImageDownsampleThreshold 1.50 /CompatibilityLevel 1.4 /ColorImageDepth -1 >> "
         "setdistillerparams",
         "/ColorImageDownsampleThreshold 1.5\n/CompatibilityLevel 1.4\n/ColorImageDepth -1\n",
         {}},
        {"unknown and unwanted settings",
         "<< /LockDistillerParams true /AutoRotatePages /All /CompressPages false /StartPage 1 /Future [1 (a\\)b) "
         "<</X null>>] /Optimize true >> setdistillerparams",
         "",
         {"LockDistillerParams", "AutoRotatePages", "CompressPages", "StartPage", "Future"}},
        {"filters that aren't written",
         "<< /ColorImageFilter /JPXEncode /MonoImageFilter /JBIG2Encode >> "
         "setdistillerparams",
         "/ColorImageFilter /DCTEncode\n/MonoImageFilter /CCITTFaxEncode\n",
         {}},
        {"no downsampling",
         "<< /ColorImageDownsampleType /None >> setdistillerparams",
         "",
         {"ColorImageDownsampleType"}},
        {"image dictionary",
         "<< /GrayImageDict << /QFactor 0.4 /HSamples [2 1 1 2] /VSamples [1 1 1] /Other (x) /K -1 "
         ">> >> setdistillerparams",
         "/GrayImageDict << /QFactor 0.4 /HSamples [2 1 1 2] /VSamples [1 1 1] /K -1 >>\n",
         {}},
        {"font lists",
         "<< /AlwaysEmbed [true /Arial /Times-Roman] /NeverEmbed [] >> setdistillerparams",
         "/AlwaysEmbed [/Arial /Times-Roman]\n/NeverEmbed []\n",
         {}},
        {"strings with line ends, escapes and hex",
         "<< /Description << /ENU (two\nlines \\(x\\) \\101) /DEU <FEFF 0041> >> /OPM 1 >> setdistillerparams",
         "/OPM 1\n",
         {"Description"}},
    };
    for (const Accepted& row : rows) {
        SCOPED_TRACE(row.name);
        const JobOptions options = ParseJobOptions(row.text, "Any.joboptions");
        EXPECT_EQ(options.text, row.clean);
        EXPECT_EQ(options.leftOut, row.leftOut);
    }
}

TEST(JobOptions, RefusesWithFileLineAndRemedy)
{
    const std::string anew = "Save the job options anew or choose other ones.";
    const std::string correct = "Correct the value or choose other job options.";
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"", "line 1: the file holds no job options. " + anew},
        {"% nothing\n\n", "line 3: the file holds no job options. " + anew},
        {"<< /OPM 1 >>", "line 1: \"setdistillerparams\" is missing after the \">>\". " + anew},
        {"<< /OPM 1 >> setpagedevice", "line 1: the file holds no job options. " + anew},
        {"<< /OPM 1\n>>\nquit", "line 3: \"setdistillerparams\" is missing after the \">>\". " + anew},
        {"quit", "line 1: \"quit\" is no value. " + anew},
        {"{} loop", "line 1: program text in braces is not allowed. Remove it or choose other job options."},
        {"<< /OPM {1} >> setdistillerparams",
         "line 1: program text in braces is not allowed. Remove it or choose other job options."},
        {"<< /OPM showpage >> setdistillerparams", "line 1: \"showpage\" is no value. " + anew},
        {"<< /OPM\n", "line 1: the \"<<\" of this line is never closed. " + anew},
        {"\n<< /A [1 2\n", "line 2: the \"[\" of this line is never closed. " + anew},
        {"<< /A (abc", "line 1: the string that begins here is never closed. " + anew},
        {"<< /A (abc\\", "line 1: the string that begins here is never closed. " + anew},
        {"<< /A <12", "line 1: a hexadecimal string holds something else than digits or is never closed. " + anew},
        {"<< /A <1z> >>", "line 1: a hexadecimal string holds something else than digits or is never closed. " + anew},
        {"<< /OPM >> setdistillerparams", "line 1: /OPM has no value. " + anew},
        {"<< OPM 1 >> setdistillerparams", "line 1: \"OPM\" is no value. " + anew},
        {"<< 1 1 >> setdistillerparams", "line 1: a setting's name, which begins with \"/\", is expected. " + anew},
        {"[ 1 ] setdistillerparams", "line 1: \"<<\" is expected. " + anew},
        {"<< /OPM 1 ) >> setdistillerparams", "line 1: \")\" stands where a value is expected. " + anew},
        {"<<\n/SubsetFonts 1\n>> setdistillerparams", "line 2: /SubsetFonts must be true or false. " + correct},
        {"<< /ColorImageResolution 5 >> setdistillerparams",
         "line 1: /ColorImageResolution must be a whole number from 9 to 4800. " + correct},
        {"<< /ColorImageResolution 300.5 >> setdistillerparams",
         "line 1: /ColorImageResolution must be a whole number from 9 to 4800. " + correct},
        {"<< /CompatibilityLevel 1e300 >> setdistillerparams",
         "line 1: /CompatibilityLevel must be a number from 1.2 to 1.7. " + correct},
        {"<< /ImageMemory 1e999 >> setdistillerparams", "line 1: \"1e999\" is no value. " + anew},
        {"<< /ImageMemory nan >> setdistillerparams", "line 1: \"nan\" is no value. " + anew},
        {"<< /ColorImageFilter /LZWEncode >> setdistillerparams",
         "line 1: /ColorImageFilter must be one of /DCTEncode, /FlateEncode, /JPXEncode. " + correct},
        {"<< /ColorImageDict 3 >> setdistillerparams",
         "line 1: /ColorImageDict must be a dictionary in << >>. " + correct},
        {"<< /ColorImageDict << /HSamples [1 2 3 9] >> >> setdistillerparams",
         "line 1: /HSamples must be an array of three or four whole numbers from 1 to 4. " + correct},
        {"<< /NeverEmbed [(a)] >> setdistillerparams",
         "line 1: /NeverEmbed must be an array of font names. " + correct},
        {"<<\n/CheckCompliance [/PDFA1B:2005]\n>> setdistillerparams",
         "line 2: /CheckCompliance asks for a document by PDF/A or PDF/X, which isn't made. Take the setting out or "
         "choose other job options."},
        {"<< /PDFX1aCheck true >> setdistillerparams",
         "line 1: /PDFX1aCheck asks for a document by PDF/A or PDF/X, which isn't made. Take the setting out or choose "
         "other job options."},
        {"<< /PDFA (2b) >> setdistillerparams",
         "line 1: /PDFA asks for a document by PDF/A or PDF/X, which isn't made. Take the setting out or choose other "
         "job options."},
        {"<< /SheetmakerPdfA /1b >> setdistillerparams", "line 1: /SheetmakerPdfA must be one of /2b, /3b. " + correct},
        {"<< /Optimize 1 >> setdistillerparams", "line 1: /Optimize must be true or false. " + correct},
        {"<< /A " + std::string(40, '[') + std::string(40, ']') + " >> setdistillerparams",
         "line 1: brackets are nested too deeply. " + anew},
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(Refusal(text), "Any.joboptions, " + expected) << text;
    }
}

TEST(JobOptions, EveryTruncationOfAFileIsReadOrRefused)
{
    const std::string whole = ReadFile(SM_SOURCE_DIR "/share/sheetmaker-pdf/Settings/Graphics [600 dpi].joboptions");
    ASSERT_EQ(ParseJobOptions(whole, "x").leftOut, std::vector<std::string>{});
    for (std::size_t size = 0; size + 1 < whole.size(); ++size) {
        EXPECT_NE(Refusal(whole.substr(0, size)), "accepted") << size;
    }
}

class JobOptionsFiles : public PublisherTest {
protected:
    static std::string FileRefusal(const std::string& path)
    {
        try {
            ReadJobOptionsFile(path);
        } catch (const PublishFailure& failure) {
            return failure.what();
        }
        return "accepted";
    }
};

TEST_F(JobOptionsFiles, WhatIsNoReadableFileIsRefused)
{
    const std::string remedy = ". Choose other job options or put the file in place.";
    EXPECT_EQ(FileRefusal(Out("none.joboptions")),
              "The job options file " + Out("none.joboptions") + " does not exist" + remedy);
    EXPECT_EQ(FileRefusal(m_root), "The job options file " + m_root + " is not an ordinary file" + remedy);
    const std::string large = JobOptionsFile("large.joboptions", std::string(2 << 20, ' '));
    EXPECT_EQ(FileRefusal(large), "The job options file " + large + " is larger than 1 MB" + remedy);
    EXPECT_EQ(ReadJobOptionsFile("").text, "");
}

TEST(JobOptions, TakesTheSettingOfLayersForItself)
{
    const JobOptions options =
        ParseJobOptions("<< /SheetmakerLayers true /DetectBlends true >> setdistillerparams", "x");
    EXPECT_TRUE(options.layers);
    EXPECT_EQ(options.text, "/DetectBlends true\n");
    EXPECT_EQ(options.leftOut, std::vector<std::string>{});
    EXPECT_FALSE(ParseJobOptions("<< /SheetmakerLayers false >> setdistillerparams", "x").layers);
    EXPECT_THROW(ParseJobOptions("<< /SheetmakerLayers 1 >> setdistillerparams", "x"), PublishFailure);
}

TEST_F(JobOptionsFiles, EveryShippedFileIsAcceptedWhole)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(SM_SOURCE_DIR "/share/sheetmaker-pdf/Settings")) {
        if (entry.path().extension() == ".joboptions") {
            names.push_back(entry.path().stem().string());
            EXPECT_EQ(ReadJobOptionsFile(entry.path().string()).leftOut, std::vector<std::string>{}) << entry.path();
        }
    }
    const std::string settings = SM_SOURCE_DIR "/share/sheetmaker-pdf/Settings/";
    EXPECT_TRUE(AsksForLayers(settings + "Graphics with layers [600 dpi].joboptions"));
    EXPECT_FALSE(AsksForLayers(settings + "Graphics [600 dpi].joboptions"));
    EXPECT_FALSE(AsksForLayers(settings + "no such file"));
    EXPECT_EQ(ReadJobOptionsFile(settings + "Archive [PDF-A].joboptions").archive, Archive::A2b);
    EXPECT_EQ(ReadJobOptionsFile(settings + "Lossless Archive [600 dpi].joboptions").archive, Archive::None);
    EXPECT_EQ(ParseJobOptions("<< /SheetmakerPdfA /3b >> setdistillerparams", "x").archive, Archive::A3b);
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"Archive [PDF-A]", "Check Print [300 dpi]", "Graphics [600 dpi]",
                                               "Graphics with layers [600 dpi]", "Greyscale [600 dpi]",
                                               "Lossless Archive [600 dpi]", "Print [1200 dpi]",
                                               "Screen and E-mail [150 dpi]"}));
}

TEST(JobOptions, SayHowTheDocumentIsWritten)
{
    struct Row {
        const char* settings;
        bool optimize;
        double level;
    };
    const Row rows[] = {
        {"/OPM 1", false, 1.7},
        {"/Optimize true", true, 1.7},
        {"/Optimize true /Optimize false", false, 1.7},
        {"/CompatibilityLevel 1.4", false, 1.4},
        {"/CheckCompliance [/None] /PDFX1aCheck false /PDFX3Check null /PDFA 0", false, 1.7},
    };
    for (const Row& row : rows) {
        const JobOptions options =
            ParseJobOptions("<< " + std::string(row.settings) + " >> setdistillerparams", "Any.joboptions");
        EXPECT_EQ(options.optimize, row.optimize) << row.settings;
        EXPECT_EQ(options.level, row.level) << row.settings;
    }
}

} // namespace
} // namespace sm::publisher
