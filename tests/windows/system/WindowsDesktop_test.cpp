// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/automation/WideText.h"
#include "windows/system/CommonDialogs.h"
#include "windows/system/WindowsSystem.h"

#include <gtest/gtest.h>
#include <thread>
#include <windows.h>

namespace sm::windows {
namespace {

/// Waits for a window of that title and tells it that its button `button` was pressed.
std::string Press(const wchar_t* title, int button)
{
    for (int i = 0; i < 1000; ++i, Sleep(10)) {
        const HWND box = FindWindowW(nullptr, title);
        const HWND shown = box == nullptr ? nullptr : GetDlgItem(box, 0xFFFF);
        if (shown == nullptr || IsWindowVisible(box) == FALSE)
            continue;
        wchar_t text[400] = {};
        SendMessageW(shown, WM_GETTEXT, 400, reinterpret_cast<LPARAM>(text));
        PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
        return Utf8(text);
    }
    return "(no such window)";
}

struct BoxRow {
    const char* name;
    MessageButtons buttons;
    int pressed;
    MessageAnswer answer;
};

class WindowsMessageBox : public testing::TestWithParam<BoxRow> {};

INSTANTIATE_TEST_SUITE_P(, WindowsMessageBox,
                         testing::Values(BoxRow{"Ok", MessageButtons::Ok, IDOK, MessageAnswer::Ok},
                                         BoxRow{"OkOfTwo", MessageButtons::OkCancel, IDOK, MessageAnswer::Ok},
                                         BoxRow{"Cancel", MessageButtons::OkCancel, IDCANCEL, MessageAnswer::Cancel},
                                         BoxRow{"Yes", MessageButtons::YesNo, IDYES, MessageAnswer::Yes},
                                         BoxRow{"No", MessageButtons::YesNo, IDNO, MessageAnswer::No}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(WindowsMessageBox, GivesTheButtonThatWasPressed)
{
    const auto desktop = CreateWindowsDesktop([] { return HWND(); });
    Message message{
        "First line\r\nSecond line", "A message of a test", GetParam().buttons, MessageIcon::Critical, {}, 170};
    std::string text;
    std::jthread user([&] { text = Press(L"A message of a test", GetParam().pressed); });
    EXPECT_EQ(desktop->ShowMessage(message), GetParam().answer);
    user.join();
    EXPECT_EQ(text, "First line\r\nSecond line");
}

TEST(WindowsDesktop, GoesOnWithoutTheOwnerThatItIsGiven)
{
    const auto desktop = CreateWindowsDesktop([] { return reinterpret_cast<HWND>(0x7FFF0); });
    std::jthread user([] { Press(L"An orphan", IDOK); });
    EXPECT_EQ(desktop->ShowMessage({"Text", "An orphan", MessageButtons::Ok, MessageIcon::None, {}, 0}),
              MessageAnswer::Ok);
}

TEST(WindowsDesktop, SaysWhenADocumentCannotBeOpened)
{
    const auto desktop = CreateWindowsDesktop([] { return HWND(); });
    EXPECT_FALSE(desktop->OpenDocument("C:\\no such file.pdf"));
    EXPECT_FALSE(desktop->ShowHelp("", 170));
}

struct StartRow {
    const char *given, *folder, *name;
};

TEST(CommonDialogs, StartWhereTheDefaultNameSays)
{
    const StartRow rows[] = {
        {"", "", ""},
        {"Plan.pdf", "", "Plan.pdf"},
        {"C:\\Jobs\\Plan.pdf", "C:\\Jobs", "Plan.pdf"},
        {"C:\\Jobs\\*.*", "C:\\Jobs", ""},
        {"C:\\*.*", "C:\\", ""},
        {"C:\\Plan.pdf", "C:\\", "Plan.pdf"},
        {"\\*.*", "\\", ""},
        {"\\\\server\\share\\Plan.pdf", "\\\\server\\share", "Plan.pdf"},
        {"C:\\Jobs\\", "C:\\Jobs", ""},
        {"Z:/plans/house.pdf", "Z:\\plans", "house.pdf"},
    };
    for (const StartRow& row : rows)
        EXPECT_EQ(StartOf(row.given), (DialogStart{row.folder, row.name})) << row.given;
}

TEST(CommonDialogs, ListFilesByTheirEndings)
{
    FileDialog dialog;
    dialog.filterName = "PDF files";
    dialog.filterExtension = "pdf";
    EXPECT_EQ(FilterOf(dialog), std::wstring(L"PDF files (*.pdf)\0*.pdf\0\0", 25));
    dialog.filterExtension = "pdf;ps";
    EXPECT_EQ(FilterOf(dialog), std::wstring(L"PDF files (*.pdf;*.ps)\0*.pdf;*.ps\0\0", 35));
    dialog = {"", "", "All files (*.*)", "*", true, 0};
    EXPECT_EQ(FilterOf(dialog), std::wstring(L"All files (*.*)\0*.*\0\0", 21));
}

} // namespace
} // namespace sm::windows
