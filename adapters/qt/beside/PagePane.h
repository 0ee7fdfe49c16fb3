// SPDX-License-Identifier: GPL-3.0-or-later
// The page that would come out, drawn anew whenever something in the form changes it.
#pragma once

#include "beside/PageSource.h"
#include "scene/DrawnPreview.h"
#include "view/DrawingView.h"

#include <atomic>
#include <memory>
#include <optional>
#include <thread>

class QLabel;

namespace sm::qt {

using scene::DrawnPreview;
using scene::DrawPreview;

class PagePane final : public QWidget {
public:
    /// `source` outlives the pane.
    explicit PagePane(beside::IPageSource& source);
    /// Waits for the thread.
    ~PagePane() override;
    PagePane(const PagePane&) = delete;
    PagePane& operator=(const PagePane&) = delete;

    /// Something may have changed.
    void Renew();
    [[nodiscard]] bool IsBusy() const { return m_thread.joinable(); }
    [[nodiscard]] const DrawnPreview& Shown() const { return m_shown; }

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void Begin();
    void Take(DrawnPreview drawn);
    void Stop();

    beside::IPageSource& m_source;
    DrawingView* m_view;
    QLabel* m_trouble;
    DrawnPreview m_shown;
    double m_size = 0; ///< of the page shown last, square millimetres
    std::thread m_thread;
    std::atomic<bool> m_stop = false;
    std::optional<ViewMap> m_left; ///< the part that the user looked at when the pane was hidden
    bool m_isDue = false;          ///< nothing is kept of the page that was shown
    bool m_again = false;          ///< another page is wanted than the one that is drawn
};

} // namespace sm::qt
