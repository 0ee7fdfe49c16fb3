// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/QtDesktop.h"

#include "beside/HelpWindow.h"
#include "forms/FileDialogs.h"
#include "screen/ClosesOnSignal.h"
#include "screen/QtText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QColorDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace sm::qt {
namespace {

/// A question with Yes and No has no third answer: its close box and Escape do nothing.
class MessageWindow final : public QMessageBox {
public:
    MessageWindow(const Message& message, QWidget* owner);
    [[nodiscard]] MessageAnswer Ask();
    void reject() override
    {
        if (m_closeAnswer != QMessageBox::NoButton)
            done(m_closeAnswer);
    }

private:
    void WidenForLines();
    void closeEvent(QCloseEvent* event) override
    {
        event->ignore();
        reject();
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Escape)
            reject();
        else
            QMessageBox::keyPressEvent(event);
    }
    QMessageBox::StandardButton m_closeAnswer = QMessageBox::NoButton;
};

QMessageBox::Icon IconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

MessageWindow::MessageWindow(const Message& message, QWidget* owner) : QMessageBox(owner)
{
    setObjectName(QStringLiteral("message"));
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(ToQt(message.title));
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setText(ToQt(message.text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    setIcon(IconOf(message.icon));
    switch (message.buttons) {
    case MessageButtons::Ok:
        setStandardButtons(QMessageBox::Ok);
        m_closeAnswer = QMessageBox::Ok;
        break;
    case MessageButtons::OkCancel:
        setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        m_closeAnswer = QMessageBox::Cancel;
        break;
    case MessageButtons::YesNo:
        setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    }
    WidenForLines();
    setDefaultButton(message.buttons == MessageButtons::YesNo ? QMessageBox::Yes : QMessageBox::Ok);
}

/// Lines that the message breaks itself aren't broken again, as far as the screen allows.
void MessageWindow::WidenForLines()
{
    auto* const label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (label == nullptr || screen() == nullptr)
        return;
    ensurePolished();
    const int widest = label->fontMetrics().size(0, text()).width() + 2 * label->margin() + 2;
    label->setMinimumWidth(std::min(widest, screen()->availableGeometry().width() * 2 / 3));
}

MessageAnswer MessageWindow::Ask()
{
    switch (exec()) {
    case QMessageBox::Ok:
        return MessageAnswer::Ok;
    case QMessageBox::Yes:
        return MessageAnswer::Yes;
    case QMessageBox::No:
        return MessageAnswer::No;
    default:
        return MessageAnswer::Cancel;
    }
}

class QtDesktop final : public IDesktop {
public:
    QtDesktop(const ScreenOptions& options, ScreenState& state) : m_options(options), m_state(state) {}
    MessageAnswer ShowMessage(const Message& message) override;
    void Beep() override { QApplication::beep(); }
    std::optional<std::string> AskOpenFile(const FileDialog& dialog) override
    {
        return m_state.dropped ? std::exchange(m_state.dropped, std::nullopt) : Ask(dialog, false);
    }
    std::optional<std::string> AskSaveFile(const FileDialog& dialog) override { return Ask(dialog, true); }
    std::optional<std::int32_t> AskColor(std::int32_t initial) override;
    bool OpenDocument(const std::string& pathOrAddress) override;
    bool ShowHelp(const std::string& helpFile, std::int32_t context) override;

private:
    bool ShowOwnHelp(std::int32_t context);
    std::optional<std::string> Ask(const FileDialog& dialog, bool toSave);
    ScreenOptions m_options;
    ScreenState& m_state;
};

/// `body`'s result; `otherwise` when it throws.
template <class Result, class Body> Result Attempted(Result otherwise, const Body& body) noexcept
{
    try {
        return body();
    } catch (...) {
        return otherwise;
    }
}

MessageAnswer QtDesktop::ShowMessage(const Message& message)
{
    return Attempted(MessageAnswer::Cancel, [&] {
        const ClosesOnSignal closesOnSignal;
        MessageWindow window(message, QApplication::activeModalWidget());
        if (message.helpContext != 0) {
            QPushButton* const help = window.addButton(QMessageBox::Help);
            help->disconnect(); // of the box, which would close
            QObject::connect(help, &QPushButton::clicked, &window, [&] {
                if (!ShowHelp(message.helpFile, message.helpContext))
                    Beep();
            });
        }
        return window.Ask();
    });
}

std::optional<std::string> QtDesktop::Ask(const FileDialog& dialog, bool toSave)
{
    return Attempted(std::optional<std::string>(), [&] {
        const ClosesOnSignal closesOnSignal;
        return AskFile(dialog, toSave, QApplication::activeModalWidget(), m_state.memory);
    });
}

std::optional<std::int32_t> QtDesktop::AskColor(std::int32_t initial)
{
    return Attempted(std::optional<std::int32_t>(), [&]() -> std::optional<std::int32_t> {
        const ClosesOnSignal closesOnSignal;
        const QColor start(initial & 0xFF, (initial >> 8) & 0xFF, (initial >> 16) & 0xFF);
        QColorDialog dialog(start, QApplication::activeModalWidget());
        dialog.setObjectName(QStringLiteral("color"));
        if (dialog.exec() != QDialog::Accepted)
            return std::nullopt;
        const QColor chosen = dialog.selectedColor();
        return chosen.red() | chosen.green() << 8 | chosen.blue() << 16;
    });
}

bool QtDesktop::OpenDocument(const std::string& pathOrAddress)
{
    return Attempted(false, [&] { return m_options.open && m_options.open(pathOrAddress); });
}

bool QtDesktop::ShowOwnHelp(std::int32_t context)
{
    return ShowHelpWindow({m_options.helpFolder + "/index.html", m_options.open, m_state.memory}, context,
                          QApplication::activeModalWidget());
}

/// The pages are our own, whatever help file the machine's settings name.
bool QtDesktop::ShowHelp(const std::string&, std::int32_t context)
{
    return Attempted(false, [&] {
        QUrl page = QUrl::fromLocalFile(ToQt(m_options.helpFolder + "/index.html"));
        if (context != 0)
            page.setFragment(QStringLiteral("c%1").arg(context));
        return OpenDocument(page.toEncoded().toStdString()) || ShowOwnHelp(context);
    });
}

} // namespace

std::unique_ptr<IDesktop> CreateQtDesktop(const ScreenOptions& options, ScreenState& state)
{
    return std::make_unique<QtDesktop>(options, state);
}

} // namespace sm::qt
