// SPDX-License-Identifier: GPL-3.0-or-later
// The ways from a form that is up to another drawing and to the drawing's own marks, in every toolkit.
#pragma once

#include "beside/Drawings.h"
#include "ports/IDesktop.h"
#include "ports/IFormToolkit.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace sm::scene {

/// By its ending: DXF or DWG.
bool IsDrawingFile(const std::string& path);
/// Nothing when the user cancelled.
std::optional<std::string> AskForDrawing(IDesktop& desktop);

/// Belongs to the thread of the screen.
class WaysFromForm {
public:
    /// All outlive this object, which is made when the form is shown first. `close` closes the form as its close box
    /// does.
    WaysFromForm(const IForm& form, beside::IDrawings& drawings, IDesktop& desktop, std::function<void()> close);

    /// The form is up, or no longer: from then on nothing happens.
    void FormIsUp(bool isUp) { m_isUp = isUp; }
    /// Closes the form and goes on with that drawing; nothing: the user is asked for one. What was entered in the form
    /// is dropped after a question alone.
    void Open(const std::optional<std::string>& path);
    /// Closes the form, after the same question, and goes on with the marks.
    void EditMarks();

private:
    [[nodiscard]] bool MayDropEntries(const std::string& what) const;

    const IForm& m_form;
    beside::IDrawings& m_drawings;
    IDesktop& m_desktop;
    std::function<void()> m_close;
    std::vector<FormControl> m_atFirst; ///< the form's controls as it was shown first
    bool m_isUp = true;
};

} // namespace sm::scene
