// SPDX-License-Identifier: GPL-3.0-or-later
#include "win32/Company.h"

#include "beside/EndDialog.h"
#include "beside/FileRows.h"
#include "beside/ProgressWindow.h"
#include "beside/SheetsWindow.h"
#include "beside/StartWindow.h"
#include "scene/WaysFromForm.h"
#include "window/DroppedFiles.h"

#include <exception>
#include <utility>

#include <shellapi.h>

namespace sm::win32 {
namespace {

/// Of a form that the list of sheets belongs to the window stands beside; while another form is over it, it stays as it
/// is.
class Win32Company final : public IWin32Company {
public:
    explicit Win32Company(IDesktop& desktop)
        : m_desktop(desktop), m_files(desktop, [this](std::function<void()> work) {
              if (m_sheets != nullptr)
                  Soon(std::move(work));
          })
    {
    }

    void StandBeside(beside::ISheetList* sheets) override
    {
        m_sheets.reset();
        m_page.reset();
        m_ways.reset();
        m_form = nullptr;
        m_files.Forget();
        m_listed = sheets;
    }
    [[nodiscard]] beside::ISheetList* Listed() const override { return m_listed; }
    IDesktop& Desktop() override { return m_files.Desktop(); }

    void Appeared(HWND window, IForm& form) override
    {
        if (m_listed == nullptr || !m_listed->StandsBeside(form.Controls().front().name))
            return m_files.OtherAppeared(form);
        try {
            if (m_form != &form)
                m_ways.reset();
            m_form = &form;
            m_window = window;
            Open(form);
        } catch (const std::exception&) { // the form goes on alone
            m_sheets.reset();
        }
    }
    void Changed(const IForm& form) override
    {
        if (m_sheets != nullptr && &form == m_form)
            m_sheets->FormChanged();
    }
    void Left(const IForm& form) override
    {
        if (&form != m_form)
            return m_files.OtherLeft();
        if (m_ways != nullptr)
            m_ways->FormIsUp(false);
        m_sheets.reset();
    }
    bool Take(const tagMSG& message) override
    {
        const bool isOurs = m_sheets != nullptr && IsWindowEnabled(m_window) != FALSE;
        const bool isForms = isOurs && (message.hwnd == m_window || IsChild(m_window, message.hwnd) != FALSE);
        if (isForms && message.message == WM_DROPFILES)
            return TakeDrop(message), true;
        if (isOurs && m_ways != nullptr && message.message == WM_KEYDOWN && message.wParam == 'O' &&
            GetKeyState(VK_CONTROL) < 0)
            return m_ways->Open(std::nullopt), true;
        return m_sheets != nullptr && m_sheets->Take(message);
    }

    void ShowProgress(const beside::RunProgress& progress) override
    {
        try {
            if (m_progress == nullptr)
                m_progress = std::make_unique<ProgressWindow>();
            m_progress->Tell(progress);
        } catch (const std::exception&) { // the run goes on unseen
            m_progress.reset();
        }
    }
    void HideProgress() override { m_progress.reset(); }
    bool IsCancelled() override { return m_progress != nullptr && m_progress->IsCancelled(); }
    beside::NextStep ShowEnd(const beside::RunEnd& end) override
    {
        try {
            return AskAtEnd(end, m_desktop);
        } catch (const std::exception&) {
            return beside::NextStep::Close;
        }
    }
    std::optional<std::string> ChooseDrawing(const std::vector<std::string>& recent) override
    {
        try {
            return recent.empty() ? scene::AskForDrawing(m_desktop) : StartWindow(recent, m_desktop).Ask();
        } catch (const std::exception&) { // it can't be shown
            return std::nullopt;
        }
    }

private:
    void Open(IForm& form)
    {
        if (m_page == nullptr && m_listed->Page() != nullptr)
            m_page = std::make_unique<PageKeeper>(*m_listed->Page());
        m_sheets = std::make_unique<SheetsWindow>(*m_listed, form, m_window, m_page.get());
        if (beside::IDrawings* const drawings = m_listed->Drawings()) {
            if (m_ways == nullptr)
                m_ways = std::make_unique<scene::WaysFromForm>(form, *drawings, m_desktop,
                                                               [this] { PostMessageW(m_window, WM_CLOSE, 0, 0); });
            m_ways->FormIsUp(true);
            m_sheets->onOpen = [this](const std::optional<std::string>& path) {
                Soon([=, this] { m_ways->Open(path); });
            };
            m_sheets->onMarks = [this] { Soon([this] { m_ways->EditMarks(); }); };
            m_sheets->onDrop = [this](const std::vector<std::string>& paths) { TakeFiles(paths); };
        }
        const beside::FileList files = m_listed->Files();
        m_files.Serve(m_window, form, files);
        DragAcceptFiles(m_window, m_ways != nullptr || !files.list.empty() ? TRUE : FALSE);
        m_sheets->Appear();
    }
    /// Files on the list of files become rows of it; a drawing anywhere else is opened.
    void TakeDrop(const tagMSG& message)
    {
        POINT at = {};
        DragQueryPoint(reinterpret_cast<HDROP>(message.wParam), &at);
        MapWindowPoints(message.hwnd, m_window, &at, 1);
        const bool isList = m_files.TakesAt(at);
        const std::vector<std::string> paths = TakeDropped(message.wParam);
        isList ? m_files.Add(paths) : TakeFiles(paths);
    }
    /// Once the window's own work has returned: it may go with the form.
    void Soon(std::function<void()> work) const { m_sheets->PostWork(std::move(work)); }
    void TakeFiles(const std::vector<std::string>& paths)
    {
        if (paths.size() == 1 && m_ways != nullptr && scene::IsDrawingFile(paths.front()))
            Soon([this, path = paths.front()] { m_ways->Open(path); });
        else
            m_desktop.Beep();
    }

    IDesktop& m_desktop;
    beside::ISheetList* m_listed = nullptr;
    const IForm* m_form = nullptr;               ///< that the window stands beside
    HWND m_window = nullptr;                     ///< the form's
    std::unique_ptr<scene::WaysFromForm> m_ways; ///< from the form; null: there are none
    std::unique_ptr<PageKeeper> m_page;          ///< of the list; null: it brings none, or no form was up
    std::unique_ptr<SheetsWindow> m_sheets;
    FileRows m_files; ///< dropped on the form
    std::unique_ptr<ProgressWindow> m_progress;
};

} // namespace

std::unique_ptr<IWin32Company> CreateCompany(IDesktop& desktop)
{
    return std::make_unique<Win32Company>(desktop);
}

} // namespace sm::win32
