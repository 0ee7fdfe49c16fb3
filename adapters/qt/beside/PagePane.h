// SPDX-License-Identifier: GPL-3.0-or-later
// The page that would come out, drawn anew whenever something in the form changes it.
#pragma once

#include "beside/PageSource.h"
#include "scene/PreviewDrawer.h"
#include "view/DrawingView.h"

#include <optional>

class QLabel;

namespace sm::qt {

using scene::DrawnPreview;
using scene::DrawPreview;

class PagePane final : public QWidget {
public:
    /// `source` outlives the pane.
    explicit PagePane(beside::IPageSource& source);

    /// Something may have changed.
    void Renew() { m_drawer.Renew(); }
    [[nodiscard]] bool IsBusy() const { return m_drawer.IsBusy(); }
    [[nodiscard]] const DrawnPreview& Shown() const { return m_shown; }

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void Show(DrawnPreview drawn);

    DrawingView* m_view;
    QLabel* m_trouble;
    DrawnPreview m_shown;
    double m_size = 0;             ///< of the page shown last, square millimetres
    std::optional<ViewMap> m_left; ///< the part that the user looked at when the pane was hidden
    scene::PreviewDrawer m_drawer; ///< the first that goes: its thread draws into nothing here
};

} // namespace sm::qt
