// SPDX-License-Identifier: GPL-3.0-or-later
// The page that would come out, kept while the window that shows it comes and goes with its form.
#pragma once

#include "scene/PreviewDrawer.h"
#include "window/OwnWindow.h"

#include <functional>
#include <memory>

namespace sm::win32 {

class PageKeeper final : public OwnWindow {
public:
    /// `source` outlives the keeper. Throws std::runtime_error when the thread can't be given messages.
    explicit PageKeeper(beside::IPageSource& source);
    ~PageKeeper() override;

    /// Something may have changed.
    void Renew() { m_drawer->Renew(); }
    [[nodiscard]] bool IsBusy() const { return m_drawer->IsBusy(); }
    /// The page that was drawn last.
    [[nodiscard]] const scene::DrawnPreview& Page() const { return m_page; }
    [[nodiscard]] bool HasPage() const { return m_hasPage; }

    std::function<void()> onPage; ///< another one has been drawn

private:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM extra) override { return ByDefault(message, wide, extra); }

    scene::DrawnPreview m_page;
    bool m_hasPage = false;
    std::unique_ptr<scene::PreviewDrawer> m_drawer;
};

} // namespace sm::win32
