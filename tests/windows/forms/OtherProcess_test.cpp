// SPDX-License-Identifier: GPL-3.0-or-later
// The settings dialog driven by messages from another process.
#include "FormWalk.h"
#include "RecordingForm.h"

#include "ui/frmAttach.h"
#include "ui/frmGUITap.h"

#include "windows/automation/WideText.h"

#include <sstream>

namespace sm::windows {
namespace {

/// A program that plays the user while the dialog is up.
class DriverProcess {
public:
    explicit DriverProcess(const std::string& commands)
    {
        std::wstring line = Wide("\"" SM_DRIVER "\" " + commands);
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        EXPECT_TRUE(
            CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &m_made));
    }
    /// What it gave in the end: 0, or the number of the command that failed.
    [[nodiscard]] DWORD Result() const
    {
        DWORD result = 999;
        EXPECT_EQ(WaitForSingleObject(m_made.hProcess, 30000), WAIT_OBJECT_0);
        GetExitCodeProcess(m_made.hProcess, &result);
        return result;
    }
    ~DriverProcess()
    {
        CloseHandle(m_made.hThread);
        CloseHandle(m_made.hProcess);
    }
    DriverProcess(const DriverProcess&) = delete;
    DriverProcess& operator=(const DriverProcess&) = delete;

private:
    PROCESS_INFORMATION m_made = {};
};

class OtherProcess : public FormWalk {
protected:
    /// The id of a control, as another program finds it.
    static std::string Id(const Form& form, const std::string& name)
    {
        return std::to_string(FormUser(form).IdOf(name));
    }
};

TEST_F(OtherProcess, DrivesTheSettingsDialogAndARowsDialog)
{
    FormSession session{context, toolkit, {}};
    const frmGUITap gui(session); // for the ids alone
    std::int32_t action = 0;
    frmGUITap below(session);
    const frmAttach attach(session, below, action);
    std::ostringstream commands;
    commands << "window \"Tarnwick Sheetmaker PDF\" click " << Id(gui, "optAllLayouts");
    commands << " page " << Id(gui, "tabPDFMaker") << " 2 choose " << Id(gui, "cmbStampText") << " 2";
    commands << " text " << Id(gui, "txtStampX") << " 7.255 expect " << Id(gui, "txtStampX") << " 7.26";
    commands << " page " << Id(gui, "tabPDFMaker") << " 3 click " << Id(gui, "btnAttachAdd");
    commands << " window \"File Attachment\" text " << Id(attach, "txtAttachFile") << " C:\\Docs\\a.txt";
    commands << " text " << Id(attach, "txtAttachX") << " 3 expect " << Id(attach, "txtAttachX") << " 3.00";
    commands << " click " << Id(attach, "btnOK");
    commands << " window \"Tarnwick Sheetmaker PDF\" click " << Id(gui, "btnPDF");
    const DriverProcess driver(commands.str());
    EXPECT_EQ(windows->ShowConversionSettings(), 1);
    EXPECT_EQ(driver.Result(), 0U);
    EXPECT_EQ(Setting("WhatToPlot"), "1");
    EXPECT_EQ(Record("Stamp")[5], "7.26");
    EXPECT_EQ(Record("Attachs"), (Texts{"TWSI_Attachs", "a.txt", "C:\\Docs\\a.txt", "3", "0", "Ground"}));
    EXPECT_EQ(Log(), Lines{"SHOW CONVERSION SETTINGS FORM"});
}

TEST_F(OtherProcess, ClosesAPicker)
{
    const DriverProcess driver("window \"Tarnwick Sheetmaker PDF\" close");
    EXPECT_EQ(windows->PickPlotStyle({"first"}), std::nullopt);
    EXPECT_EQ(driver.Result(), 0U);
}

TEST_F(OtherProcess, WaitsWhileAFormIsUpOverItsWindow)
{
    const DriverProcess driver("own \"Some host\"");
    HWND owner = nullptr;
    for (int i = 0; i < 500 && owner == nullptr; ++i) {
        owner = FindWindowW(nullptr, L"Some host");
        Sleep(10);
    }
    ASSERT_NE(owner, nullptr);
    RecordingForm form;
    form.owner = owner;
    form.Show([&] {
        EXPECT_FALSE(IsWindowEnabled(owner));
        EXPECT_EQ(GetWindow(form.user.Window(), GW_OWNER), owner);
    });
    EXPECT_TRUE(IsWindowEnabled(owner));
    PostMessageW(owner, WM_CLOSE, 0, 0);
    EXPECT_EQ(driver.Result(), 0U);
}

} // namespace
} // namespace sm::windows
