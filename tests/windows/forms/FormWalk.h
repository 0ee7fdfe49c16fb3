// SPDX-License-Identifier: GPL-3.0-or-later
// The plug-in's own windows over the test house, on the real toolkit.
#pragma once

#include "FormUser.h"
#include "doubles/TestHouse.h"
#include "ui/FormWindows.h"
#include "windows/forms/Win32Toolkit.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace sm::windows {

/// Says which forms were made, so that a user can name their controls.
class WatchedToolkit final : public IFormToolkit {
public:
    std::unique_ptr<IFormView> MakeView(IForm& form) override
    {
        {
            const std::lock_guard lock(m_guard);
            m_forms[form.Controls().front().name] = &form;
        }
        return m_toolkit->MakeView(form);
    }
    /// The user of a form that has been made; waits for it.
    [[nodiscard]] FormUser UserOf(const std::string& form);

private:
    std::unique_ptr<IFormToolkit> m_toolkit = CreateWin32Toolkit([] { return HWND(); });
    std::mutex m_guard;
    std::map<std::string, IForm*> m_forms;
};

class FormWalk : public TestHouse {
protected:
    using Texts = std::vector<std::string>;
    FormWalk() { BeginCall(); }
    /// A record in the drawing, as texts.
    [[nodiscard]] Texts Record(const std::string& name) const;

    WatchedToolkit toolkit;
    std::unique_ptr<IWindows> windows = CreateFormWindows(context, toolkit);
};

/// "one | two" for each row of a list view.
std::vector<std::string> RowsOf(const FormUser& user, const std::string& list);
/// Chooses the entry with that text.
void ChooseText(const FormUser& user, const std::string& combo, const std::string& item);
/// Clicks the box when it isn't as wanted.
void Tick(const FormUser& user, const std::string& box, bool ticked);

} // namespace sm::windows
