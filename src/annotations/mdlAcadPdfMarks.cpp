#include "annotations/mdlAcadPdfMarks.h"

#include "annotations/Attachments.h"
#include "annotations/EntityWalk.h"
#include "annotations/PageMapping.h"
#include "annotations/TextStamps.h"
#include "plugin/Attempt.h"
#include "plugin/mdlAcadHelper.h"
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
    const auto layout = state.document.ActiveLayout();
    if (!layout)
        throw HostError("Object required");
    state.layoutName = layout->Name();
    if (!LoadForConversion(state.context, state.document, state.keg))
        throw HostError("The drawing's settings could not be loaded");
}

void WalkSheet(MarkState& state, BlockNames& names)
{
    const auto block = state.document.ActiveLayout()->Block();
    std::string error;
    const auto scan = [&](const std::function<void(double)>& advance) {
        EntityWalk walk(state, names, advance);
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

bool RunSections(MarkState& state, BlockNames& names)
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
    WalkSheet(state, names);
    TryLogLine(state.context, "BLOCK ATTRIBUTES");
    LogAttributes(state);
    return true;
}

} // namespace

bool AddPdfMarks(CallContext& context, BlockNames& names, IPubDoc& pubDoc, IAcadDocument& document,
                 const TransferFlags& transfer, bool quietMode)
{
    MarkState state{context, pubDoc, document, transfer, quietMode, {}, {}, {}, {}};
    return GiveUp([&] { return RunSections(state, names); },
                  [&](const std::string& description) {
                      TryLogLine(context, "ADDPDFMARK RUNTIME ERROR: " + description);
                      return false;
                  });
}

} // namespace sm
