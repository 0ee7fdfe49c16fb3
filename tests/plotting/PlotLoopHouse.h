// SPDX-License-Identifier: GPL-3.0-or-later
// A publishing document and the sheet "Ground", for the tests of the plot of one layout.
#pragma once

#include "doubles/TestHouse.h"
#include "plotting/mdlAcadPrinting.h"

namespace sm {

class PlotLoopTest : public TestHouse {
protected:
    PlotLoopTest()
    {
        BeginCall();
        pubDoc = library.CreatePubDoc();
        library.tape.calls.clear();
    }
    std::int32_t Plot(VariantBool silent = kTrue, std::int32_t source = 0, const std::string& layout = "Ground",
                      const std::string& jobOptions = "")
    {
        return PlotLayoutToPubDoc(context, *pubDoc, layout, silent, source, 1200, jobOptions);
    }
    /// The log without details and without the headings of the annotation pass.
    Lines Milestones() { return MilestonesOf(Log()); }
    [[nodiscard]] Lines PubDocCalls() const { return library.tape.CallsOf("PubDoc."); }
    /// Put back on the normal exit only.
    void ExpectLayoutRestored()
    {
        EXPECT_EQ(ground->ConfigName, "\\\\server\\plotter");
        EXPECT_EQ(ground->CanonicalMediaName, "A3");
        EXPECT_EQ(host.facts.PrinterConfigPath, kUsersPlotters);
        EXPECT_EQ(PendingFolder(), "");
    }
    /// A "Plots" record of 27 values with an ISO A4 sheet.
    void StoreCustomSetup()
    {
        AcadXData data{{1001}, {std::string("TWSI_Plots")}};
        for (const char* text : {"",    "ISO_A4_(210.00_x_297.00_MM)",
                                 "210", "297",
                                 "0",   "1",
                                 "1",   "0",
                                 "0",   "1",
                                 "0",   "1",
                                 "1",   "1",
                                 "1",   "",
                                 "1",   "0",
                                 "1",   "1",
                                 "0",   "0",
                                 "0",   "0",
                                 "0",   "0",
                                 ""}) {
            data.codes.push_back(1000);
            data.values.emplace_back(std::string(text));
        }
        drawing->XData["TWSI_Plots"] = data;
    }
    std::shared_ptr<IPubDoc> pubDoc;
};

} // namespace sm
