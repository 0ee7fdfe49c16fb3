// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/RowFiles.h"

#include <algorithm>

namespace sm::scene {

std::size_t ControlNamed(const IForm& form, const std::string& name)
{
    const auto& controls = form.Controls();
    const auto found = std::ranges::find_if(controls, [&](const FormControl& control) { return control.name == name; });
    return found == controls.end() ? 0 : static_cast<std::size_t>(found - controls.begin());
}

void RowFiles::Begin(const std::vector<std::string>& paths)
{
    m_files.assign(paths.begin(), paths.end());
    m_isAdding = true;
}

void RowFiles::Forget()
{
    m_files.clear();
    m_isAdding = false;
}

std::optional<std::string> RowFiles::Next(std::size_t rows)
{
    m_rows = rows;
    m_isAdding = !m_files.empty();
    if (!m_isAdding)
        return std::nullopt;
    std::string file = std::move(m_files.front());
    m_files.pop_front();
    return file;
}

void RowFiles::RowEnded(std::size_t rows)
{
    if (rows <= m_rows)
        m_files.clear();
}

} // namespace sm::scene
