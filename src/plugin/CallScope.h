// SPDX-License-Identifier: GPL-3.0-or-later
// The life of one call's context: host, drawing and open log, put back when the scope ends.
#pragma once

#include "plugin/CallContext.h"

namespace sm {

/// Sets the context, counts blocks from 1 and opens the conversion log; the destructor closes the log and clears the
/// context. What can't be had stays null: without a log the call's lines are dropped. Nothing throws.
class CallScope {
public:
    /// What the end of the scope clears first, after the log is closed.
    enum class ClearFirst { Log, Host };

    CallScope(CallContext& context, const std::shared_ptr<IAcadApplication>& app, ClearFirst clearFirst);
    /// The same for a drawing that need not be the active one; the log is cleared first.
    CallScope(CallContext& context, const std::shared_ptr<IAcadApplication>& app,
              const std::shared_ptr<IAcadDocument>& document);
    ~CallScope();
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;

private:
    void Begin() noexcept;
    void ClearHost() noexcept;
    CallContext& m_context;
    ClearFirst m_clearFirst;
};

} // namespace sm
