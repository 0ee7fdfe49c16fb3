// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows how far a conversion has come.
#pragma once

#include "beside/RunProgress.h"

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace sm::qt {

/// "about 20 seconds left", "about 3 minutes left"; empty while nothing can be told: before the second sheet.
QString TimeLeft(std::int32_t index, std::int32_t count, qint64 elapsedMilliseconds);

class ProgressWindow final : public QDialog {
public:
    ProgressWindow();
    /// Shows it, and paints it before it comes back.
    void Tell(const beside::RunProgress& progress);
    [[nodiscard]] bool IsCancelled() const { return m_isCancelled; }
    /// Escape and the close box cancel, too; the window stays until the sheet at hand has ended.
    void reject() override;

private:
    QLabel* m_sheet;
    QLabel* m_left;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
    QElapsedTimer m_since; ///< of the first sheet
    bool m_isCancelled = false;
};

} // namespace sm::qt
