// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/mdlAcadPdfMarks.h"

#include "annotations/Attachments.h"
#include "annotations/EntityWalk.h"
#include "annotations/PageMapping.h"
#include "annotations/TextStamps.h"
#include "plugin/Attempt.h"
#include "plugin/Present.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/IWindows.h"
#include "settings/mdlDataKegIO.h"

namespace sm {

namespace {

void MapPage(MarkState& state)
{
    state.mapping = GiveUp([&] { return ComputePageMapping(state.document); },
                           [&](const std::string& description) -> PageMapping {
                               TryLogLine(state.context, "RUNTIME ERROR: " + description);
                               throw HostError(description);
                           });
}

void Load(MarkState& state)
{
    state.layoutName = Present(state.document.ActiveLayout(), "ActiveLayout")->Name();
    if (!LoadForConversion(state.context, state.document, state.keg))
        throw HostError("The drawing's settings could not be loaded");
}

void WalkSheet(MarkState& state)
{
    const auto block = Present(Present(state.document.ActiveLayout(), "ActiveLayout")->Block(), "Block");
    std::string error;
    const auto scan = [&](const std::function<void(double)>& advance) {
        EntityWalk walk(state, advance);
        const bool finished = walk.WalkEntities(*block, 0, 0);
        error = walk.Error();
        return finished;
    };
    const bool finished = state.quietMode ? scan({}) : state.context.surroundings.windows.RunProgress(scan);
    if (!finished)
        throw HostError(error);
}

void LogAttributes(MarkState& state)
{
    for (const auto& [name, value] : state.attributeList)
        TryLogLine(state.context, "  " + name + " = '" + value + "'");
    if (state.attributeList.empty())
        TryLogLine(state.context, std::string(kNone));
}

bool RunSections(MarkState& state)
{
    MapPage(state);
    Load(state);
    TryLogLine(state.context, "TEXT STAMP");
    AddTextStamp(state);
    TryLogLine(state.context, "FILE ATTACHMENTS");
    AddAttachments(state);
    TryLogLine(state.context, "DIGITAL SIGNATURE FIELDS");
    AddSignatureFields(state);
    TryLogLine(state.context, "HYPERLINKS");
    WalkSheet(state);
    TryLogLine(state.context, "BLOCK ATTRIBUTES");
    LogAttributes(state);
    return true;
}

} // namespace

bool AddPdfMarks(CallContext& context, IPubDoc& pubDoc, IAcadDocument& document, const TransferFlags& transfer,
                 bool quietMode)
{
    MarkState state{context, pubDoc, document, transfer, quietMode, {}, {}, {}, {}};
    return GiveUp(
        [&] { return RunSections(state); },
        [&](const std::string& description) { return Lose(state, "ADDPDFMARK RUNTIME ERROR: ", description); });
}

} // namespace sm
