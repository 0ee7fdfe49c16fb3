// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/SheetChoice.h"

#include "base/Units.h"
#include "base/text/NumberText.h"
#include "layouts/LayoutNames.h"
#include "settings/StampChoices.h"

#include <algorithm>
#include <fmt/format.h>
#include <sstream>

namespace sm::app {
namespace {

/// A drawing that can't be asked any more has nothing to list.
template <class Result, class Work> Result Asked(const Work& work) noexcept
{
    try {
        return work();
    } catch (...) {
        return Result();
    }
}

constexpr const char* kStampTab = "Text Stamp";

const FormControl* ControlOf(const std::vector<FormControl>& form, const std::string& name)
{
    const auto found =
        std::find_if(form.begin(), form.end(), [&](const FormControl& control) { return control.name == name; });
    return found == form.end() ? nullptr : &*found;
}

bool IsTicked(const std::vector<FormControl>& form, const char* name)
{
    const FormControl* const control = ControlOf(form, name);
    return control != nullptr && control->value != 0;
}

std::string ChosenIn(const std::vector<FormControl>& form, const char* name)
{
    const FormControl* const combo = ControlOf(form, name);
    const bool isChosen =
        combo != nullptr && combo->selection >= 0 && static_cast<std::size_t>(combo->selection) < combo->items.size();
    return isChosen ? combo->items[static_cast<std::size_t>(combo->selection)] : "";
}

/// The caption of the tab page in front.
std::string PageInFront(const std::vector<FormControl>& form)
{
    for (std::size_t strip = 0; strip < form.size(); ++strip) {
        if (form[strip].kind != ControlKind::TabStrip)
            continue;
        std::int32_t page = 0;
        for (const FormControl& control : form)
            if (control.kind == ControlKind::TabPage && control.parent == strip && page++ == form[strip].selection)
                return control.caption;
    }
    return {};
}

beside::PageMark MarkOf(const StampSettings& stamp, const std::string& text)
{
    return {beside::PageMarkKind::Stamp,
            {stamp.X, stamp.Y},
            {stamp.X, stamp.Y},
            text,
            stamp.FontName,
            base::MillimetresOfPoints(stamp.FontSize),
            stamp.Color,
            stamp.Justification};
}

/// The whole is a name before it is a list, since names may have commas.
std::vector<std::string> WordsOf(const std::string& words, const std::vector<std::string>& names)
{
    if (std::find(names.begin(), names.end(), base::Trimmed(words)) != names.end())
        return {std::string(base::Trimmed(words))};
    std::vector<std::string> list;
    std::istringstream rest(words);
    for (std::string word; std::getline(rest, word, ',');)
        if (const std::string_view name = base::Trimmed(word); !name.empty())
            list.emplace_back(name);
    return list;
}

std::string Headline(bool isAll, const std::string& current, std::size_t sheets, std::size_t ticked)
{
    if (!isAll)
        return fmt::format("\"Current Tab\" is \"{}\".", current);
    if (sheets == 0)
        return "\"All Layout Tabs\": the drawing has no sheets.";
    if (ticked == sheets)
        return sheets == 1 ? "\"All Layout Tabs\": the one sheet becomes a page."
                           : fmt::format("\"All Layout Tabs\": all {} sheets become pages.", sheets);
    return fmt::format("\"All Layout Tabs\": {} of {} sheets become pages.", ticked, sheets);
}

} // namespace

std::vector<cadhost::LayoutOutline> SheetChoice::Layouts()
{
    return Asked<std::vector<cadhost::LayoutOutline>>([&] { return m_source.layouts(); });
}

std::vector<std::string> SheetChoice::Sheets()
{
    std::vector<std::string> names;
    for (const cadhost::LayoutOutline& layout : Layouts())
        if (!layout.isModel)
            names.push_back(layout.name);
    return names;
}

beside::SheetsNow SheetChoice::Now(const std::vector<FormControl>& form)
{
    beside::SheetsNow now;
    m_stampText = ChosenIn(form, "cmbStampText");
    m_tab = PageInFront(form);
    now.ticksCount = IsTicked(form, "optAllLayouts");
    const std::string current = Asked<std::string>([&] { return m_source.current(); });
    std::size_t sheets = 0, ticked = 0;
    for (const cadhost::LayoutOutline& layout : Layouts()) {
        const bool isTicked = !layout.isModel && !m_off.contains(layout.name);
        now.rows.push_back({layout.name, layout.isModel, layout.name == current, isTicked});
        sheets += layout.isModel ? 0 : 1;
        ticked += isTicked ? 1 : 0;
    }
    if (ControlOf(form, "optAllLayouts") == nullptr)
        now.headline = fmt::format("The page of \"{}\" with this page setup.", current);
    else
        now.headline = Headline(now.ticksCount, current, sheets, ticked);
    return now;
}

std::vector<beside::PageMark> SheetChoice::MarksOn(const std::string& layout)
{
    return Asked<std::vector<beside::PageMark>>([&] {
        std::vector<beside::PageMark> marks;
        DataKeg keg;
        if (!m_source.read || !m_source.read(keg) || keg.Layouts.empty())
            return marks;
        const LayoutSettings& entry = keg.Layouts.front();
        const bool isHere = entry.Stamp.LayoutName == layout || entry.Stamp.LayoutName == kAllLayouts;
        if (entry.Stamp.StampIndex > 0 && isHere && m_tab != kStampTab)
            marks.push_back(MarkOf(entry.Stamp, m_stampText));
        for (const AttachmentEntry& file : entry.Attachments)
            if (file.LayoutName == layout)
                marks.push_back({beside::PageMarkKind::Attachment, {file.X, file.Y}, {file.X, file.Y}, file.FilePath});
        for (const SignatureFieldEntry& field : entry.SignatureFields)
            if (field.LayoutName == layout)
                marks.push_back(
                    {beside::PageMarkKind::Field, {field.X1, field.Y1}, {field.X2, field.Y2}, field.FieldName});
        return marks;
    });
}

std::optional<beside::PageMark> SheetChoice::StampAtHand()
{
    return Asked<std::optional<beside::PageMark>>([&]() -> std::optional<beside::PageMark> {
        DataKeg keg;
        if (m_tab != kStampTab || !m_source.read || !m_source.read(keg) || keg.Layouts.empty())
            return std::nullopt;
        const StampSettings& stamp = keg.Layouts.front().Stamp;
        return stamp.StampIndex > 0 ? std::optional(MarkOf(stamp, m_stampText)) : std::nullopt;
    });
}

void SheetChoice::MakeCurrent(const std::string& name)
{
    Asked<bool>([&] { return m_source.makeCurrent(name), true; });
}

std::string SheetChoice::Tick(const std::string& name, bool isTicked)
{
    if (isTicked) {
        m_off.erase(name);
        return {};
    }
    const std::vector<std::string> sheets = Sheets();
    const bool another = std::any_of(sheets.begin(), sheets.end(),
                                     [&](const std::string& sheet) { return sheet != name && !m_off.contains(sheet); });
    if (!another)
        return "One sheet at least stays ticked: a PDF has a page.";
    m_off.insert(name);
    return {};
}

std::string SheetChoice::TickMeant(const std::string& words)
{
    const std::vector<std::string> sheets = Sheets();
    std::set<std::string> off(sheets.begin(), sheets.end());
    for (const std::string& word : WordsOf(words, sheets)) {
        const MeantLayouts meant = LayoutsMeantBy(word, sheets, 0);
        if (!meant.error.empty())
            return "The drawing " + meant.error + ".";
        for (const std::string& name : meant.names)
            off.erase(name);
    }
    if (off.size() == sheets.size())
        return "Please type names of sheets, patterns or numbers, as A-1*, 3..5.";
    m_off = off;
    return {};
}

std::vector<std::string> SheetChoice::Only()
{
    std::vector<std::string> sheets = Sheets();
    const std::size_t all = sheets.size();
    std::erase_if(sheets, [&](const std::string& name) { return m_off.contains(name); });
    return sheets.size() == all ? std::vector<std::string>() : sheets;
}

} // namespace sm::app
