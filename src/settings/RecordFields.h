// SPDX-License-Identifier: GPL-3.0-or-later
// The fields of a record by name, in the order in which drawings keep their values.
#pragma once

#include "ports/Variant.h"
#include "settings/mdlUtilities.h"

#include <string>
#include <variant>

namespace sm {

template <class Record> struct RecordField {
    const char* valueName; ///< of the registry where the record is kept there; it isn't always spelled as the field is
    std::variant<std::string Record::*, double Record::*, std::int32_t Record::*> member;
};

template <class Record> AcadVariant FieldValue(const Record& record, const RecordField<Record>& field)
{
    return std::visit([&](auto member) { return AcadVariant(record.*member); }, field.member);
}

/// Empty text leaves the field as it is.
template <class Record> void SetFieldText(Record& record, const RecordField<Record>& field, const std::string& text)
{
    if (text.empty())
        return;
    if (const auto* words = std::get_if<std::string Record::*>(&field.member))
        record.** words = text;
    else if (const auto* number = std::get_if<double Record::*>(&field.member))
        record.** number = Val(text);
    else
        record.*std::get<std::int32_t Record::*>(field.member) = RoundToInteger(Val(text));
}

} // namespace sm
