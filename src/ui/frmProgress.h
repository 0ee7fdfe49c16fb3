// SPDX-License-Identifier: GPL-3.0-or-later
// The window that is up while the drawing is scanned for hyperlinks and block attributes.
#pragma once

#include "ui/form/Form.h"

#include <functional>

namespace sm {

/// Once it is active it paints itself, runs the scan and hides, which ends ShowModal. It refuses to be closed by the
/// user while `UnloadFlag` is false.
class frmProgress final : public Form {
public:
    explicit frmProgress(FormSession& session);

    /// What the window scans, as one routine; it is run once, on the first activation.
    std::function<void()> Scan;
    bool UnloadFlag = false;

    /// Shows per cent done; the window is repainted when the whole number changes.
    void Advance(double perCent);
};

} // namespace sm
