// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/IAcadDocument.h"
#include "settings/DrawingValues.h"
#include "settings/mdlDataKegIO.h"

namespace sm {

namespace {

constexpr std::size_t kAttachmentGroup = 5;
constexpr std::size_t kSignatureFieldGroup = 7;

double NumberAt(const std::vector<std::string>& values, std::size_t position)
{
    return Val(ValueAt(values, position));
}

/// Calls `read(first)` with the position of each whole group's first value; a group cut short ends the list.
template <class Read> void ForEachGroup(const std::vector<std::string>& values, std::size_t groupSize, const Read& read)
{
    for (std::size_t first = 1; first + groupSize <= values.size(); first += groupSize)
        read(first);
}

} // namespace

bool ReadAttachments(CallContext& context, IAcadDocument& document, std::vector<AttachmentEntry>& attachments)
{
    const std::vector<std::string> values = GetDrawingData(context, "Attachs", 0, document);
    attachments.clear();
    ForEachGroup(values, kAttachmentGroup, [&](std::size_t first) {
        AttachmentEntry entry; // the bare file name, which comes first, only serves other readers
        entry.FilePath = values[first + 1];
        entry.X = NumberAt(values, first + 2);
        entry.Y = NumberAt(values, first + 3);
        entry.LayoutName = values[first + 4];
        attachments.push_back(entry);
    });
    return true;
}

bool WriteAttachments(CallContext& context, IAcadDocument& document, const std::vector<AttachmentEntry>& attachments)
{
    std::vector<AcadVariant> values;
    for (const AttachmentEntry& entry : attachments) {
        values.emplace_back(FileNamePart(context.surroundings.locale, entry.FilePath));
        values.emplace_back(entry.FilePath);
        values.emplace_back(entry.X);
        values.emplace_back(entry.Y);
        values.emplace_back(entry.LayoutName);
    }
    SetDrawingData(context, "Attachs", values, document);
    return true;
}

bool ReadSignatureFields(CallContext& context, IAcadDocument& document, std::vector<SignatureFieldEntry>& fields)
{
    const std::vector<std::string> values = GetDrawingData(context, "DigSigs", 0, document);
    fields.clear();
    ForEachGroup(values, kSignatureFieldGroup, [&](std::size_t first) {
        SignatureFieldEntry entry;
        entry.FieldName = values[first];
        entry.FieldLabel = values[first + 1];
        entry.X1 = NumberAt(values, first + 2);
        entry.Y1 = NumberAt(values, first + 3);
        entry.X2 = NumberAt(values, first + 4);
        entry.Y2 = NumberAt(values, first + 5);
        entry.LayoutName = values[first + 6];
        fields.push_back(entry);
    });
    return true;
}

bool WriteSignatureFields(CallContext& context, IAcadDocument& document, const std::vector<SignatureFieldEntry>& fields)
{
    ILocale& locale = context.surroundings.locale;
    std::vector<AcadVariant> values;
    for (const SignatureFieldEntry& entry : fields) {
        values.emplace_back(BoolToText(locale, entry.FieldName));
        values.emplace_back(BoolToText(locale, entry.FieldLabel));
        for (const double coordinate : {entry.X1, entry.Y1, entry.X2, entry.Y2})
            values.emplace_back(coordinate);
        values.emplace_back(BoolToText(locale, entry.LayoutName));
    }
    SetDrawingData(context, "DigSigs", values, document);
    return true;
}

} // namespace sm
