// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/TerminalDesktop.h"

#include "MessageAnswers.h"

namespace sm::terminal {
namespace {

/// The name a save dialog would come back with when it is confirmed as it stands.
std::string ConfirmedName(const FileDialog& dialog)
{
    const std::string extension = "." + dialog.filterExtension;
    if (dialog.filterExtension.empty() || dialog.defaultName.empty() || dialog.defaultName.ends_with(extension))
        return dialog.defaultName;
    return dialog.defaultName + extension;
}

class TerminalDesktop final : public IDesktop {
public:
    TerminalDesktop(Console& console, DesktopOptions options) : m_console(console), m_options(std::move(options)) {}

    MessageAnswer ShowMessage(const Message& message) override
    {
        m_console.Line(MessageLine(message));
        if (m_options.shown)
            m_options.shown(message);
        return AnswerWithoutScreen(message);
    }

    void Beep() override {}

    std::optional<std::string> AskOpenFile(const FileDialog&) override { return std::nullopt; }

    std::optional<std::string> AskSaveFile(const FileDialog& dialog) override
    {
        if (m_options.savePath)
            return m_options.savePath;
        const std::string name = ConfirmedName(dialog);
        if (name.empty())
            return std::nullopt;
        m_console.Line("note: saving as " + name + " (-o names another file)");
        return name;
    }

    std::optional<std::int32_t> AskColor(std::int32_t) override { return std::nullopt; }

    bool OpenDocument(const std::string& pathOrAddress) override
    {
        return m_options.open && m_options.open(pathOrAddress);
    }

    bool ShowHelp(const std::string&, std::int32_t) override
    {
        m_console.Line("note: there is no screen for the help; \"sheetmaker --help\" explains every command");
        return false;
    }

private:
    Console& m_console;
    DesktopOptions m_options;
};

} // namespace

std::unique_ptr<IDesktop> CreateTerminalDesktop(Console& console, DesktopOptions options)
{
    return std::make_unique<TerminalDesktop>(console, std::move(options));
}

} // namespace sm::terminal
