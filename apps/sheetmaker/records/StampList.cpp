#include "records/StampList.h"

#include "commandline/MarkValues.h"
#include "commandline/Refusal.h"
#include "preferences/SettingNames.h"
#include "settings/mdlWinReg.h"

#include <algorithm>
#include <fmt/format.h>
#include <stdexcept>

namespace sm::app {
namespace {

constexpr std::size_t kFirstFree = 11; // the entries before it come with texts of their own

std::string SettingOf(std::size_t index)
{
    return "Stamp" + std::to_string(index);
}

std::string Default(std::size_t index)
{
    const SettingName* setting = FindSetting(SettingOf(index));
    return setting == nullptr ? std::string() : setting->defaultValue;
}

std::string Listed(const StampTexts& texts)
{
    std::string list;
    for (std::size_t index = 1; index < texts.size(); ++index)
        list += fmt::format("\n  {:2} {}", index, texts[index]);
    return list;
}

} // namespace

StampTexts StoredStampTexts(IRegistry& registry)
{
    StampTexts texts;
    for (std::size_t index = 1; index < texts.size(); ++index) {
        const auto stored = RegReadString(registry, RegistryRoot::CurrentUser, kSettingsKey, SettingOf(index));
        texts[index] = stored.value_or("").empty() ? Default(index) : *stored;
    }
    return texts;
}

StampChoice ChooseStamp(const StampTexts& texts, const std::string& wanted)
{
    if (const auto number = ParseStampNumber(wanted))
        return {*number, texts[static_cast<std::size_t>(*number)], false};
    if (IsWholeNumber(wanted))
        throw Refusal{kExitUsage, "the stamp list has the entries 1 to 15, not " + wanted +
                                      "; a text of digits alone is stored by \"sheetmaker set Stamp11 " + wanted +
                                      "\" and chosen by its number"};
    if (wanted.empty())
        throw Refusal{kExitUsage, "--text takes a text; \"stamp DRAWING remove\" takes the stamp away"};
    const auto equal = std::find(texts.begin() + 1, texts.end(), wanted);
    if (equal != texts.end())
        return {static_cast<std::int32_t>(equal - texts.begin()), wanted, false};
    for (std::size_t index = kFirstFree; index < texts.size(); ++index)
        if (texts[index] == Default(index))
            return {static_cast<std::int32_t>(index), wanted, true};
    throw Refusal{kExitUsage, "the stamp list is full; change an entry by \"sheetmaker set Stamp11 TEXT\", or choose "
                              "one by its number:" +
                                  Listed(texts)};
}

void StoreStampText(IRegistry& registry, const StampChoice& choice)
{
    const auto index = static_cast<std::size_t>(choice.index);
    RegWriteString(registry, RegistryRoot::CurrentUser, kSettingsKey, SettingOf(index), choice.text);
    if (StoredStampTexts(registry)[index] != choice.text)
        throw std::runtime_error("the text could not be stored as " + SettingOf(index));
}

} // namespace sm::app
