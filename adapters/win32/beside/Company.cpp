// SPDX-License-Identifier: GPL-3.0-or-later
#include "win32/Company.h"

#include "beside/EndDialog.h"
#include "beside/ProgressWindow.h"
#include "beside/SheetsWindow.h"

#include <exception>
#include <utility>

namespace sm::win32 {
namespace {

/// Of a form that the list of sheets belongs to the window stands beside; while another form is over it, it stays as it
/// is.
class Win32Company final : public IWin32Company {
public:
    explicit Win32Company(IDesktop& desktop) : m_desktop(desktop) {}

    void StandBeside(beside::ISheetList* sheets) override
    {
        m_sheets.reset();
        m_page.reset();
        m_listed = sheets;
    }
    [[nodiscard]] beside::ISheetList* Listed() const override { return m_listed; }

    void Appeared(HWND window, IForm& form) override
    {
        if (m_listed == nullptr || !m_listed->StandsBeside(form.Controls().front().name))
            return;
        try {
            m_form = &form;
            if (m_page == nullptr && m_listed->Page() != nullptr)
                m_page = std::make_unique<PageKeeper>(*m_listed->Page());
            m_sheets = std::make_unique<SheetsWindow>(*m_listed, form, window, m_page.get());
            m_sheets->Appear();
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
        if (&form == m_form)
            m_sheets.reset();
    }
    bool Take(const tagMSG& message) override { return m_sheets != nullptr && m_sheets->Take(message); }

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
    std::optional<std::string> ChooseDrawing(const std::vector<std::string>& /*recent*/) override
    {
        return m_desktop.AskOpenFile({"Open Drawing", {}, "Drawings", "dxf;dwg", true, 0});
    }

private:
    IDesktop& m_desktop;
    beside::ISheetList* m_listed = nullptr;
    const IForm* m_form = nullptr;      ///< that the window stands beside
    std::unique_ptr<PageKeeper> m_page; ///< of the list; null: it brings none, or no form was up
    std::unique_ptr<SheetsWindow> m_sheets;
    std::unique_ptr<ProgressWindow> m_progress;
};

} // namespace

std::unique_ptr<IWin32Company> CreateCompany(IDesktop& desktop)
{
    return std::make_unique<Win32Company>(desktop);
}

} // namespace sm::win32
