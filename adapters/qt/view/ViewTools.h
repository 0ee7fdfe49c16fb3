// SPDX-License-Identifier: GPL-3.0-or-later
// The buttons over the drawing's view, and what they keep in step with it.
#pragma once

#include "beside/WindowMemory.h"
#include "view/DrawingView.h"

#include <QToolBar>

class QAction;
class QLabel;

namespace sm::qt {

class ViewTools final : public QToolBar {
public:
    /// The background comes back as it was left; null for a memory: it is light.
    ViewTools(DrawingView& view, beside::IWindowMemory* memory);

    [[nodiscard]] bool SnapsAreOn() const;
    std::function<void()> onSnaps; ///< they were switched

private:
    QAction* Add(const char* name, const char* tip, const std::function<void()>& run);
    QAction* AddSwitch(const char* name, const char* objectName, const char* tip, const std::function<void()>& run);
    void ShowBackdrop(bool isDark);

    DrawingView& m_view;
    beside::IWindowMemory* m_memory;
    QAction* m_snaps = nullptr;
    QAction* m_dark = nullptr;
    QAction* m_keysAction = nullptr;
    QLabel* m_keys = nullptr; ///< belongs to the view
};

} // namespace sm::qt
