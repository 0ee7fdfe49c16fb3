// SPDX-License-Identifier: GPL-3.0-or-later
// A tab strip and its pages.
#pragma once

#include "windows/controls/ControlWindow.h"

#include <vector>

namespace sm::windows {

/// Passes on what the windows inside tell their parent.
class HolderWindow : public ControlWindow {
public:
    using ControlWindow::ControlWindow;

protected:
    LRESULT Handle(UINT message, WPARAM wide, LPARAM extra) override;
};

class TabStripWindow final : public HolderWindow {
public:
    explicit TabStripWindow(const ControlSite& site);

    /// Puts the page behind the others and says which it is.
    int Add(const ControlWindow& page, const std::string& caption);
    void SetCaption(int page, const std::string& caption);
    /// Where the pages lie, in pixels of the strip.
    [[nodiscard]] RECT Inside() const;

    LRESULT Notify(const NMHDR& notice) override;
    [[nodiscard]] SIZE Needed(const FormFont&) const override;
    [[nodiscard]] RECT Border(const FormFont&) const override;

private:
    void Apply(const FormControl& control, const FormControl& last) override;
    LRESULT Handle(UINT message, WPARAM wide, LPARAM extra) override;

    std::vector<const ControlWindow*> m_pages;
};

/// Fills its strip's inside.
class TabPageWindow final : public HolderWindow {
public:
    explicit TabPageWindow(const ControlSite& site);

    void Place(const RECT& place, const FormUnits& units) override;
    [[nodiscard]] COLORREF Surface() const override;

private:
    void Apply(const FormControl& control, const FormControl& last) override;

    TabStripWindow* m_strip;
    int m_page = 0;
};

} // namespace sm::windows
