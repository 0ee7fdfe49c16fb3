// SPDX-License-Identifier: GPL-3.0-or-later
// The tape that the scripted doubles share: every call is written down, and any call can be made to fail.
#pragma once

#include "doubles/FaultPlan.h"
#include "ports/HostError.h"

#include <map>
#include <string>
#include <vector>

namespace sm {

class CallTape {
public:
    /// Decides beside `FailCall` which calls fail; may be shared with other doubles. Null: none.
    FaultPlan* faults = nullptr;
    /// "Layout(Layout1).SetPlotType 5": object, its name in brackets when it has one, operation, arguments.
    std::vector<std::string> calls;
    /// False: only the last call is kept, as where thousands of runs are made.
    bool keepsCalls = true;

    /// Makes the call `name` ("Layout.SetPlotType") fail with `description`, after `skip` good ones, `times` times
    /// (-1: always).
    void FailCall(const std::string& name, const std::string& description, int times = -1, int skip = 0);
    /// Makes the call `name` give a null object, an empty text or an empty list, after `skip` good answers.
    void AnswerNothing(const std::string& name, int skip = 0) { m_answeringNothing[name] = skip; }
    void StopFailing();

    /// Called by the doubles first thing in every operation; throws HostError when the call is to fail.
    void Call(const std::string& object, const std::string& objectName, const std::string& operation,
              const std::string& arguments = {});

    /// What the call that was made last gives: `value`, or nothing when it is to.
    template <class Value> Value Answer(Value value) { return IsAnswerNothing() ? Value{} : value; }

    /// The calls whose line starts with `beginning`.
    [[nodiscard]] std::vector<std::string> CallsOf(const std::string& beginning) const;
    /// The calls whose line holds `part`.
    [[nodiscard]] std::vector<std::string> CallsWith(const std::string& part) const;

private:
    bool IsAnswerNothing();
    struct Failure {
        std::string description;
        int times = -1, skip = 0;
    };
    std::map<std::string, Failure> m_failures;
    std::map<std::string, int> m_answeringNothing; ///< how many good answers come before
    std::string m_lastCall;                        ///< "Layout.SetPlotType"
};

/// The shortest text of a double that reads back as it, "." as separator.
std::string TapeText(double value);
std::string TapeText(bool value);

} // namespace sm
