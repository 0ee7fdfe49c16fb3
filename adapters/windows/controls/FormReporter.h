// SPDX-License-Identifier: GPL-3.0-or-later
// The way from the windows of a form's controls to the form.
#pragma once

#include "ports/IFormToolkit.h"

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include <windef.h>

namespace sm::windows {

/// Silent while the windows are brought in step with the form.
///
/// What the system tells in the middle of a change of its own (the keyboard moves, rows are chosen one by one) is put
/// off until that has come to rest, but never behind a later report.
class FormReporter {
public:
    explicit FormReporter(IForm& form) : m_form(form) {}

    // Set by the view.
    std::function<void(std::size_t control)> showAnew; ///< the form may have refused what the window did already
    std::function<void()> wake;                        ///< has Settle called from the message loop
    std::function<std::size_t(HWND window)> controlOf; ///< 0 when it is in none of the form's controls

    template <class Report> void Tell(std::size_t control, const Report& report)
    {
        if (IsSilent())
            return;
        Settle();
        report(m_form);
        showAnew(control);
    }
    void Clicked(std::size_t control);
    void Selected(std::size_t control, std::int32_t position);
    /// The keyboard goes from `control` to the window `to`.
    void KeyboardLeaves(std::size_t control, HWND to);
    void Left(std::size_t control);

    void Later(std::function<void()> report);
    /// Makes the reports that were put off.
    void Settle();

    [[nodiscard]] bool IsSilent() const { return m_silent > 0; }
    /// What the form holds now.
    [[nodiscard]] const FormControl& State(std::size_t control) const { return m_form.Controls()[control]; }

    class Silence {
    public:
        explicit Silence(FormReporter& reporter) : m_reporter(reporter) { ++m_reporter.m_silent; }
        ~Silence() { --m_reporter.m_silent; }
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;

    private:
        FormReporter& m_reporter;
    };

private:
    IForm& m_form;
    int m_silent = 0;
    std::vector<std::function<void()>> m_putOff;
};

} // namespace sm::windows
