// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DocumentOpener.h"

#include "Folders.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace sm::system {
namespace {

class DocumentOpener : public testing::Test {
protected:
    /// What the stand-in for xdg-open was given; empty when it was not started.
    [[nodiscard]] std::string Given() const
    {
        for (int waited = 0; waited < 500; ++waited) {
            std::ifstream file(m_folder.Path() / "given");
            std::string line;
            if (std::getline(file, line))
                return line;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return {};
    }
    void InstallViewer() const
    {
        m_folder.MakeProgram("bin/xdg-open", "echo \"$1\" > '" + (m_folder.Path() / "part").string() + "'\n/bin/mv '" +
                                                 (m_folder.Path() / "part").string() + "' '" +
                                                 (m_folder.Path() / "given").string() + "'");
    }
    [[nodiscard]] Environment With(const char* variable) const
    {
        return Variables({{"PATH", (m_folder.Path() / "bin").string()}, {variable, ":7"}});
    }
    TemporaryFolder m_folder;
};

TEST_F(DocumentOpener, StartsTheDesktopsProgram)
{
    InstallViewer();
    EXPECT_TRUE(OpenOnDesktop(With("DISPLAY"), "/a/plan.pdf"));
    EXPECT_EQ(Given(), "/a/plan.pdf");
}

TEST_F(DocumentOpener, HandsAnAddressOnAsItIs)
{
    InstallViewer();
    EXPECT_TRUE(OpenOnDesktop(With("WAYLAND_DISPLAY"), "https://tarnwick.example/"));
    EXPECT_EQ(Given(), "https://tarnwick.example/");
}

TEST_F(DocumentOpener, MakesAPathThatLooksLikeAnOptionAFullOne)
{
    InstallViewer();
    EXPECT_TRUE(OpenOnDesktop(With("DISPLAY"), "-plan.pdf"));
    EXPECT_EQ(Given(), (std::filesystem::current_path() / "-plan.pdf").string());
}

TEST_F(DocumentOpener, SaysNoWithoutAProgramOrADisplay)
{
    EXPECT_FALSE(OpenOnDesktop(With("DISPLAY"), "/a/plan.pdf"));
    InstallViewer();
    EXPECT_FALSE(OpenOnDesktop(With("OTHER"), "/a/plan.pdf"));
}

TEST_F(DocumentOpener, SeesAProgramGiveUpAndOneThatGoesOn)
{
    EXPECT_FALSE(OpenAndSee(With("DISPLAY"), "file:///a/help.html")) << "there is none";
    struct Row {
        const char* name;
        const char* script;
        bool isOpen;
    };
    for (const Row& row : {Row{"gives up", "exit 3", false}, Row{"hands over", "exit 0", true},
                           Row{"shows it itself", "exec /bin/sleep 3", true}}) {
        m_folder.MakeProgram("bin/xdg-open", row.script);
        EXPECT_EQ(OpenAndSee(With("DISPLAY"), "file:///a/help.html"), row.isOpen) << row.name;
    }
    EXPECT_TRUE(OpenOnDesktop(With("DISPLAY"), "/a/plan.pdf")) << "nobody waits for it";
}

} // namespace
} // namespace sm::system
