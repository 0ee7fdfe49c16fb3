// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/FileRows.h"

#include "windows/forms/FormWatcher.h"

#include <algorithm>
#include <utility>

namespace sm::win32 {

class FileRows::AnsweringDesktop final : public IDesktop {
public:
    explicit AnsweringDesktop(IDesktop& desktop) : m_desktop(desktop) {}

    std::optional<std::string> dropped; ///< the next answer

    MessageAnswer ShowMessage(const Message& message) override { return m_desktop.ShowMessage(message); }
    void Beep() override { m_desktop.Beep(); }
    std::optional<std::string> AskOpenFile(const FileDialog& dialog) override
    {
        return dropped ? std::exchange(dropped, std::nullopt) : m_desktop.AskOpenFile(dialog);
    }
    std::optional<std::string> AskSaveFile(const FileDialog& dialog) override { return m_desktop.AskSaveFile(dialog); }
    std::optional<std::int32_t> AskColor(std::int32_t initial) override { return m_desktop.AskColor(initial); }
    bool OpenDocument(const std::string& pathOrAddress) override { return m_desktop.OpenDocument(pathOrAddress); }
    bool ShowHelp(const std::string& helpFile, std::int32_t context) override
    {
        return m_desktop.ShowHelp(helpFile, context);
    }

private:
    IDesktop& m_desktop;
};

FileRows::FileRows(IDesktop& desktop, Soon soon)
    : m_soon(std::move(soon)), m_desktop(std::make_unique<AnsweringDesktop>(desktop))
{
}

FileRows::~FileRows() = default;

IDesktop& FileRows::Desktop()
{
    return *m_desktop;
}

void FileRows::Serve(HWND window, IForm& form, const beside::FileList& files)
{
    if (&form != m_form)
        Forget();
    m_window = window;
    m_form = &form;
    m_list = files;
    m_position = scene::ControlNamed(form, files.list);
}

void FileRows::Forget()
{
    m_form = nullptr;
    m_position = 0;
    m_files.Forget();
    m_desktop->dropped.reset();
}

bool FileRows::TakesAt(POINT at) const
{
    if (m_position == 0)
        return false;
    const HWND list = windows::WindowOfControl(m_window, m_position);
    RECT place = {};
    return list != nullptr && IsWindowVisible(list) != FALSE && GetWindowRect(list, &place) != FALSE &&
           ClientToScreen(m_window, &at) != FALSE && PtInRect(&place, at) != FALSE;
}

void FileRows::Add(const std::vector<std::string>& paths)
{
    m_files.Begin(paths);
    m_soon([this] { AddNext(); });
}

void FileRows::OtherAppeared(IForm& form)
{
    if (m_desktop->dropped && form.Controls().front().name == m_list.form)
        m_soon([this, &form] {
            if (m_desktop->dropped)
                form.UserClicked(scene::ControlNamed(form, m_list.browse));
        });
}

/// While a place is picked for the row, the list's form is away, too, and what is put off here never comes.
void FileRows::OtherLeft()
{
    if (m_files.IsAdding())
        m_soon([this] { GoOn(); });
}

const std::vector<ListRow>& FileRows::Rows() const
{
    return m_form->Controls()[m_position].rows;
}

/// As the user does who presses the button beside the list.
void FileRows::PressAdd()
{
    const auto& controls = m_form->Controls();
    const auto add = std::find_if(controls.begin(), controls.end(), [&](const FormControl& control) {
        return control.kind == ControlKind::CommandButton && control.parent == controls[m_position].parent &&
               control.caption == "&Add";
    });
    if (add != controls.end())
        m_form->UserClicked(static_cast<std::size_t>(add - controls.begin()));
}

void FileRows::AddNext()
{
    if (m_form == nullptr)
        return;
    m_desktop->dropped = m_files.Next(Rows().size());
    if (m_desktop->dropped)
        PressAdd();
    m_desktop->dropped.reset();
}

void FileRows::GoOn()
{
    if (!m_files.IsAdding() || m_form == nullptr || IsWindowEnabled(m_window) == FALSE ||
        IsWindowVisible(m_window) == FALSE)
        return;
    m_files.RowEnded(Rows().size());
    AddNext();
}

} // namespace sm::win32
