// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotting/PaperTable.h"
#include "plugin/CarryPast.h"
#include "ports/IAcadDocument.h"
#include "settings/DrawingValues.h"
#include "settings/GeneralSettingsIO.h"
#include "settings/mdlDataKegIO.h"

namespace sm {

namespace {

constexpr std::int32_t kLoaded = 0;
constexpr std::int32_t kLoadFailed = -1;
constexpr std::int32_t kNoPlotSettings = -2;

void FillLists(CallContext& context, IAcadDocument& document, IAcadLayout& layout, DataKeg& keg)
{
    LoadPaperTable(keg.PaperSizes);
    keg.LoginName = LoginName(context, document);
    keg.PlotStyles = PlotStyleNames(context, layout);
    keg.General = ReadGeneralSettings(context.surroundings);
    keg.Stamps = ReadStampList(context.surroundings);
}

/// The entry of `layout`, but for what the records hold. Throws when the layout's name can't be read.
LayoutSettings EntryOf(CallContext& context, IAcadDocument& document, IAcadLayout& layout)
{
    LayoutSettings entry;
    entry.LayoutName = layout.Name();
    entry.DrawingFullName = CarryPast(context, "EntryOf", [&] { return document.FullName(); }).value_or("");
    const auto block = CarryPast(context, "EntryOf", [&] { return Present(layout.Block(), "Block")->Name(); });
    entry.IsModelSpace = context.surroundings.locale.LowerCase(block.value_or("")) == "*model_space";
    return entry;
}

/// A bundle with its lists and one entry; the layout is handed back. Throws when the active layout can't be reached.
std::shared_ptr<IAcadLayout> BeginLoad(CallContext& context, IAcadDocument& document, DataKeg& keg)
{
    auto layout = Present(document.ActiveLayout(), "ActiveLayout");
    FillLists(context, document, *layout, keg);
    keg.Layouts.push_back(EntryOf(context, document, *layout));
    keg.LayoutCount = 1;
    return layout;
}

std::int32_t LoadDialogRecords(CallContext& context, IAcadDocument& document, IAcadLayout& layout, DataKeg& keg)
{
    LayoutSettings& entry = keg.Layouts.front();
    if (!ReadLayoutPageSetup(context, layout, entry.PageSetup))
        return kNoPlotSettings;
    keg.PageSetupSelected = ReadPlotSelection(context, document);
    if (ReadCustomPageSetup(context, document, entry.PageSetup) == CustomPageSetup::HostError)
        return kLoadFailed;
    ReadStamp(context, document, entry.Stamp);
    ReadAttachments(context, document, entry.Attachments);
    return kLoaded;
}

} // namespace

std::vector<std::string> PlotStyleNames(CallContext& context, IAcadLayout& layout)
{
    // A host lists its tables as of the last refresh; without one the list may be empty.
    CarryPast(context, "PlotStyles", [&] { layout.RefreshPlotDeviceInfo(); });
    const auto names = CarryPast(context, "PlotStyles", [&] { return layout.GetPlotStyleTableNames(); });
    std::vector<std::string> styles = {"None"};
    if (names)
        styles.insert(styles.end(), names->begin(), names->end());
    return styles;
}

bool LoadForConversion(CallContext& context, IAcadDocument& document, DataKeg& keg)
{
    return CarryPast(context, "LoadForConversion", [&] {
        DataKeg loaded;
        const auto layout = BeginLoad(context, document, loaded);
        LayoutSettings& entry = loaded.Layouts.front();
        ReadLayoutPageSetup(context, *layout, entry.PageSetup);
        ReadStamp(context, document, entry.Stamp);
        ReadAttachments(context, document, entry.Attachments);
        ReadSignatureFields(context, document, entry.SignatureFields);
        keg = std::move(loaded);
    });
}

std::int32_t LoadForDialog(CallContext& context, IAcadDocument& document, DataKeg& keg)
{
    const auto status = CarryPast(context, "LoadForDialog", [&] {
        DataKeg loaded;
        const auto layout = BeginLoad(context, document, loaded);
        const std::int32_t result = LoadDialogRecords(context, document, *layout, loaded);
        if (result == kLoaded)
            keg = std::move(loaded);
        return result;
    });
    return status.value_or(kLoadFailed);
}

bool SaveFromDialog(CallContext& context, const DataKeg& keg, IAcadDocument& document)
{
    if (keg.Layouts.empty())
        return false;
    const LayoutSettings& entry = keg.Layouts.front();
    WriteGeneralSettings(context.surroundings, keg.General);
    WriteStampList(context.surroundings, keg.Stamps);
    return WritePlotSelection(context, document, keg.PageSetupSelected) &&
           WriteCustomPageSetup(context, document, entry.PageSetup) && WriteStamp(context, document, entry.Stamp) &&
           WriteAttachments(context, document, entry.Attachments) &&
           WriteSignatureFields(context, document, entry.SignatureFields);
}

} // namespace sm
