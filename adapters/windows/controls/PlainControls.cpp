// SPDX-License-Identifier: GPL-3.0-or-later
// What only shows something: labels, images, progress bars.
#include "windows/controls/ControlWindow.h"

#include "windows/automation/WideText.h"
#include "windows/controls/FormPictures.h"

#include <commctrl.h>

namespace sm::windows {
namespace {

constexpr std::int32_t kTextLine = 8; ///< dialog units

class LabelWindow final : public ControlWindow {
public:
    explicit LabelWindow(const ControlSite& site)
        : ControlWindow(site), m_wraps(site.control.place.height >= 2 * kTextLine)
    {
        Create(L"STATIC", m_wraps ? SS_LEFT : SS_LEFTNOWORDWRAP);
    }
    [[nodiscard]] SIZE Needed(const FormFont& font) const override
    {
        return m_wraps ? SIZE{0, 0} : font.Size(Wide(Shown().caption));
    }
    [[nodiscard]] bool WrapsInto(const FormFont& font, const SIZE& room) const override
    {
        return !m_wraps || font.HeightAt(Wide(Shown().caption), room.cx) <= room.cy;
    }

private:
    bool m_wraps;
};

class ImageWindow final : public ControlWindow {
public:
    explicit ImageWindow(const ControlSite& site) : ControlWindow(site)
    {
        Create(L"STATIC", SS_OWNERDRAW);
        SetWindowTextW(Window(), PictureName(site.control.picture));
    }
    void UseFont(const FormFont& font) override
    {
        m_font = font.Handle();
        ControlWindow::UseFont(font);
    }
    void Draw(const DRAWITEMSTRUCT& item) override
    {
        DrawPicture(item.hDC, Shown().picture, item.rcItem, {m_font, Surface()});
    }

private:
    void Apply(const FormControl&, const FormControl&) override {}
    HFONT m_font = nullptr;
};

class ProgressWindow final : public ControlWindow {
public:
    explicit ProgressWindow(const ControlSite& site) : ControlWindow(site)
    {
        Create(PROGRESS_CLASSW, PBS_SMOOTH);
        SendMessageW(Window(), PBM_SETRANGE32, 0, 100);
    }

private:
    void Apply(const FormControl& control, const FormControl&) override
    {
        SendMessageW(Window(), PBM_SETPOS, static_cast<WPARAM>(control.value), 0);
    }
};

} // namespace

std::unique_ptr<ControlWindow> MakePlainWindow(const ControlSite& site)
{
    switch (site.control.kind) {
    case ControlKind::Label:
        return std::make_unique<LabelWindow>(site);
    case ControlKind::Image:
        return std::make_unique<ImageWindow>(site);
    case ControlKind::ProgressBar:
        return std::make_unique<ProgressWindow>(site);
    default:
        return nullptr;
    }
}

} // namespace sm::windows
