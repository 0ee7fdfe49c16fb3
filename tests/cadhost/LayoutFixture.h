// SPDX-License-Identifier: GPL-3.0-or-later
// A layout of a small drawing, and its answers as text.
#pragma once

#include "HostFixture.h"

namespace sm::cadhost {

class HostLayoutTest : public HostTest {
protected:
    /// Sheet 1 with the suite's plotter chosen, as a conversion does it.
    std::shared_ptr<IAcadLayout> WithPlotter(const DxfDrawing& drawing, const char* medium)
    {
        auto layout = OpenSheet(drawing);
        host->Application()->Preferences()->SetPrinterConfigPath(kShare + "/PC3");
        layout->RefreshPlotDeviceInfo();
        layout->SetConfigName("Tarnwick PS8 HighRes.pc3");
        layout->SetCanonicalMediaName(medium);
        return layout;
    }
    static std::string SizeOf(IAcadLayout& layout)
    {
        double width = 0, height = 0;
        layout.GetPaperSize(width, height);
        return ::testing::PrintToString(std::pair(width, height));
    }
    static std::string MarginsOf(IAcadLayout& layout)
    {
        AcadPoint low, high;
        layout.GetPaperMargins(low, high);
        return ::testing::PrintToString(std::array{low.x, low.y, high.x, high.y});
    }
    static std::string ScaleOf(IAcadLayout& layout)
    {
        double numerator = 0, denominator = 0;
        layout.GetCustomScale(numerator, denominator);
        return ::testing::PrintToString(std::pair(numerator, denominator));
    }
};

/// One sheet with a line from (0, 0) to (100, 50).
inline DxfDrawing SheetWithLine()
{
    DxfDrawing drawing;
    drawing.AddSheet("Sheet 1").entities = LineTags(0, 0, 100, 50, Tag(67, 1));
    return drawing;
}

} // namespace sm::cadhost
