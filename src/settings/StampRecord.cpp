// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/IAcadDocument.h"
#include "settings/DrawingValues.h"
#include "settings/RecordFields.h"
#include "settings/mdlDataKegIO.h"

#include <iterator>

namespace sm {

namespace {

constexpr const char* kRecordName = "Stamp";

constexpr RecordField<StampSettings> kFields[] = {
    {"StampIndex", &StampSettings::StampIndex},
    {"FontName", &StampSettings::FontName},
    {"FontSize", &StampSettings::FontSize},
    {"Justification", &StampSettings::Justification},
    {"X", &StampSettings::X},
    {"Y", &StampSettings::Y},
    {"Color", &StampSettings::Color},
    {"LayoutName", &StampSettings::LayoutName},
};

} // namespace

bool ReadStamp(CallContext& context, IAcadDocument& document, StampSettings& stamp)
{
    const std::vector<std::string> values =
        GetDrawingData(context, kRecordName, static_cast<std::int32_t>(std::size(kFields)), document);
    stamp = StampSettings();
    std::size_t position = 1;
    for (const RecordField<StampSettings>& field : kFields)
        SetFieldText(stamp, field, ValueAt(values, position++));
    return true;
}

bool WriteStamp(CallContext& context, IAcadDocument& document, const StampSettings& stamp)
{
    std::vector<AcadVariant> values;
    for (const RecordField<StampSettings>& field : kFields)
        values.emplace_back(BoolToText(context.surroundings.locale, FieldValue(stamp, field)));
    SetDrawingData(context, kRecordName, values, document);
    return true;
}

} // namespace sm
