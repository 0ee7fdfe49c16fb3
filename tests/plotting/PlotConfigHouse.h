// SPDX-License-Identifier: GPL-3.0-or-later
// A record on its way to the layout "Ground", for the tests of the plot configuration.
#pragma once

#include "doubles/TestHouse.h"
#include "plotting/PlotConfig.h"

#include <algorithm>

namespace sm {

inline constexpr const char* kPc3 = "Tarnwick PS8 HighRes.pc3";

class PlotConfiguration : public TestHouse {
protected:
    PlotConfiguration()
    {
        BeginCall();
        host.facts.PrinterConfigPath = kPc3Folder;
        record.ConfigName = kPc3;
        record.CanonicalMediaName = "ISO_A4_(210.00_x_297.00_MM)";
        record.StyleSheet = "monochrome.ctb";
    }
    std::int32_t Configure(VariantBool silent = kTrue, bool restore = false)
    {
        return SetAcadPlotConfig(context, *host.Layout(ground), record, silent, restore);
    }
    /// The log from the line that starts with `beginning` on.
    Lines LogFrom(const std::string& beginning)
    {
        const Lines lines = Log();
        return {std::find_if(lines.begin(), lines.end(),
                             [&](const std::string& line) { return line.rfind(beginning, 0) == 0; }),
                lines.end()};
    }
    /// What was written to the layout, in order.
    [[nodiscard]] Lines Writes() const
    {
        Lines writes;
        for (const std::string& call : host.tape.CallsOf("Layout(Ground).Set"))
            writes.push_back(call.substr(std::string("Layout(Ground).").size()));
        return writes;
    }
    PageSetupRecord record;
};

} // namespace sm
