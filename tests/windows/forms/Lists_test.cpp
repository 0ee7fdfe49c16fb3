// SPDX-License-Identifier: GPL-3.0-or-later
// Lists of each kind, both ways.
#include "RecordingForm.h"

#include <commctrl.h>

namespace sm::windows {
namespace {

using enum ControlKind;
using Reports = RecordingForm::Reports;

TEST(Combos, OfferTheItemsAndReportTheUsersChoice)
{
    RecordingForm form;
    FormControl& list = form.Add(ComboBox, "list", "", {10, 10, 100, 12});
    list.items = {"one", "t&wo", "three"};
    list.selection = -1;
    form.Show([&] {
        EXPECT_EQ(form.user.Ask("list", CB_GETCOUNT), 3);
        EXPECT_EQ(form.user.Ask("list", CB_GETCURSEL), CB_ERR);
        form.user.Focus("list");
        FormUser::Keys({VK_DOWN});
        FormUser::Keys({'T'});
        form.user.Choose("list", 2);
        EXPECT_EQ(form.Take(), (Reports{"selected list 0", "selected list 1", "selected list 2"}));
        form.Change(1, [](FormControl& control) {
            control.items = {"x", "y"};
            control.selection = 1;
        });
        EXPECT_EQ(form.user.Text("list"), "y");
        form.Change(1, [](FormControl& control) { control.selection = -1; });
        EXPECT_EQ(form.user.Ask("list", CB_GETCURSEL), CB_ERR);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST(Combos, KeepEnterAndEscapeForTheirOpenList)
{
    RecordingForm form;
    FormControl& list = form.Add(ComboBox, "list", "", {10, 10, 100, 12});
    list.items = {"one", "two"};
    list.selection = 0;
    form.Show([&] {
        form.user.Focus("list");
        FormUser::Keys({VK_F4});
        ASSERT_NE(form.user.Ask("list", CB_GETDROPPEDSTATE), 0);
        FormUser::Keys({VK_DOWN});
        EXPECT_EQ(form.Take(), Reports{}) << "nothing is chosen while the list is open";
        FormUser::Keys({VK_RETURN});
        EXPECT_EQ(form.Take(), Reports{"selected list 1"}) << "the choice, and no Enter in the form";
        FormUser::Keys({VK_F4});
        FormUser::Keys({VK_ESCAPE});
        EXPECT_EQ(form.user.Ask("list", CB_GETDROPPEDSTATE), 0);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST(Combos, LetTheWheelPassUnlessTheyHaveTheKeyboard)
{
    RecordingForm form;
    form.Add(CommandButton, "button", "Button", {10, 40, 60, 14});
    FormControl& list = form.Add(ComboBox, "list", "", {10, 10, 100, 12});
    list.items = {"one", "two"};
    list.selection = 0;
    form.Show([&] {
        const auto turn = [&] { form.user.Ask("list", WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA)); };
        form.user.Focus("button");
        form.Take();
        turn();
        EXPECT_EQ(form.Take(), Reports{});
        form.user.Focus("list");
        form.Take();
        turn();
        EXPECT_EQ(form.Take(), Reports{"selected list 1"});
    });
}

TEST(ListBoxes, ReportTheRow)
{
    RecordingForm form;
    form.Add(ListBox, "list", "", {10, 10, 100, 50}).items = {"one", "two"};
    form.Show([&] {
        form.user.Focus("list");
        FormUser::Keys({VK_DOWN});
        FormUser::Keys({VK_DOWN});
        EXPECT_EQ(form.Take(), (Reports{"selected list 0", "selected list 1"}));
        form.Change(1, [](FormControl& control) { control.selection = 0; });
        EXPECT_EQ(form.user.Ask("list", LB_GETCURSEL), 0);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

class ListViews : public testing::Test {
protected:
    ListViews()
    {
        FormControl& list = form.Add(ListView, "list", "", {10, 10, 180, 80});
        list.columns = {{"Name", 60}, {"X", 40}};
        list.rows = {{"first", {"1.00"}}, {"second", {"2.00"}}};
    }
    [[nodiscard]] std::wstring Cell(int row, int column) const
    {
        wchar_t text[100] = {};
        LVITEMW item = {};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 100;
        form.user.Ask("list", LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    [[nodiscard]] int Chosen() const
    {
        return static_cast<int>(form.user.Ask("list", LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    }
    [[nodiscard]] POINT RowAt(int row) const
    {
        RECT place = {LVIR_LABEL, 0, 0, 0};
        form.user.Ask("list", LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
        return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    }
    RecordingForm form;
};

TEST_F(ListViews, ShowHeadersAndRows)
{
    form.Show([&] {
        wchar_t header[20] = {};
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = header;
        column.cchTextMax = 20;
        form.user.Ask("list", LVM_GETCOLUMNW, 1, reinterpret_cast<LPARAM>(&column));
        EXPECT_EQ(std::wstring(header), L"X");
        EXPECT_GT(column.cx, 60) << "the last column takes the rest";
        EXPECT_EQ(Cell(1, 0), L"second");
        EXPECT_EQ(Cell(1, 1), L"2.00");
        EXPECT_EQ(Chosen(), -1);
        form.Change(1, [](FormControl& control) {
            control.rows = {{"only", {"3.00"}}};
            control.selection = 0;
        });
        EXPECT_EQ(form.user.Ask("list", LVM_GETITEMCOUNT), 1);
        EXPECT_EQ(Cell(0, 1), L"3.00");
        EXPECT_EQ(Chosen(), 0);
        form.Change(1, [](FormControl& control) { control.rows = {{"without", {}}}; });
        EXPECT_EQ(Cell(0, 1), L"") << "what a row hasn't is empty";
        form.Change(1, [](FormControl& control) {
            control.rows.clear();
            control.selection = -1;
        });
        EXPECT_EQ(form.user.Ask("list", LVM_GETITEMCOUNT), 0);
        EXPECT_EQ(form.Take(), Reports{});
    });
}

TEST_F(ListViews, ReportChoiceDoubleClickAndNoChoice)
{
    form.Show([&] {
        const POINT first = RowAt(0), second = RowAt(1);
        form.user.Press("list", second.x, second.y);
        EXPECT_EQ(form.Take(), Reports{"selected list 1"});
        form.user.DoublePress("list", first.x, first.y);
        EXPECT_EQ(form.Take(), (Reports{"selected list 0", "double-clicked list 0"}));
        FormUser::Keys({VK_DOWN});
        EXPECT_EQ(form.Take(), Reports{"selected list 1"}) << "the keyboard goes on from where the mouse was";
        LVITEMW none = {};
        none.stateMask = LVIS_SELECTED;
        form.user.Ask("list", LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&none));
        TheUiThread().Rest();
        EXPECT_EQ(form.Take(), Reports{"selected list -1"});
    });
}

} // namespace
} // namespace sm::windows
