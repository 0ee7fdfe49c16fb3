// SPDX-License-Identifier: GPL-3.0-or-later
// "settings" and "page-setup" on a sample, with a user who follows a script: the real host, the real settings file and
// the real drawing, and a toolkit without a screen.
#pragma once

#include "Dispatch.h"
#include "Fixtures.h"
#include "commands/PageSetupCommand.h"
#include "commands/SettingsCommand.h"
#include "doubles/ScriptedDesktop.h"
#include "doubles/ScriptedToolkit.h"
#include "drawing/Drawing.h"

#include <deque>
#include <gtest/gtest.h>
#include <sstream>

namespace sm::app {

/// Gives the points of a list, one after the other; then the user has cancelled.
class ScriptedPicker final : public cadhost::IPointPicker {
public:
    std::deque<Vec2> points;
    std::vector<std::string> calls; ///< "Enter a point:  on A-101 Ground Floor"

    std::optional<Vec2> PickPoint(const drawing::Drawing& drawing, std::size_t& layout,
                                  const std::string& prompt) override
    {
        calls.push_back(prompt + "on " + drawing.Layouts()[layout].name);
        if (points.empty())
            return {};
        const Vec2 point = points.front();
        points.pop_front();
        return point;
    }
    std::optional<Vec2> PickCorner(const drawing::Drawing& drawing, std::size_t layout, Vec2,
                                   const std::string& prompt) override
    {
        return PickPoint(drawing, layout, prompt);
    }
};

class ScreenStand : public testing::Test {
protected:
    void SetUp() override { UseSample("house.dxf"); }

    void UseSample(const std::string& name)
    {
        drawing = machine.In(name);
        std::filesystem::copy_file(SM_SOURCE_DIR "/samples/" + name, drawing,
                                   std::filesystem::copy_options::overwrite_existing);
        before = Contents(drawing);
    }
    [[nodiscard]] Install Here() const
    {
        Install install = machine.Here();
        install.places.shareFolder = SM_SOURCE_DIR "/share/sheetmaker-pdf";
        return install;
    }
    int Settings(const std::string& layout = "A-101 Ground Floor")
    {
        return RunSettings({drawing, layout.empty() ? std::nullopt : std::optional(layout)}, Here(), Parts(), out, err);
    }
    int PageSetup(const std::optional<std::string>& ofDrawing)
    {
        return RunPageSetup({ofDrawing}, Here(), Parts(), out, err);
    }
    ScreenParts Parts() { return {desktop, toolkit, picker, hasTerminal, hasTerminal || isLedIntoFile}; }
    std::string Shell(const std::vector<std::string>& words)
    {
        std::ostringstream said;
        RunProgram(words, Here(), said, said);
        return Short(said.str());
    }
    /// Without the test's folder.
    [[nodiscard]] std::string Short(std::string text) const
    {
        const std::string folder = machine.Root().string() + "/";
        for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder))
            text.erase(at, folder.size());
        return text;
    }
    /// Files in the test's folder whose names begin so.
    [[nodiscard]] std::vector<std::string> Files(const std::string& beginning) const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(machine.Root()))
            if (entry.path().filename().string().starts_with(beginning))
                names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    [[nodiscard]] bool HasBackup() const { return std::filesystem::exists(drawing + ".bak"); }

    Machine machine;
    ScriptedDesktop desktop;
    ScriptedToolkit toolkit;
    ScriptedPicker picker;
    bool hasTerminal = true;
    bool isLedIntoFile = false; ///< the error stream
    std::string drawing, before;
    std::ostringstream out, err;
};

} // namespace sm::app
