// SPDX-License-Identifier: GPL-3.0-or-later
// Marks that are dragged and edited in the real drawing window.
#include "OpenDrawing.h"
#include "view/MarkDialog.h"

#include <gmock/gmock.h>

#include <vector>

namespace sm::win32 {
namespace {

using beside::PageMark;
using beside::PageMarkKind;
using testing::ElementsAre;
using testing::IsEmpty;
using windows::TheUiThread;

/// Three marks on one layout, and what was asked of them.
class ThreeMarks final : public beside::IMarkBoard {
public:
    ThreeMarks()
    {
        PageMark stamp{PageMarkKind::Stamp, {40, 100}, {40, 100}, "FOR REVIEW", "Helvetica-Bold", 12, 0x0000FF};
        marks = {{PageMarkKind::Attachment, {120, 60}, {120, 60}, "C:\\files\\notes.txt"},
                 {PageMarkKind::Field, {20, 20}, {90, 60}, "Approved"},
                 stamp};
    }
    std::vector<std::string> told;
    std::vector<PageMark> marks;

    [[nodiscard]] std::vector<PageMark> MarksOn(const std::string& layout) override
    {
        return layout == "A-101 Ground Floor" ? marks : std::vector<PageMark>();
    }
    std::string Move(const std::string& layout, std::size_t mark, Vec2 by) override
    {
        told.push_back("move " + layout + " " + std::to_string(mark) + " " + std::to_string(std::lround(by.x)) + "," +
                       std::to_string(std::lround(by.y)));
        marks[mark].from = marks[mark].from + by;
        marks[mark].to = marks[mark].to + by;
        return {};
    }
    [[nodiscard]] std::vector<beside::MarkField> Fields(const std::string&, std::size_t mark) override
    {
        return {{"Title", marks[mark].text}, {"X1", std::to_string(std::lround(marks[mark].from.x))}};
    }
    std::string Change(const std::string&, std::size_t mark, const std::vector<std::string>& values) override
    {
        if (values.front().empty())
            return "A field has a title.";
        marks[mark].text = values.front();
        told.push_back("change " + std::to_string(mark) + " " + values[0] + " " + values[1]);
        return {};
    }
};

/// The dialog that a mark is edited in, before its user.
class MarkUser {
public:
    MarkUser()
    {
        for (int i = 0; i < 1000 && Up() == nullptr; ++i)
            Sleep(10);
        EXPECT_NE(Up(), nullptr);
        TheUiThread().Rest();
    }
    static HWND Up()
    {
        const HWND window = FindWindowW(MarkDialog::kClass, nullptr);
        return window != nullptr && IsWindowVisible(window) != FALSE ? window : nullptr;
    }
    static HWND Get(int control) { return GetDlgItem(Up(), control); }
    static void Enter(const wchar_t* title)
    {
        SendMessageW(Get(MarkDialog::kFirstLine), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(title));
    }
    static void Key(WPARAM key)
    {
        PostMessageW(Get(MarkDialog::kFirstLine), WM_KEYDOWN, key, 1);
        TheUiThread().Rest();
    }
};

class MarkEditing : public OpenDrawing {
protected:
    MarkEditing()
    {
        OpenSample("house.dxf");
        layout = LayoutNamed("A-101 Ground Floor");
    }
    void Edit(const Steps& steps)
    {
        WhileUserDraws(
            [&](const DrawingUser& user) {
                steps(user);
                user.Key(VK_ESCAPE);
            },
            [&] { picker->EditMarks(*drawing, layout, board); });
    }
    static int Count(const DrawingUser& user)
    {
        return static_cast<int>(SendMessageW(user.Control(kMarks), CB_GETCOUNT, 0, 0));
    }
    static int Chosen(const DrawingUser& user)
    {
        return static_cast<int>(SendMessageW(user.Control(kMarks), CB_GETCURSEL, 0, 0));
    }
    static std::string Listed(const DrawingUser& user, int mark)
    {
        wchar_t text[200] = {};
        SendMessageW(user.Control(kMarks), CB_GETLBTEXT, static_cast<WPARAM>(mark), reinterpret_cast<LPARAM>(text));
        return windows::Utf8(text);
    }
    static void Drag(const DrawingUser& user, POINT from, POINT to)
    {
        user.Press(from);
        user.Move({from.x + 20, from.y + 5}, MK_LBUTTON);
        user.Move(to, MK_LBUTTON);
    }
    std::size_t layout = 0;
    ThreeMarks board;
};

TEST_F(MarkEditing, AMarkIsDraggedAndThePlaceIsTold)
{
    Edit([&](const DrawingUser& user) {
        EXPECT_EQ(Count(user), 3);
        EXPECT_EQ(Listed(user, 0), "Attachment notes.txt");
        EXPECT_EQ(user.Text(kMarkHint),
                  "Drag a mark to its place; double-click it, or press Edit, to change it. Escape ends.");
        const POINT to = user.PixelOf({150, 90});
        Drag(user, user.PixelOf({50, 40}), to);
        Keep(user, "mark-dragged");
        user.Release(to);
        EXPECT_THAT(board.told, ElementsAre("move A-101 Ground Floor 1 100,50"));
        EXPECT_EQ(Chosen(user), 1);
        user.Press(user.PixelOf({20, 180}));
        user.Release(user.PixelOf({60, 190}));
        EXPECT_EQ(Chosen(user), -1) << "nothing is there";
        EXPECT_FALSE(IsWindowEnabled(user.Control(kEditMark)));
        user.Press(to);
        user.Release(to);
        EXPECT_EQ(board.told.size(), 1U) << "a press moves nothing";
    });
    EXPECT_EQ(DrawingUser::Up(), nullptr) << "a question that follows has no owner that goes";
}

TEST_F(MarkEditing, AStampIsTakenByItsText)
{
    Edit([&](const DrawingUser& user) {
        const POINT at = user.PixelOf({60, 104}), to = user.PixelOf({80, 124});
        Drag(user, at, to);
        user.Release(to);
    });
    EXPECT_THAT(board.told, ElementsAre("move A-101 Ground Floor 2 20,20"));
}

TEST_F(MarkEditing, ADoubleClickOrTheButtonEdits)
{
    Edit([&](const DrawingUser& user) {
        const POINT at = user.PixelOf({50, 40});
        PostMessageW(user.View(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        {
            const MarkUser dialog;
            EXPECT_FALSE(IsWindowEnabled(user.Window()));
            EXPECT_EQ(TextOf(MarkUser::Get(MarkDialog::kFirstCaption)), "Title:");
            EXPECT_EQ(TextOf(MarkUser::Get(MarkDialog::kFirstLine + 1)), "20");
            MarkUser::Enter(L"Released");
            MarkUser::Key(VK_RETURN);
        }
        EXPECT_TRUE(IsWindowEnabled(user.Window()));
        EXPECT_THAT(board.told, ElementsAre("change 1 Released 20"));
        EXPECT_EQ(Listed(user, 1), "Signature field Released");
        TheUiThread().Run([&] {
            SendMessageW(user.Control(kMarks), CB_SETCURSEL, 0, 0);
            SendMessageW(user.Window(), WM_COMMAND, MAKEWPARAM(kMarks, CBN_SELCHANGE), 0);
        });
        PostMessageW(user.Control(kEditMark), BM_CLICK, 0, 0);
        {
            const MarkUser dialog;
            MarkUser::Enter(L"");
            MarkUser::Key(VK_RETURN);
            EXPECT_EQ(TextOf(MarkUser::Get(MarkDialog::kReason)), "A field has a title.");
            TheUiThread().Run([&] {
                const HWND window = MarkUser::Up();
                RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
                EXPECT_TRUE(windows::SavePicture(window, windows::Wide(PictureFolder() + "/mark-refused.png")));
            });
            MarkUser::Key(VK_ESCAPE);
        }
        EXPECT_EQ(board.told.size(), 1U);
    });
}

TEST_F(MarkEditing, TabsAreTurnedAndAPickComesAfterwards)
{
    Edit([&](const DrawingUser& user) {
        user.TurnTo(static_cast<int>(layout + 1));
        EXPECT_EQ(Count(user), 0);
        EXPECT_EQ(user.Text(kMarkHint), "This layout has no marks.");
        EXPECT_FALSE(IsWindowEnabled(user.Control(kEditMark)));
    });
    active = layout;
    const Point point = Pick([&](const DrawingUser& user) {
        EXPECT_FALSE(IsWindowVisible(user.Control(kMarks)));
        EXPECT_TRUE(IsWindowVisible(user.Control(kEntry)));
        user.Press(user.PixelOf({50, 40}), MK_SHIFT);
    });
    ASSERT_TRUE(point) << "the left button picks again";
    EXPECT_NEAR(point->x, 50, 1);
    EXPECT_THAT(board.told, IsEmpty());
}

} // namespace
} // namespace sm::win32
