// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/StampList.h"

#include "commandline/MarkValues.h"
#include "commandline/Refusal.h"
#include "settings/mdlUtilities.h"
#include "settings/mdlWinReg.h"

#include <algorithm>
#include <fmt/format.h>
#include <stdexcept>

namespace sm::app {
namespace {

constexpr std::size_t kFirstFree = 11; // the entries before it come with texts of their own

std::string Default(std::size_t index)
{
    return DefaultText(StampTextSetting(index));
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
    for (std::size_t index = 1; index < texts.size(); ++index)
        texts[index] = TextOrDefault(StoredSetting(registry, StampTextSetting(index).name), Default(index));
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
    StoreSetting(registry, StampTextSetting(index).name, choice.text);
    if (StoredStampTexts(registry)[index] != choice.text)
        throw std::runtime_error(std::string("the text could not be stored as ") + StampTextSetting(index).name);
}

} // namespace sm::app
