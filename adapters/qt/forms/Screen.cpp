// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/Screen.h"

#include "beside/EndWindow.h"
#include "beside/ProgressWindow.h"
#include "beside/StartWindow.h"
#include "forms/Pictures.h"
#include "forms/QtDesktop.h"
#include "forms/QtForms.h"
#include "scene/WaysFromForm.h"
#include "screen/ScreenProbe.h"

#include <QApplication>
#include <QIcon>

#include <clocale>
#include <cstdio>

namespace sm::qt {
namespace {

/// What Qt remarks on fonts, buses and styles is of no use to the user of a dialog.
void HearQt(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

/// Makes the application object and leaves the process as it was besides: Qt sets the C locale from the environment,
/// and the libraries beneath us write their numbers by it.
class Application {
public:
    Application() : m_application(m_count, m_arguments)
    {
        std::setlocale(LC_NUMERIC, m_numeric.c_str());
        QApplication::setApplicationName(QStringLiteral("sheetmaker-pdf"));
        QGuiApplication::setDesktopFileName(QStringLiteral("sheetmaker-pdf"));
        QApplication::setWindowIcon(ProgramIcon());
        QApplication::setQuitOnLastWindowClosed(false); // between two windows a run goes on
    }

private:
    std::string m_numeric = std::setlocale(LC_NUMERIC, nullptr);
    QtMessageHandler m_before = qInstallMessageHandler(HearQt);
    int m_count = 1;
    char m_name[15] = "sheetmaker-pdf";
    char* m_arguments[2] = {m_name, nullptr};
    QApplication m_application;
};

class QtScreen final : public Screen, public beside::ICompany {
public:
    explicit QtScreen(const ScreenOptions& options)
        : m_desktop(CreateQtDesktop(options, m_state)), m_forms(CreateQtForms(m_state))
    {
        m_state.memory = options.memory;
        m_state.desktop = m_desktop.get();
    }
    IFormToolkit& Toolkit() override { return *m_forms; }
    IDesktop& Desktop() override { return *m_desktop; }
    beside::ICompany& Company() override { return *this; }
    [[nodiscard]] beside::ISheetList* Listed() const override { return m_state.sheets; }
    void StandBeside(beside::ISheetList* sheets) override { m_state.sheets = sheets; }
    void ShowProgress(const beside::RunProgress& progress) override
    {
        if (m_progress == nullptr)
            m_progress = std::make_unique<ProgressWindow>();
        m_progress->Tell(progress);
    }
    void HideProgress() override { m_progress.reset(); }
    bool IsCancelled() override
    {
        if (m_progress != nullptr)
            QApplication::processEvents();
        return m_progress != nullptr && m_progress->IsCancelled();
    }
    beside::NextStep ShowEnd(const beside::RunEnd& end) override { return AskAtEnd(end, *m_desktop, m_state.memory); }
    std::optional<std::string> ChooseDrawing(const std::vector<std::string>& recent) override
    {
        return recent.empty() ? scene::AskForDrawing(*m_desktop) : AskAmongRecent(recent, m_state);
    }

private:
    Application m_application;
    ScreenState m_state;
    std::unique_ptr<ProgressWindow> m_progress;
    std::unique_ptr<IDesktop> m_desktop;
    std::unique_ptr<IFormToolkit> m_forms;
};

} // namespace

std::unique_ptr<Screen> Screen::Open(const ScreenOptions& options, std::string& why)
{
    if (QCoreApplication::instance() != nullptr) {
        why = "The screen is in use already.";
        return nullptr;
    }
    HeldDisplay held;
    if (!ScreenIsThere(why, held))
        return nullptr;
    return std::make_unique<QtScreen>(options);
}

} // namespace sm::qt
