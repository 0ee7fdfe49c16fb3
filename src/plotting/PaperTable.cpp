// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotting/PaperTable.h"

#include "ports/IDesktop.h"
#include "ports/IWindows.h"
#include "settings/mdlUtilities.h"

#include <cstdlib>
#include <utility>

namespace sm {

namespace {

constexpr std::int64_t kTolerance = 3; ///< mm

std::int64_t Millimetres(double value)
{
    return RoundToInteger(value);
}

bool FitsBySize(const PaperSize& row, std::int64_t width, std::int64_t height)
{
    return std::llabs(Millimetres(row.Width) - width) <= kTolerance &&
           std::llabs(Millimetres(row.Height) - height) <= kTolerance;
}

void TakeNames(PageSetupRecord& record, const PaperSize& row)
{
    record.CanonicalMediaName = row.CanonicalMediaName;
    record.LocaleMedianame = row.LocaleMedianame;
}

void TakeRow(PageSetupRecord& record, const PaperSize& row)
{
    TakeNames(record, row);
    record.PaperWidth = row.Width;
    record.PaperHeight = row.Height;
}

/// A sheet turned by 90 or 270 degrees is the unturned sheet of the other orientation, whatever it was called.
void Unrotate(PageSetupRecord& record)
{
    if (record.PlotRotation == 1 || record.PlotRotation == 3) {
        record.CanonicalMediaName.clear();
        std::swap(record.PaperWidth, record.PaperHeight);
    }
    record.PlotRotation = 0;
}

} // namespace

bool MatchMedia(PageSetupRecord& record, const std::vector<PaperSize>& table)
{
    Unrotate(record);
    const std::int64_t width = Millimetres(record.PaperWidth);
    const std::int64_t height = Millimetres(record.PaperHeight);
    bool matched = false;
    for (const PaperSize& row : table) {
        if (FitsBySize(row, width, height))
            TakeRow(record, row);
        else if (row.CanonicalMediaName == record.CanonicalMediaName)
            record.LocaleMedianame = row.LocaleMedianame;
        else
            continue;
        matched = true;
    }
    if (!matched && !table.empty())
        TakeRow(record, table.front());
    return matched;
}

bool PickPageSize(CallContext& context, PageSetupRecord& record, const std::vector<PaperSize>& table)
{
    std::vector<std::string> names;
    names.reserve(table.size());
    for (const PaperSize& row : table)
        names.push_back(row.LocaleMedianame);
    context.surroundings.desktop.Beep();
    const auto choice = context.surroundings.windows.PickPageSize(names);
    if (!choice || *choice < 0 || static_cast<std::size_t>(*choice) >= table.size())
        return false;
    TakeNames(record, table[static_cast<std::size_t>(*choice)]);
    return true;
}

} // namespace sm
