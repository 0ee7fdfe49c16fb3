// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing and the window that its points are picked in.
#pragma once

#include "../screens/Png.h"
#include "DrawingUser.h"
#include "Folders.h"
#include "win32/DrawingWindow.h"
#include "windows/automation/WideText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

namespace sm::win32 {

using Steps = std::function<void(const DrawingUser&)>;
using Point = std::optional<Vec2>;

class OpenDrawing : public ::testing::Test {
protected:
    OpenDrawing() { windows::TheUiThread(); }
    void OpenSample(const std::string& name) { drawing = drawing::Drawing::Open(SourceFolder() + "/samples/" + name); }
    [[nodiscard]] std::size_t LayoutNamed(const std::string& name) const
    {
        const auto& layouts = drawing->Layouts();
        const auto found =
            std::find_if(layouts.begin(), layouts.end(), [&](const auto& one) { return one.name == name; });
        return static_cast<std::size_t>(found - layouts.begin());
    }
    Point Pick(const Steps& steps)
    {
        Point point;
        WhileUserDraws(steps, [&] { point = picker->PickPoint(*drawing, active, "Enter a point: "); });
        return point;
    }
    Point Corner(Vec2 first, const Steps& steps)
    {
        Point point;
        WhileUserDraws(steps, [&] { point = picker->PickCorner(*drawing, active, first, "Enter Other Corner: "); });
        return point;
    }
    static void Keep(const DrawingUser& user, const std::string& name)
    {
        user.Settle();
        windows::TheUiThread().Run([&] {
            RedrawWindow(user.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
            EXPECT_GT(windows::CountColors(user.Window()), 5) << "nothing is to be seen";
            EXPECT_TRUE(windows::SavePicture(user.Window(), windows::Wide(PictureFolder() + "/" + name + ".png")));
        });
    }

    std::unique_ptr<drawing::Drawing> drawing;
    scene::DrawingWindowOptions options{{}, SourceFolder() + "/share/sheetmaker-pdf"};
    std::unique_ptr<scene::IDrawingWindow> picker = CreateDrawingWindow(options);
    std::size_t active = 0;
};

} // namespace sm::win32
