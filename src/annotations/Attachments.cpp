// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/Attachments.h"

#include "plugin/Attempt.h"
#include "plugin/mdlAcadHelper.h"

namespace sm {

namespace {

constexpr std::int32_t kHelpAttachment = 310;

void PlaceAttachment(MarkState& state, const AttachmentEntry& entry)
{
    const AcadPoint at = WorldToDisplay(state.document, {entry.X, entry.Y, 0});
    const double x = WholePoint(state.mapping.X(at.x)), y = WholePoint(state.mapping.Y(at.y));
    bool added = false;
    CheckMark(state, state.pubDoc.AddAttachmentMark(0, x, y, entry.FilePath, added));
    if (added)
        TryLogLine(state.context,
                   "  '" + entry.FilePath + "', [" + PointText(state, x) + " " + PointText(state, y) + "]");
    else if (!state.quietMode)
        ShowProductMessage(
            state.context,
            "A file attachment could not be added because it was missing or locked by another application.",
            MessageButtons::Ok, MessageIcon::Exclamation, kHelpAttachment);
}

void PlaceSignatureField(MarkState& state, const SignatureFieldEntry& field)
{
    const AcadPoint first = WorldToDisplay(state.document, {field.X1, field.Y1, 0});
    const AcadPoint second = WorldToDisplay(state.document, {field.X2, field.Y2, 0});
    const double x1 = WholePoint(state.mapping.X(first.x)), y1 = WholePoint(state.mapping.Y(first.y));
    const double x2 = WholePoint(state.mapping.X(second.x)), y2 = WholePoint(state.mapping.Y(second.y));
    TryLogLine(state.context, "  '" + field.FieldName + "', '" + field.FieldLabel + "', [" + PointText(state, x1) +
                                  " " + PointText(state, y1) + " " + PointText(state, x2) + " " + PointText(state, y2) +
                                  "]");
    CheckMark(state, state.pubDoc.AddSignatureFieldMark(0, x1, y1, x2, y2, field.FieldName, field.FieldLabel));
}

/// One section over a list: `place` for each entry of the sheet, "  [None]" for an empty list, `prefix` for an error.
template <class Entry, class Place>
bool RunSection(MarkState& state, const std::vector<Entry>& entries, const char* prefix, Place place)
{
    if (entries.empty()) {
        TryLogLine(state.context, std::string(kNone));
        return true;
    }
    return GiveUp(
        [&] {
            for (const Entry& entry : entries)
                if (entry.LayoutName == state.layoutName)
                    place(state, entry);
            return true;
        },
        [&](const std::string& description) { return Lose(state, prefix, description); });
}

const LayoutSettings& SheetOf(const MarkState& state)
{
    static const LayoutSettings kNothing;
    return state.keg.Layouts.empty() ? kNothing : state.keg.Layouts.front();
}

} // namespace

bool AddAttachments(MarkState& state)
{
    return RunSection(state, SheetOf(state).Attachments, "RUNTIME ERROR: ", PlaceAttachment);
}

bool AddSignatureFields(MarkState& state)
{
    return RunSection(state, SheetOf(state).SignatureFields, "ADDDIGSIG RUNTIME ERROR: ", PlaceSignatureField);
}

} // namespace sm
