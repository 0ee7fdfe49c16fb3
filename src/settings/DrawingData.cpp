// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/CarryPast.h"
#include "ports/IAcadDocument.h"
#include "settings/DrawingValues.h"
#include "settings/mdlDataKegIO.h"

#include <utility>

namespace sm {

namespace {

constexpr std::int16_t kApplicationCode = 1001;
constexpr std::int16_t kTextCode = 1000;

std::string ApplicationName(const std::string& recordName)
{
    return "TWSI_" + recordName;
}

std::vector<std::string> TextsOf(const AcadXData& data)
{
    std::vector<std::string> texts;
    texts.reserve(data.values.size());
    for (const AcadVariant& value : data.values)
        texts.push_back(HostText(value));
    return texts;
}

} // namespace

std::vector<std::string> GetDrawingData(CallContext& context, const std::string& recordName, std::int32_t expectedCount,
                                        IAcadDocument& document, bool* failed)
{
    auto read = CarryPast(context, "GetDrawingData", [&] {
        std::vector<std::string> values =
            TextsOf(Present(document.Dictionaries(), "Dictionaries")->GetXData(ApplicationName(recordName)));
        const std::size_t fixedSize = static_cast<std::size_t>(expectedCount) + 1;
        if (expectedCount > 0 && values.size() != fixedSize)
            values.assign(fixedSize, std::string());
        return values;
    });
    if (failed != nullptr)
        *failed = !read;
    return std::move(read).value_or(std::vector<std::string>());
}

void SetDrawingData(CallContext& context, const std::string& recordName, const std::vector<AcadVariant>& values,
                    IAcadDocument& document)
{
    CarryPast(context, "SetDrawingData", [&] {
        AcadXData data;
        data.codes.push_back(kApplicationCode);
        data.values.emplace_back(ApplicationName(recordName));
        data.codes.resize(values.size() + 1, kTextCode);
        data.values.insert(data.values.end(), values.begin(), values.end());
        Present(document.Dictionaries(), "Dictionaries")->SetXData(data);
    });
}

std::int32_t ReadPlotSelection(CallContext& context, IAcadDocument& document)
{
    return IntegerAt(GetDrawingData(context, "PltSel", 1, document), 1, kPageSetupNative);
}

bool WritePlotSelection(CallContext& context, IAcadDocument& document, std::int32_t selection)
{
    SetDrawingData(context, "PltSel", {BoolToText(context.surroundings.locale, selection)}, document);
    return true;
}

std::string LoginName(CallContext& context, IAcadDocument& document)
{
    return CarryPast(context, "LoginName", [&] { return HostText(document.GetVariable("LOGINNAME")); }).value_or("");
}

} // namespace sm
