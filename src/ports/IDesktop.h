// SPDX-License-Identifier: GPL-3.0-or-later
// What the user sees outside forms: message boxes, file and colour dialogs, opening documents, help.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace sm {

enum class MessageButtons { Ok, OkCancel, YesNo };
enum class MessageIcon { None, Critical, Question, Exclamation, Information };
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// A modal message. Every message of the plug-in has a Help button.
struct Message {
    std::string text; ///< lines are separated by "\r\n"
    std::string title;
    MessageButtons buttons = MessageButtons::Ok;
    MessageIcon icon = MessageIcon::None;
    std::string helpFile;
    std::int32_t helpContext = 0; ///< 0: no Help button
    friend bool operator==(const Message&, const Message&) = default;
};

struct FileDialog {
    std::string title;
    std::string defaultName;     ///< a name or full path; "<folder>\*.*" starts in the folder, with no name
    std::string filterName;      ///< "PDF files"
    std::string filterExtension; ///< "pdf"
    bool warnOnOverwrite = true;
    std::int32_t owner = 0;
};

/// No operation throws; a failing dialog counts as cancelled.
class IDesktop {
public:
    virtual ~IDesktop() = default;
    virtual MessageAnswer ShowMessage(const Message& message) = 0;
    virtual void Beep() = 0;
    /// Nothing when cancelled.
    virtual std::optional<std::string> AskOpenFile(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> AskSaveFile(const FileDialog& dialog) = 0;
    /// RGB with red in the low byte.
    virtual std::optional<std::int32_t> AskColor(std::int32_t initial) = 0;
    /// Opens a file or web address with the program for it; false when there is none.
    virtual bool OpenDocument(const std::string& pathOrAddress) = 0;
    virtual bool ShowHelp(const std::string& helpFile, std::int32_t context) = 0;
};

} // namespace sm
