// SPDX-License-Identifier: GPL-3.0-or-later
// The doubles, with an annotation pass ready to run on the sheet "Ground" at 72 points to the drawing unit's inch.
#pragma once

#include "annotations/MarkState.h"
#include "annotations/mdlAcadPdfMarks.h"
#include "doubles/TestHouse.h"

namespace sm {

inline constexpr TransferFlags kEverySwitch{kTrue, kTrue, kTrue, kTrue, kTrue};

class MarkHouse : public TestHouse {
protected:
    /// One point to the drawing unit, no margins: page points are drawing coordinates.
    MarkHouse()
    {
        ground->PaperUnits = 2;
        ground->PlotType = 5;
        ground->MarginLowerLeft = {};
        ground->MarginUpperRight = {};
    }
    void SetUp() override
    {
        BeginCall();
        pubDoc = library.CreatePubDoc();
    }
    /// The state of a pass as the sections find it.
    MarkState State()
    {
        MarkState state{context, *pubDoc, *context.g_AcadDoc, kEverySwitch, false, {}, "Ground", {}, {}};
        state.keg.Layouts.resize(1);
        state.keg.Layouts[0].DrawingFullName = "C:\\Jobs\\Plan.dwg";
        state.keg.LoginName = "JS";
        return state;
    }
    bool AddMarks(const TransferFlags& transfer, bool quiet = true)
    {
        return AddPdfMarks(context, *pubDoc, *context.g_AcadDoc, transfer, quiet);
    }
    Lines Marks() { return library.tape.CallsWith("Mark "); }
    static EntityFacts Linked(const std::string& objectName, const std::vector<HyperlinkFacts>& links)
    {
        return {objectName, {10, 20, 0}, {30, 40, 0}, links, {}};
    }
    static EntityFacts Reference(const BlockReferenceFacts& facts) { return {"AcDbBlockReference", {}, {}, {}, facts}; }

    std::shared_ptr<IPubDoc> pubDoc;
};

} // namespace sm
