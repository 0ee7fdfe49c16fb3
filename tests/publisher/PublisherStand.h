// SPDX-License-Identifier: GPL-3.0-or-later
// What the publisher's tests stand on: a folder of their own, a desktop that answers, small PostScript pages, and
// tools that aren't ours to look at results.
#pragma once

#include "ports/IDesktop.h"
#include "publisher/Publisher.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace sm::publisher {

/// Answers from fields and remembers what it was asked.
class AnsweringDesktop : public IDesktop {
public:
    MessageAnswer ShowMessage(const Message& message) override
    {
        messages.push_back(message);
        return MessageAnswer::Ok;
    }
    void Beep() override {}
    std::optional<std::string> AskOpenFile(const FileDialog&) override { return std::nullopt; }
    std::optional<std::string> AskSaveFile(const FileDialog& dialog) override
    {
        dialogs.push_back(dialog);
        if (saveAnswers.empty()) {
            return std::nullopt;
        }
        const std::string answer = saveAnswers.front();
        saveAnswers.erase(saveAnswers.begin());
        return answer;
    }
    std::optional<std::int32_t> AskColor(std::int32_t) override { return std::nullopt; }
    bool OpenDocument(const std::string& path) override
    {
        opened.push_back(path);
        return canOpen;
    }
    bool ShowHelp(const std::string&, std::int32_t) override { return false; }

    bool canOpen = true;
    std::vector<std::string> saveAnswers;
    std::vector<std::string> opened;
    std::vector<Message> messages;
    std::vector<FileDialog> dialogs;
};

struct ToolResult {
    int exitCode = -1;
    std::string output; ///< standard output and error
};

/// Runs a shell command.
ToolResult RunTool(const std::string& command);
std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& bytes);
/// Every path below `folder`, relative, sorted, folders with a trailing slash.
std::vector<std::string> ListTree(const std::string& folder);

/// Every test gets folders "out" and "work", removed afterwards, and a publisher that works in them.
class PublisherTest : public testing::Test {
protected:
    PublisherTest();
    ~PublisherTest() override;

    std::unique_ptr<IPublishingLibrary> Library() { return CreatePublisher(m_options, m_desktop); }
    std::string Out(const std::string& name) const { return m_root + "/out/" + name; }
    /// Writes a PostScript file of its own into "out".
    std::string PostScript(const std::string& name, const std::string& body) const;
    /// The path of a new file of `doc` that holds a page with a line of text.
    std::string NewPage(IPubDoc& doc, const std::string& text = "Sheet") const;
    std::string JobOptionsFile(const std::string& name, const std::string& bytes) const;

    std::string m_root;
    AnsweringDesktop m_desktop;
    std::vector<std::string> m_notes;
    std::vector<SaveReport> m_reports;
    PublisherOptions m_options;
};

/// A page with text, a line and a red bar.
std::string PageBody(const std::string& text);

} // namespace sm::publisher
