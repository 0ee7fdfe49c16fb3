// SPDX-License-Identifier: GPL-3.0-or-later
// The windows that stand beside the plug-in's forms.
#pragma once

#include "beside/Company.h"
#include "ports/IDesktop.h"
#include "windows/forms/FormWatcher.h"

#include <memory>

namespace sm::win32 {

/// Watches the forms that it stands beside.
class IWin32Company : public beside::ICompany, public windows::IFormWatcher {
public:
    /// What was handed to it last; null: nothing.
    [[nodiscard]] virtual beside::ISheetList* Listed() const = 0;
    /// The one that it was made with, for the forms: what is dropped on them answers their questions for files.
    [[nodiscard]] virtual IDesktop& Desktop() = 0;
};

/// `desktop` outlives the company.
std::unique_ptr<IWin32Company> CreateCompany(IDesktop& desktop);

} // namespace sm::win32
