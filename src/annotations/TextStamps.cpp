// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/TextStamps.h"

#include "plugin/Attempt.h"
#include "plugin/mdlAcadHelper.h"
#include "settings/mdlUtilities.h"

#include <functional>

namespace sm {

namespace {

std::string ReplaceAll(const std::string& text, const std::string& macro, const std::string& by)
{
    std::string result;
    std::size_t from = 0;
    for (std::size_t at = text.find(macro); at != std::string::npos; at = text.find(macro, from)) {
        result.append(text, from, at - from).append(by);
        from = at + macro.size();
    }
    return result.append(text, from);
}

std::string Digits(unsigned number, std::size_t count)
{
    std::string text = std::to_string(number);
    return text.size() < count ? std::string(count - text.size(), '0') + text : text;
}

std::chrono::year_month_day Today(IClock& clock)
{
    return std::chrono::year_month_day(std::chrono::floor<std::chrono::days>(clock.Now()));
}

std::string Month(IClock& clock)
{
    return Digits(static_cast<unsigned>(Today(clock).month()), 2);
}
std::string Day(IClock& clock)
{
    return Digits(static_cast<unsigned>(Today(clock).day()), 2);
}
std::string Year(IClock& clock)
{
    return Digits(static_cast<unsigned>(static_cast<int>(Today(clock).year())), 4);
}

std::string Date(IClock& clock, ILocale& locale)
{
    const auto today = Today(clock);
    const std::string separator = locale.DateSeparator();
    return Digits(static_cast<unsigned>(today.month()), 2) + separator + Digits(static_cast<unsigned>(today.day()), 2) +
           separator + Digits(static_cast<unsigned>(static_cast<int>(today.year())), 4);
}

/// The stamp that goes on the sheet, or null.
const StampSettings* StampOfSheet(const MarkState& state)
{
    if (state.keg.Layouts.empty())
        return nullptr;
    const StampSettings& stamp = state.keg.Layouts.front().Stamp;
    const bool meant = stamp.LayoutName == state.layoutName || stamp.LayoutName == kAllLayouts;
    const bool inList = stamp.StampIndex > 0 && static_cast<std::size_t>(stamp.StampIndex) < state.keg.Stamps.size();
    return meant && inList ? &stamp : nullptr;
}

bool PlaceStamp(MarkState& state, const StampSettings& stamp)
{
    const std::string text =
        ExpandStampText(state.context.surroundings, state.keg.Stamps[static_cast<std::size_t>(stamp.StampIndex)],
                        state.keg.Layouts.front().DrawingFullName, state.keg.LoginName);
    const AcadPoint at = WorldToDisplay(state.document, {stamp.X, stamp.Y, 0});
    const double x = WholePoint(state.mapping.X(at.x)), y = WholePoint(state.mapping.Y(at.y));
    TryLogLine(state.context, "  '" + text + "', " + stamp.FontName + ", " + std::to_string(stamp.FontSize) + ", [" +
                                  PointText(state, x) + " " + PointText(state, y) + "]");
    CheckMark(state, state.pubDoc.AddTextStampMark(0, x, y, text, stamp.FontName, stamp.FontSize, stamp.Color,
                                                   stamp.Justification));
    return true;
}

} // namespace

std::string ExpandStampText(Surroundings& surroundings, const std::string& text, const std::string& drawingFullName,
                            const std::string& loginName)
{
    ILocale& locale = surroundings.locale;
    IClock& clock = surroundings.clock;
    const std::pair<const char*, std::function<std::string()>> macros[] = {
        {"&[Date]", [&] { return Date(clock, locale); }},
        {"&[Time]", [&] { return locale.LongTime(clock.Now()); }},
        {"&[mm]", [&] { return Month(clock); }},
        {"&[dd]", [&] { return Day(clock); }},
        {"&[yyyy]", [&] { return Year(clock); }},
        {"&[User]", [&] { return loginName; }},
        {"&[File]", [&] { return locale.UpperCase(FileNamePart(locale, drawingFullName)); }},
        {"&[Path]", [&] { return locale.UpperCase(FolderPart(locale, drawingFullName)); }},
    };
    std::string result = text;
    for (const auto& macro : macros)
        if (const auto replaced = CarryOn([&] { return ReplaceAll(result, macro.first, macro.second()); }))
            result = *replaced;
    return result;
}

bool AddTextStamp(MarkState& state)
{
    const StampSettings* stamp = StampOfSheet(state);
    if (!stamp) {
        TryLogLine(state.context, std::string(kNone));
        return true;
    }
    return GiveUp(
        [&] { return PlaceStamp(state, *stamp); },
        [&](const std::string& description) { return Lose(state, "ADDTEXTSTAMP RUNTIME ERROR: ", description); });
}

} // namespace sm
