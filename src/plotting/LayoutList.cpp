// SPDX-License-Identifier: GPL-3.0-or-later
// Which layouts a run converts.
#include "plotting/mdlAcadPrinting.h"

#include "plugin/Attempt.h"
#include "plugin/Present.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IAcadDocument.h"

namespace sm {
namespace {

void ListActiveLayout(CallContext& context, std::vector<std::string>& names)
{
    names.resize(1);
    const auto layout = ActiveDrawing(context).ActiveLayout();
    if (layout == nullptr)
        throw HostError("The drawing has no active layout.");
    names.front() = layout->Name();
}

void ListPaperLayouts(CallContext& context, std::vector<std::string>& names)
{
    const auto layouts = Present(ActiveDrawing(context).Layouts(), "Layouts");
    const std::int32_t count = layouts->Count();
    if (count > 1)
        names.resize(static_cast<std::size_t>(count) - 1); // all but the model tab
    for (std::int32_t i = 0; i < count; ++i) {
        const auto layout = Present(layouts->Item(i), "Layout");
        const std::int32_t position = layout->TabOrder();
        if (position == 0)
            continue;
        if (position < 0 || static_cast<std::size_t>(position) > names.size())
            throw HostError("Subscript out of range");
        names[static_cast<std::size_t>(position) - 1] = layout->Name();
    }
}

} // namespace

std::vector<std::string> AcadGetPlotLayoutList(CallContext& context, bool allLayouts)
{
    std::vector<std::string> names;
    GiveUp([&] { allLayouts ? ListPaperLayouts(context, names) : ListActiveLayout(context, names); },
           [&](const std::string& description) {
               TryLogLine(context, "RUNTIME ERROR: AcadGetPlotLayoutList : " + description);
           });
    return names;
}

} // namespace sm
