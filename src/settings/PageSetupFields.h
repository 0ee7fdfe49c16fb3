// The 26 stored values of a page setup, in the order that the registry and the "Plots" record share.
#pragma once

#include "ports/Variant.h"
#include "settings/PageSetupRecord.h"

#include <array>
#include <string>
#include <variant>

namespace sm {

struct PageSetupField {
    const char* valueName; ///< of the registry; it isn't always spelled as the field is
    std::variant<std::string PageSetupRecord::*, double PageSetupRecord::*, std::int32_t PageSetupRecord::*> member;
};

using PageSetupFieldTable = std::array<PageSetupField, 26>;

const PageSetupFieldTable& PageSetupFields();

AcadVariant FieldValue(const PageSetupRecord& record, const PageSetupField& field);
/// Empty text leaves the field as it is.
void SetFieldText(PageSetupRecord& record, const PageSetupField& field, const std::string& text);
/// A scale part of 0 becomes 1.
void MendScale(PageSetupRecord& record);

} // namespace sm
