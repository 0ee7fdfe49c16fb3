// SPDX-License-Identifier: GPL-3.0-or-later
// One showing of the settings dialog with a drawing, the conversion that it may ask for, and what comes next.
#pragma once

#include "beside/RunEnd.h"
#include "screen/PagePreview.h"
#include "screen/RecentDrawings.h"
#include "screen/ScreenRun.h"
#include "screen/SheetChoice.h"

#include <iosfwd>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace sm::app {

/// What one showing hands on to the next.
struct Handover {
    std::string drawing{};                     ///< to be shown
    std::string layout{};                      ///< the active one; empty: the drawing's own
    std::set<std::string> off{};               ///< sheets that aren't wanted
    std::vector<SignatureFieldEntry> fields{}; ///< that the showing before stored; the form's list begins empty
    beside::NextStep step = beside::NextStep::SettingsAgain;
    bool isFirst = true;
    bool editsMarks = false; ///< in the drawing's window, before the dialog is shown
};

/// One showing of the dialog, with the drawing open for it, and the conversion that it may ask for.
class SettingsRun {
public:
    /// All outlive this object. Throws std::exception for a drawing that can't be read.
    SettingsRun(const Handover& before, const Install& install, const ScreenParts& screen, std::ostream& out,
                std::ostream& err);
    SettingsRun(const SettingsRun&) = delete;
    SettingsRun& operator=(const SettingsRun&) = delete;

    /// The exit code; nothing when the user left without a word.
    std::optional<int> Run();
    [[nodiscard]] Handover Next() const;

private:
    void Show();
    bool Read(DataKeg& keg);
    std::optional<PreviewWish> Wish();
    void TakeChoices();
    bool MayDropSignatureFields();
    void SaveDrawing();
    int TellConversion();
    int WithLostSetting(int exitCode);
    void AskWhatIsNext();
    void HandOver();

    std::string m_drawing, m_records; ///< the file that a save writes
    const Handover& m_before;
    const ScreenParts& m_screen;
    std::ostream& m_out;
    std::ostream& m_err;
    terminal::Console m_console;
    ScreenRun m_run;
    SheetChoice m_sheets;
    PagePreview m_page;
    OtherDrawings m_others;
    Handover m_next;
};

} // namespace sm::app
