// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/controls/FormReporter.h"

namespace sm::windows {

void FormReporter::Clicked(std::size_t control)
{
    Tell(control, [&](IForm& form) { form.UserClicked(control); });
}

void FormReporter::Selected(std::size_t control, std::int32_t position)
{
    Tell(control, [&](IForm& form) { form.UserSelected(control, position); });
}

void FormReporter::Left(std::size_t control)
{
    Tell(control, [&](IForm& form) { form.UserLeft(control); });
}

void FormReporter::KeyboardLeaves(std::size_t control, HWND to)
{
    const std::size_t next = controlOf(to);
    if (next != 0 && next != control)
        Later([this, control] { Left(control); });
}

void FormReporter::Later(std::function<void()> report)
{
    if (IsSilent())
        return;
    m_putOff.push_back(std::move(report));
    wake();
}

void FormReporter::Settle()
{
    const auto reports = std::exchange(m_putOff, {});
    for (const auto& report : reports)
        report();
}

} // namespace sm::windows
