// SPDX-License-Identifier: GPL-3.0-or-later
// Which sheets the user of the settings dialog wants plotted, and which layout is the current tab.
#pragma once

#include "beside/PageSource.h"
#include "beside/SheetList.h"
#include "cadhost/LayoutFacts.h"
#include "settings/DataKeg.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace sm::app {

/// The open drawing as the list needs it. All outlive the list; they may throw.
struct SheetSource {
    std::function<std::vector<cadhost::LayoutOutline>()> layouts; ///< all, in tab order
    std::function<std::string()> current;
    std::function<void(const std::string&)> makeCurrent;
    std::function<bool(DataKeg&)> read{}; ///< what the form holds; false: nothing can be told
    std::string form = "frmGUITap";       ///< that the list stands beside
};

/// Every sheet is ticked at first; one stays so always.
class SheetChoice final : public beside::ISheetList {
public:
    explicit SheetChoice(SheetSource source) : m_source(std::move(source)) {}

    [[nodiscard]] bool StandsBeside(const std::string& form) const override { return form == m_source.form; }
    [[nodiscard]] beside::SheetsNow Now(const std::vector<FormControl>& form) override;
    void MakeCurrent(const std::string& name) override;
    std::string Tick(const std::string& name, bool isTicked) override;
    void TickAll() override { m_off.clear(); }
    std::string TickMeant(const std::string& words) override;

    [[nodiscard]] beside::IDrawings* Drawings() override { return m_drawings; }
    /// The way to other drawings; null: none.
    void SetDrawings(beside::IDrawings* drawings) { m_drawings = drawings; }
    [[nodiscard]] beside::FileList Files() const override { return {"lstAttach", "frmAttach", "btnAttachBrowse"}; }
    [[nodiscard]] beside::IPageSource* Page() override { return m_page; }
    /// The preview that stands with the list; null: none.
    void SetPage(beside::IPageSource* page) { m_page = page; }

    [[nodiscard]] std::vector<beside::PageMark> MarksOn(const std::string& layout) override;
    [[nodiscard]] std::optional<beside::PageMark> StampAtHand() override;

    /// The paper layouts that a run is limited to; empty: all of them.
    [[nodiscard]] std::vector<std::string> Only();
    /// Sheets that aren't wanted, by name: what a list of the same drawing begins with.
    [[nodiscard]] const std::set<std::string>& Off() const { return m_off; }
    void Leave(const std::set<std::string>& off) { m_off = off; }

private:
    [[nodiscard]] std::vector<cadhost::LayoutOutline> Layouts();
    [[nodiscard]] std::vector<std::string> Sheets();

    SheetSource m_source;
    std::set<std::string> m_off;
    beside::IPageSource* m_page = nullptr;
    beside::IDrawings* m_drawings = nullptr;
    std::string m_stampText, m_tab; ///< as the form showed them last
};

} // namespace sm::app
