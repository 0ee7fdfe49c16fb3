// SPDX-License-Identifier: GPL-3.0-or-later
#include "MessageAnswers.h"

#include <sstream>

namespace sm::terminal {
namespace {

struct KnownQuestion {
    std::int32_t helpContext;
    MessageButtons buttons;
    MessageAnswer answer;
    const char* remark;
};

constexpr KnownQuestion kKnownQuestions[] = {
    {170, MessageButtons::OkCancel, MessageAnswer::Cancel, "\"sheetmaker log\" shows it"},
    {180, MessageButtons::YesNo, MessageAnswer::Yes, "the setting stays as it is"},
    {279, MessageButtons::YesNo, MessageAnswer::Yes, "the PDF is made without annotations"},
};

const KnownQuestion* FindQuestion(const Message& message)
{
    for (const KnownQuestion& question : kKnownQuestions)
        if (question.helpContext == message.helpContext && question.buttons == message.buttons)
            return &question;
    return nullptr;
}

const char* Kind(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Critical:
        return "error: ";
    case MessageIcon::Exclamation:
        return "warning: ";
    case MessageIcon::Question:
        return "question: ";
    case MessageIcon::Information:
    case MessageIcon::None:
        break;
    }
    return "note: ";
}

const char* Name(MessageAnswer answer)
{
    switch (answer) {
    case MessageAnswer::Ok:
        return "OK";
    case MessageAnswer::Cancel:
        return "Cancel";
    case MessageAnswer::Yes:
        return "Yes";
    case MessageAnswer::No:
        break;
    }
    return "No";
}

std::string OnOneLine(const std::string& text)
{
    std::istringstream words(text);
    std::string line;
    for (std::string word; words >> word;)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

} // namespace

MessageAnswer AnswerWithoutScreen(const Message& message)
{
    if (const KnownQuestion* question = FindQuestion(message))
        return question->answer;
    switch (message.buttons) {
    case MessageButtons::Ok:
        return MessageAnswer::Ok;
    case MessageButtons::OkCancel:
        return MessageAnswer::Cancel;
    case MessageButtons::YesNo:
        break;
    }
    return MessageAnswer::No;
}

std::string MessageLine(const Message& message)
{
    std::string line = Kind(message.icon) + OnOneLine(message.text);
    if (message.buttons == MessageButtons::Ok)
        return line;
    line += std::string(" [answered: ") + Name(AnswerWithoutScreen(message));
    if (const KnownQuestion* question = FindQuestion(message))
        line += std::string("; ") + question->remark;
    return line + "]";
}

} // namespace sm::terminal
