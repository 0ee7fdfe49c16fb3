// SPDX-License-Identifier: GPL-3.0-or-later
// The list of the drawing's sheets that stands beside the settings dialog: which layout is the current tab, and which
// sheets become pages.
#pragma once

#include "beside/Drawings.h"
#include "beside/PageSource.h"
#include "ports/FormControls.h"

#include <optional>
#include <string>
#include <vector>

namespace sm::beside {

struct SheetRow {
    std::string name;
    bool isModel = false;   ///< becomes a page as the current tab alone
    bool isCurrent = false; ///< the drawing's active layout
    bool isTicked = false;  ///< becomes a page when all layouts are asked for
    friend bool operator==(const SheetRow&, const SheetRow&) = default;
};

/// As things stand while a form is up.
struct SheetsNow {
    std::string headline;         ///< what would be plotted, one sentence
    bool ticksCount = false;      ///< the form asks for all layouts: those that are ticked
    std::vector<SheetRow> rows{}; ///< in tab order
    friend bool operator==(const SheetsNow&, const SheetsNow&) = default;
};

/// Nothing here throws. Sheets go by their layouts' names.
class ISheetList {
public:
    virtual ~ISheetList() = default;
    /// Whether the list belongs to the form of that name.
    [[nodiscard]] virtual bool StandsBeside(const std::string& form) const = 0;
    /// By the form's controls as they are at the moment.
    [[nodiscard]] virtual SheetsNow Now(const std::vector<FormControl>& form) = 0;
    virtual void MakeCurrent(const std::string& name) = 0;
    /// What was not done and why, one sentence; empty when it was done.
    virtual std::string Tick(const std::string& name, bool isTicked) = 0;
    virtual void TickAll() = 0;
    /// Ticks those that `words`, separated by commas, mean, and no others: names, patterns, ranges, numbers. The
    /// result is that of `Tick`.
    virtual std::string TickMeant(const std::string& words) = 0;
    /// Marks of a layout as the form holds them: places in drawing units, sizes of stamps in millimetres of paper.
    [[nodiscard]] virtual std::vector<PageMark> MarksOn(const std::string& /*layout*/) { return {}; }
    /// The stamp that a pick would place, when it is the stamp that is placed.
    [[nodiscard]] virtual std::optional<PageMark> StampAtHand() { return std::nullopt; }
    /// The page that would come out of the current tab; null: there is no preview. Stays as long as the list.
    [[nodiscard]] virtual IPageSource* Page() { return nullptr; }
    /// Other drawings than the one at hand; null: there is no way to them. Stays as long as the list.
    [[nodiscard]] virtual IDrawings* Drawings() { return nullptr; }
    [[nodiscard]] virtual FileList Files() const { return {}; }
};

} // namespace sm::beside
