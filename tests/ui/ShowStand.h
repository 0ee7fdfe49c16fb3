// SPDX-License-Identifier: GPL-3.0-or-later
// The show routine over the test house: what it stored, logged and told.
#pragma once

#include "ui/UiStand.h"
#include "ui/mdlGUITap.h"

namespace sm {

inline const char* const kUnknownError =
    "An unknown error occurred during Sheetmaker PDF execution. It is suggested that you send an email\r\nto "
    "Tarnwick Technical Support at support@tarnwick.example and attach the Log File that was created. \r\n\r\nWould "
    "you like to view the log file now?";
inline const char* const kNotInitialized =
    "Before converting to PDF you must initialize the Page Setup for each Model or Layout Tab to be converted. "
    "\r\nDo this using the AutoCAD /File/Page_Setup/ menu item.";

class ShowSettings : public UiStand {
protected:
    std::int32_t Show() { return ShowConversionSettings(context, toolkit); }
    void ExpectLog(const Lines& further = {})
    {
        Lines lines = {"SHOW CONVERSION SETTINGS FORM"};
        lines.insert(lines.end(), further.begin(), further.end());
        EXPECT_EQ(Log(), lines);
    }
    void ExpectUnknownError()
    {
        EXPECT_EQ(Messages(), (std::vector<Message>{ProductMessage(kUnknownError, MessageButtons::OkCancel,
                                                                   MessageIcon::Critical, 170)}));
    }
    [[nodiscard]] Texts Record(const std::string& name) const
    {
        Texts texts;
        const auto found = drawing->XData.find("TWSI_" + name);
        if (found == drawing->XData.end())
            return {"(absent)"};
        for (const AcadVariant& value : found->second.values)
            texts.push_back(std::get<std::string>(value));
        return texts;
    }
    void Store(const std::string& name, const Texts& values)
    {
        AcadXData data{{1001}, {"TWSI_" + name}};
        data.codes.resize(values.size() + 1, 1000);
        data.values.insert(data.values.end(), values.begin(), values.end());
        drawing->XData["TWSI_" + name] = data;
    }
    void ExpectNothingStored()
    {
        EXPECT_TRUE(drawing->XData.empty());
        EXPECT_EQ(Setting("PromptForFileName"), "(absent)");
        EXPECT_EQ(Setting("Stamp1"), "(absent)");
    }
};

} // namespace sm
