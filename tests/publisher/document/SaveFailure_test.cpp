// SPDX-License-Identifier: GPL-3.0-or-later
#include "publisher/PublisherStand.h"

#include <csignal>
#include <filesystem>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sm::publisher {
namespace {

using Names = std::vector<std::string>;

class SaveFailure : public PublisherTest {
protected:
    /// Saves a good page followed by `body` as page 2; the target held "old" and must go on holding it.
    void ExpectRefusal(const std::string& body, std::int32_t status, const std::string& text)
    {
        SCOPED_TRACE(body.substr(0, 60));
        WriteFile(Out("plan.pdf"), "old");
        auto doc = Library()->CreatePubDoc();
        const std::string second = PostScript("second.ps", body);
        ASSERT_EQ(doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, ""), 0);
        ASSERT_EQ(doc->AddPsFile(second, 300, 400, 600, 1, ""), 0) << doc->LastErrorText();
        EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, true, true), status);
        EXPECT_EQ(doc->LastErrorText(), text);
        ExpectNothingLeft(doc, "plan.pdf", "second.ps");
    }

    void ExpectNothingLeft(std::shared_ptr<IPubDoc>& doc, const std::string& target, const std::string& input)
    {
        EXPECT_EQ(ReadFile(Out(target)), "old");
        EXPECT_EQ(ListTree(m_root + "/out"), (Names{target, input}));
        EXPECT_EQ(ListTree(m_root + "/work").size(), 2U); // the document's folder and the first page's file
        EXPECT_EQ(m_desktop.opened, Names{});
        doc.reset();
        EXPECT_EQ(ListTree(m_root + "/work"), Names{});
    }
};

TEST_F(SaveFailure, PostScriptErrorsNameThePageTheFileAndTheLine)
{
    const std::string path = Out("second.ps");
    const auto error = [&](const std::string& what) { return "Page 2: its PostScript " + what + "."; };
    ExpectRefusal("%!\n\nfoo bar\nshowpage\n", -2,
                  error("ended with the error \"undefined\" in \"foo\" (" + path + ", line 3)"));
    ExpectRefusal("%!\r1 0 div\rshowpage\r", -2,
                  error("ended with the error \"undefinedresult\" in \"div\" (" + path + ", line 2)"));
    ExpectRefusal("%!\n(unterminated", -2, error("ended with the error \"syntaxerror\" (" + path + ", line 2)"));
    ExpectRefusal("%!\nquit\n", -2, error("stopped the interpreter before its end (" + path + ")"));
    ExpectRefusal("%!\n", -2, error("made 0 pages instead of one (" + path + ")"));
    ExpectRefusal("%!\nshowpage showpage\n", -2, error("made 2 pages instead of one (" + path + ")"));
    ExpectRefusal("%!\n(\\n) print stop showpage\n", -2, error("stopped itself (" + path + ", line 2)"));
}

TEST_F(SaveFailure, PostScriptCannotReachOtherFiles)
{
    WriteFile(m_root + "/secret", "secret text");
    const std::string denied = "Page 2: its PostScript ended with the error \"invalidfileaccess\" in \"file\" (" +
                               Out("second.ps") + ", line 2).";
    ExpectRefusal("%!\n(" + m_root + "/secret) (r) file pop showpage\n", -2, denied);
    ExpectRefusal("%!\n(" + m_root + "/written) (w) file pop showpage\n", -2, denied);
    ExpectRefusal("%!\n(%pipe%touch " + m_root + "/piped) (w) file pop showpage\n", -2, denied);
    EXPECT_FALSE(std::filesystem::exists(m_root + "/piped"));
    EXPECT_FALSE(std::filesystem::exists(m_root + "/written"));
}

TEST_F(SaveFailure, PostScriptWithoutEndIsStopped)
{
    m_options.deadline = std::chrono::milliseconds{1500};
    const std::string text = "Page 2: its PostScript took more time than allowed.";
    ExpectRefusal("%!\n{} loop\n", -6, text);
    ExpectRefusal("%!\n{ {(x) print} stopped pop } loop\n", -6, text);
}

TEST_F(SaveFailure, HostileNumbersAndMemoryEndInAnError)
{
    const std::string at = " (" + Out("second.ps") + ", line 2).";
    const auto error = [&](const std::string& name, const std::string& command) {
        return "Page 2: its PostScript ended with the error \"" + name + "\" in \"" + command + "\"" + at;
    };
    ExpectRefusal("%!\n1e38 1e38 mul pop showpage\n", -2, error("undefinedresult", "mul"));
    ExpectRefusal("%!\n99999999999 array pop showpage\n", -2, error("limitcheck", "array"));
    ExpectRefusal("%!\n/f {f 1 pop} def f showpage\n", -2, error("execstackoverflow", "f"));
}

TEST_F(SaveFailure, MissingInterpreterHasAStatusOfItsOwn)
{
    for (const std::string program : {"no-such-program-anywhere", "/no/such/program", ""}) {
        m_options.interpreter = program;
        ExpectRefusal(
            "%!\nshowpage\n", -7,
            "Ghostscript (\"" + program +
                "\") is not installed: PostScript of other programs, and job options that turn colours or downsample "
                "pictures, need it. Install it: sudo apt-get install ghostscript");
    }
}

TEST_F(SaveFailure, InterpreterThatDiesIsTold)
{
    const std::string script = m_root + "/dying";
    WriteFile(script, "#!/bin/sh\nkill -SEGV $$\n");
    ::chmod(script.c_str(), 0700);
    m_options.interpreter = script;
    ExpectRefusal("%!\nshowpage\n", -8,
                  "Page 1: the PostScript interpreter was ended by signal 11 (Segmentation fault).");
}

TEST_F(SaveFailure, TargetsThatCannotBeWrittenAreTold)
{
    std::filesystem::create_directory(Out("folder.pdf"));
    const auto doc = Library()->CreatePubDoc();
    const std::string input = PostScript("input.ps", "%!\nshowpage\n");
    ASSERT_EQ(doc->AddPsFile(input, 300, 400, 600, 1, ""), 0);
    const std::string choose = " Choose another name or folder, or change its permissions.";
    const std::vector<std::tuple<std::string, std::int32_t, std::string>> rows = {
        {Out("folder.pdf"), -5, Out("folder.pdf") + " could not be written: it is a folder. Choose another name."},
        {"/dev/full", -5, "/dev/full could not be written: it is not an ordinary file. Choose another name."},
        {Out("none/plan.pdf"), -5, Out("none/plan.pdf") + " could not be written: No such file or directory." + choose},
        {"", -5, " could not be written: No such file or directory." + choose},
        {input, -10, input + " can't be saved: it is the PostScript file of page 1. Choose another name."},
        {Out("folder.pdf/../input.ps"), -10,
         Out("folder.pdf/../input.ps") + " can't be saved: it is the PostScript file of page 1. Choose another name."},
    };
    for (const auto& [path, status, text] : rows) {
        EXPECT_EQ(doc->SaveToPdf(path, 0, false, true), status) << path;
        EXPECT_EQ(doc->LastErrorText(), text);
    }
    EXPECT_EQ(ListTree(m_root + "/out"), (Names{"folder.pdf/", "input.ps"}));
    EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), 0) << "a failing save may be repeated";
}

/// Runs `body` in a child process; its exit code is what `body` returns.
int InChild(const std::function<int()>& body)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(body());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
}

TEST_F(SaveFailure, ReadOnlyFolderAndFileAreRespected)
{
    if (::geteuid() == 0) {
        std::filesystem::permissions(m_root, std::filesystem::perms::all);
    }
    std::filesystem::permissions(Out(""), std::filesystem::perms::all);
    std::filesystem::permissions(m_root + "/work", std::filesystem::perms::all);
    const std::string choose = " could not be written: Permission denied. Choose another name or folder, or change its "
                               "permissions.";
    const int code = InChild([&] {
        if (::geteuid() == 0 && ::setuid(65534) != 0) {
            return 9;
        }
        std::filesystem::create_directory(Out("locked"));
        WriteFile(Out("locked.pdf"), "old");
        ::chmod(Out("locked").c_str(), 0500);
        ::chmod(Out("locked.pdf").c_str(), 0400);
        const auto doc = Library()->CreatePubDoc();
        doc->AddPsFile(NewPage(*doc), 300, 400, 600, 1, "");
        bool good = doc->SaveToPdf(Out("locked/plan.pdf"), 0, false, true) == -5 &&
                    doc->LastErrorText() == Out("locked/plan.pdf") + choose;
        good = good && doc->SaveToPdf(Out("locked.pdf"), 0, false, true) == -5 &&
               doc->LastErrorText() == Out("locked.pdf") + choose && ReadFile(Out("locked.pdf")) == "old";
        return good ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(ListTree(m_root + "/out"), (Names{"locked.pdf", "locked/"}));
}

/// Limits the size of files instead of the disk: the kernel refuses writes in the same place.
int SaveWithin(rlim_t bytes, const std::shared_ptr<IPubDoc>& doc, const std::string& path, const std::string& textPath)
{
    return InChild([&] {
        const rlimit limit{bytes, bytes};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const std::int32_t status = doc->SaveToPdf(path, 0, false, true);
        const rlimit room{RLIM_INFINITY, RLIM_INFINITY};
        ::setrlimit(RLIMIT_FSIZE, &room);
        WriteFile(textPath, doc->LastErrorText().substr(0, bytes));
        return -status;
    });
}

/// Lines that don't compress well.
std::string ManyLines(int count)
{
    std::string body = "%!\n";
    unsigned random = 1;
    for (int i = 0; i < 2 * count; ++i) {
        random = random * 1103515245U + 12345U;
        body += std::to_string((random >> 8U) % 30000 / 100.0) + " " + std::to_string((random >> 4U) % 40000 / 100.0) +
                (i % 2 == 0 ? " moveto\n" : " lineto stroke\n");
    }
    return body + "showpage\n";
}

TEST_F(SaveFailure, FullDiskIsTold)
{
    WriteFile(Out("plan.pdf"), "old");
    for (const rlim_t bytes : {rlim_t{600}, rlim_t{20000}, rlim_t{200000}}) {
        SCOPED_TRACE(bytes);
        const auto doc = Library()->CreatePubDoc();
        ASSERT_EQ(doc->AddPsFile(PostScript("input.ps", ManyLines(40000)), 300, 400, 600, 1, ""), 0);
        EXPECT_EQ(SaveWithin(bytes, doc, Out("plan.pdf"), m_root + "/text"), 3);
        const std::string text = ReadFile(m_root + "/text");
        EXPECT_NE(text.find("the disk is full or the file is larger than allowed"), std::string::npos) << text;
        EXPECT_EQ(ReadFile(Out("plan.pdf")), "old");
        EXPECT_EQ(ListTree(m_root + "/out"), (Names{"input.ps", "plan.pdf"}));
    }
}

TEST_F(SaveFailure, WorkFolderThatIsNotThereIsTold)
{
    m_options.workFolder = m_root + "/none";
    const auto doc = Library()->CreatePubDoc();
    ASSERT_EQ(doc->AddPsFile(PostScript("input.ps", "%!\nshowpage\n"), 300, 400, 600, 1, ""), 0);
    const std::string text = "A temporary folder could not be made in " + m_root +
                             "/none: No such file or directory. Free the folder's space or set TMPDIR to a folder that "
                             "can be written.";
    EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), -15);
    EXPECT_EQ(doc->LastErrorText(), text);
    EXPECT_ANY_THROW(doc->NewPsFileName());
    EXPECT_EQ(doc->LastErrorText(), text);
}

TEST_F(SaveFailure, PostScriptThatWentAwayIsTold)
{
    const auto doc = Library()->CreatePubDoc();
    const std::string input = PostScript("input.ps", "%!\nshowpage\n");
    ASSERT_EQ(doc->AddPsFile(input, 300, 400, 600, 1, ""), 0);
    std::filesystem::remove(input);
    EXPECT_EQ(doc->SaveToPdf(Out("plan.pdf"), 0, false, true), -11);
    EXPECT_EQ(doc->LastErrorText(), "Page 1: the PostScript file " + input +
                                        " can't be read: No such file or directory. Plot the sheet again.");
    EXPECT_EQ(ListTree(m_root + "/out"), Names{});
}

} // namespace
} // namespace sm::publisher
