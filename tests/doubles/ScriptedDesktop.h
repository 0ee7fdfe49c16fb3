// SPDX-License-Identifier: GPL-3.0-or-later
// A desktop whose user answers from a script, and the windows and observer that go with it.
#pragma once

#include "doubles/CallTape.h"
#include "doubles/ProducedTexts.h"
#include "ports/IDesktop.h"
#include "ports/IRunObserver.h"
#include "ports/IWindows.h"

#include <deque>
#include <functional>
#include <utility>

namespace sm {

class ScriptedDesktop : public IDesktop {
public:
    std::deque<MessageAnswer> answers; ///< the first answers; when used up: OK, Cancel or Yes
    std::deque<std::string> filesChosen;
    std::int32_t colorChosen = -1; ///< -1: cancelled
    bool opensDocuments = true;
    int beeps = 0;
    std::vector<std::string> calls; ///< everything but messages and beeps
    std::vector<FileDialog> fileDialogs;

    /// The messages shown so far, which then count as looked at.
    [[nodiscard]] std::vector<Message> TakeMessages() { return std::exchange(m_messages, {}); }
    [[nodiscard]] bool HasUnreadMessages() const { return !m_messages.empty(); }

    MessageAnswer ShowMessage(const Message& message) override
    {
        m_messages.push_back(message);
        ProducedTexts().insert(message.text);
        if (!answers.empty()) {
            const MessageAnswer answer = answers.front();
            answers.pop_front();
            return answer;
        }
        switch (message.buttons) {
        case MessageButtons::OkCancel:
            return MessageAnswer::Cancel;
        case MessageButtons::YesNo:
            return MessageAnswer::Yes;
        default:
            return MessageAnswer::Ok;
        }
    }
    void Beep() override { ++beeps; }
    std::optional<std::string> AskOpenFile(const FileDialog& dialog) override { return File("AskOpenFile", dialog); }
    std::optional<std::string> AskSaveFile(const FileDialog& dialog) override { return File("AskSaveFile", dialog); }
    std::optional<std::int32_t> AskColor(std::int32_t initial) override
    {
        calls.push_back("AskColor " + std::to_string(initial));
        return colorChosen < 0 ? std::nullopt : std::optional(colorChosen);
    }
    bool OpenDocument(const std::string& pathOrAddress) override
    {
        calls.push_back("OpenDocument " + pathOrAddress);
        return opensDocuments;
    }
    bool ShowHelp(const std::string& helpFile, std::int32_t context) override
    {
        calls.push_back("ShowHelp " + helpFile + " " + std::to_string(context));
        return true;
    }

private:
    std::optional<std::string> File(const std::string& operation, const FileDialog& dialog)
    {
        calls.push_back(operation + " " + dialog.defaultName);
        fileDialogs.push_back(dialog);
        if (filesChosen.empty())
            return {};
        const std::string file = filesChosen.front();
        filesChosen.pop_front();
        return file;
    }
    std::vector<Message> m_messages;
};

/// Pickers answer with the scripted positions in turn; nothing scripted means cancelled.
class ScriptedWindows : public IWindows {
public:
    using Choice = std::optional<std::int32_t>;
    std::int32_t settingsResult = 0;
    std::function<void()> whileSettingsAreShown;
    bool pageSetupConfirmed = false;
    std::deque<Choice> stylesPicked, jobOptionsPicked, pageSizesPicked;
    std::vector<std::string> calls; ///< "PickJobOptions [A, B]"

    std::int32_t ShowConversionSettings() override
    {
        calls.emplace_back("ShowConversionSettings");
        if (whileSettingsAreShown)
            whileSettingsAreShown();
        return settingsResult;
    }
    bool ShowPageSetup(IAcadPageSetup&, const std::string& title) override
    {
        calls.push_back("ShowPageSetup " + title);
        return pageSetupConfirmed;
    }
    Choice PickPlotStyle(const std::vector<std::string>& names) override
    {
        return Pick("PickPlotStyle", names, stylesPicked);
    }
    Choice PickJobOptions(const std::vector<std::string>& names) override
    {
        return Pick("PickJobOptions", names, jobOptionsPicked);
    }
    Choice PickPageSize(const std::vector<std::string>& names) override
    {
        return Pick("PickPageSize", names, pageSizesPicked);
    }
    bool RunProgress(const std::function<bool(const std::function<void(double)>& advance)>& scan) override
    {
        calls.emplace_back("RunProgress");
        return scan([](double) {});
    }

private:
    Choice Pick(const std::string& operation, const std::vector<std::string>& names, std::deque<Choice>& choices)
    {
        std::string list;
        for (const std::string& name : names)
            list += (list.empty() ? "" : ", ") + name;
        calls.push_back(operation + " [" + list + "]");
        if (choices.empty())
            return {};
        const Choice choice = choices.front();
        choices.pop_front();
        return choice;
    }
};

class RecordingObserver : public IRunObserver {
public:
    std::vector<std::string> events;      ///< "sheet begins A1 1/2", ...
    std::vector<std::string> carriedPast; ///< "routine: description"
    std::vector<std::string> annotationsLost;

    std::function<void(const std::string& name)> atStage; ///< called on every stage

    void Stage(const std::string& name) noexcept override
    {
        events.push_back("stage " + name);
        if (atStage)
            atStage(name);
    }
    void SheetBegins(const std::string& layoutName, std::int32_t index, std::int32_t count) noexcept override
    {
        events.push_back("sheet begins " + layoutName + " " + std::to_string(index) + "/" + std::to_string(count));
    }
    void SheetEnds(const std::string& layoutName, std::int32_t status, std::int32_t markCount) noexcept override
    {
        events.push_back("sheet ends " + layoutName + " " + std::to_string(status) + " marks " +
                         std::to_string(markCount));
    }
    void Saved(const std::string& pdfPath, std::int32_t status, const std::string& errorText) noexcept override
    {
        events.push_back("saved " + pdfPath + " | " + std::to_string(status) + " | " + errorText);
    }
    void AnnotationsLost(const std::string& description) noexcept override { annotationsLost.push_back(description); }
    void CarriedPast(const std::string& routine, const std::string& description) noexcept override
    {
        carriedPast.push_back(routine + ": " + description);
    }
};

} // namespace sm
