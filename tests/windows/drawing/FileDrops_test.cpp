// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are dropped on a form which has a list of files.
#include "WaysStand.h"

#include <gmock/gmock.h>

namespace sm::win32 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The form has a list of files, whose button "Add" shows the form of a row; that one's "Browse" asks for the file.
class FilesDropped : public WaysBeside {
protected:
    FilesDropped()
    {
        form.Add(ControlKind::ListView, "list", "", {10, 30, 100, 40}).columns = {{"File", 90}};
        form.Add(ControlKind::CommandButton, "add", "&Add", {10, 75, 40, 14});
        form.view.reset();
        form.Make();
        row.controls.front().name = "row";
        row.controls.front().caption = "A row";
        row.Add(ControlKind::CommandButton, "browse", "Browse...", {10, 10, 60, 14});
        row.toolkit = windows::CreateWin32Toolkit([this] { return form.user.Window(); }, company.get());
        row.Make();
        row.then = [this](const std::string& report) {
            if (report != "clicked browse")
                return;
            asked.push_back(company->Desktop().AskOpenFile({}).value_or("cancelled"));
            if (asked.back() != givenUp)
                form.controls[2].rows.push_back({asked.back(), {}});
            row.view->Hide();
        };
        form.then = [this](const std::string& report) {
            if (report == "clicked add")
                row.view->ShowModal();
        };
    }
    /// At the middle of the control.
    void DropAt(const std::string& control, const std::vector<std::wstring>& paths) const
    {
        RECT place = {};
        GetWindowRect(form.user.Find(control), &place);
        POINT at = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        ScreenToClient(form.user.Window(), &at);
        DropOn(form.user.Window(), paths, at);
        for (int i = 0; i < 20; ++i) // each row's form comes up and goes
            TheUiThread().Rest();
    }

    windows::RecordingForm row;
    Said asked;
    std::string givenUp = "none";
};

TEST_F(FilesDropped, OnTheListBecomeRowsInTheirOrder)
{
    form.Show([&] { DropAt("list", {L"C:\\a.pdf", L"C:\\plans\\ф.dxf", L"C:\\c"}); });
    EXPECT_THAT(asked, ElementsAre("C:\\a.pdf", "C:\\plans\\ф.dxf", "C:\\c"));
    EXPECT_EQ(form.controls[2].rows.size(), 3U);
    EXPECT_THAT(sheets.said, IsEmpty()) << "a drawing on the list is a file like others";
    EXPECT_THAT(desktop.said, IsEmpty());
}

TEST_F(FilesDropped, ARowThatIsGivenUpEndsTheRest)
{
    givenUp = "C:\\b";
    form.Show([&] { DropAt("list", {L"C:\\a", L"C:\\b", L"C:\\c"}); });
    EXPECT_THAT(asked, ElementsAre("C:\\a", "C:\\b"));
}

TEST_F(FilesDropped, ElsewhereAreDrawingsOrNothing)
{
    form.Show([&] {
        DropAt("add", {L"C:\\a.pdf"});
        DropAt("add", {L"C:\\b.dxf"});
    });
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_THAT(desktop.said, ElementsAre("beep"));
    EXPECT_THAT(sheets.said, ElementsAre("open C:\\b.dxf"));
}

TEST_F(FilesDropped, AFileIsAskedForAgainAfterThem)
{
    form.Show([&] {
        DropAt("list", {L"C:\\a"});
        EXPECT_EQ(company->Desktop().AskOpenFile({}), "C:\\plans\\asked.dxf");
    });
}

} // namespace
} // namespace sm::win32
