// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the page that would come out in a thread of its own, anew whenever it changes.
#pragma once

#include "scene/DrawnPreview.h"

#include <functional>
#include <thread>

namespace sm::scene {

class PreviewDrawer {
public:
    /// Runs work on the thread of the screen; what is posted when the drawer has gone must not be run.
    using Post = std::function<void(std::function<void()>)>;
    /// `source` outlives the drawer. `show` is called on the thread of the screen.
    PreviewDrawer(beside::IPageSource& source, Post post, std::function<void(DrawnPreview)> show);
    /// Waits for the thread.
    ~PreviewDrawer();
    PreviewDrawer(const PreviewDrawer&) = delete;
    PreviewDrawer& operator=(const PreviewDrawer&) = delete;

    /// Something may have changed.
    void Renew();
    /// Nobody looks any more: what is being drawn is dropped, and the next `Renew` draws whether or not something
    /// changed.
    void Forget();
    [[nodiscard]] bool IsBusy() const { return m_thread.joinable(); }

private:
    void Begin();
    void Take(DrawnPreview drawn);

    beside::IPageSource& m_source;
    Post m_post;
    std::function<void(DrawnPreview)> m_show;
    std::thread m_thread;
    std::atomic<bool> m_stop = false;
    bool m_isDue = false; ///< nothing is kept of what was drawn
    bool m_again = false; ///< another page is wanted than the one that is drawn
};

} // namespace sm::scene
