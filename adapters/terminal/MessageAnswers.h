// SPDX-License-Identifier: GPL-3.0-or-later
// How a message box is answered when there is nobody to ask: by the answer that loses nothing.
#pragma once

#include "ports/IDesktop.h"

#include <string>

namespace sm::terminal {

/// By help context where a question is known; else OK to a notice, Cancel or No to an unknown question.
MessageAnswer AnswerWithoutScreen(const Message& message);

/// The message as one line: what kind it is, its text, and to a question the answer and what it means.
std::string MessageLine(const Message& message);

} // namespace sm::terminal
