// SPDX-License-Identifier: GPL-3.0-or-later
// Points that the user picks in a window of the host's surroundings.
#include "cadhost/HostFixture.h"
#include "cadhost/PointPicker.h"
#include "drawing/Drawing.h"

#include <deque>

namespace sm::cadhost {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Answers from a list, and notes what it was asked. An empty list throws.
class ScriptedPicker final : public IPointPicker {
public:
    using Answer = std::optional<Vec2>;
    Answer PickPoint(const drawing::Drawing& drawing, std::size_t& layout, const std::string& prompt) override
    {
        const std::size_t before = layout;
        layout = turnTo.value_or(layout);
        return Next("point", drawing, before, prompt);
    }
    Answer PickCorner(const drawing::Drawing& drawing, std::size_t layout, Vec2 first,
                      const std::string& prompt) override
    {
        const auto whole = [](double value) { return std::to_string(std::lround(value)); };
        return Next("corner from " + whole(first.x) + "," + whole(first.y), drawing, layout, prompt);
    }
    void Forget(const drawing::Drawing& drawing) override { asked.push_back("forget " + NameOf(drawing)); }

    std::deque<Answer> answers;
    std::vector<std::string> asked;
    std::optional<std::size_t> turnTo; ///< the tab that the user turns to before picking

private:
    static std::string NameOf(const drawing::Drawing& drawing)
    {
        return std::filesystem::path(drawing.Path()).filename().string();
    }
    Answer Next(const std::string& what, const drawing::Drawing& drawing, std::size_t layout, const std::string& prompt)
    {
        asked.push_back(what + " in " + NameOf(drawing) + ", " + drawing.Layouts().at(layout).name + ": " + prompt);
        if (answers.empty())
            throw std::runtime_error("the screen went away");
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

class HostPicking : public HostTest {
protected:
    HostPicking()
    {
        HostOptions options{kShare, "R. Draughtsman"};
        options.picker = &picker;
        host = CadHost::Create(options);
        drawing.AddSheet("Ground");
        drawing.active = 1;
    }
    ~HostPicking() override { host.reset(); }
    DxfDrawing drawing;
    ScriptedPicker picker;
};

TEST_F(HostPicking, APointComesFromThePickerForTheActiveLayout)
{
    const auto document = Open(drawing);
    picker.answers = {Vec2{1.25, -2}, Vec2{3, 4}};
    EXPECT_EQ(document->Utility()->GetPoint("Enter a point: "), (AcadPoint{1.25, -2, 0}));
    document->SetActiveSpace(1);
    EXPECT_EQ(document->Utility()->GetPoint("Enter First Corner: "), (AcadPoint{3, 4, 0}));
    EXPECT_THAT(picker.asked, ElementsAre("point in plan1.dxf, Ground: Enter a point: ",
                                          "point in plan1.dxf, Model: Enter First Corner: "));
}

TEST_F(HostPicking, ATabThatIsTurnedIsTheActiveLayoutWhateverBecomesOfThePick)
{
    drawing.AddSheet("Upper");
    const auto document = Open(drawing);
    for (const bool cancelled : {false, true}) {
        picker.turnTo = cancelled ? 2 : 0;
        picker.answers = {cancelled ? std::nullopt : std::optional(Vec2{1, 2})};
        if (cancelled)
            EXPECT_THROW(document->Utility()->GetPoint("Enter a point: "), HostError);
        else
            EXPECT_EQ(document->Utility()->GetPoint("Enter a point: ").y, 2);
        EXPECT_EQ(document->ActiveLayout()->Name(), cancelled ? "Upper" : "Model");
    }
}

TEST_F(HostPicking, ACornerIsAskedForWithTheFirstOne)
{
    const auto document = Open(drawing);
    picker.answers = {Vec2{70, 80}};
    EXPECT_EQ(document->Utility()->GetCorner({5, 6, 7}, "Enter Other Corner: "), (AcadPoint{70, 80, 0}));
    EXPECT_THAT(picker.asked, ElementsAre("corner from 5,6 in plan1.dxf, Ground: Enter Other Corner: "));
}

TEST_F(HostPicking, ACancelledPickFails)
{
    const auto utility = Open(drawing)->Utility();
    picker.answers = {std::nullopt, std::nullopt, Vec2{1, 1}};
    EXPECT_EQ(ErrorOf([&] { utility->GetPoint("Where?"); }), "the user cancelled picking");
    EXPECT_EQ(ErrorOf([&] { utility->GetCorner({}, "Where?"); }), "the user cancelled picking");
    EXPECT_EQ(utility->GetPoint("Where?"), (AcadPoint{1, 1, 0}));
}

TEST_F(HostPicking, WhatThePickerThrowsFailsTheCall)
{
    const auto utility = Open(drawing)->Utility();
    EXPECT_EQ(ErrorOf([&] { utility->GetPoint("Where?"); }), "the screen went away");
    EXPECT_EQ(ErrorOf([&] { utility->GetCorner({}, "Where?"); }), "the screen went away");
}

TEST_F(HostPicking, ADrawingThatIsClosedIsForgottenFirst)
{
    const auto document = Open(drawing);
    const auto utility = document->Utility();
    EXPECT_THAT(picker.asked, IsEmpty());
    document->Close(false);
    EXPECT_THAT(picker.asked, ElementsAre("forget plan1.dxf"));
    EXPECT_EQ(ErrorOf([&] { utility->GetPoint("Where?"); }), "the drawing 'plan1.dxf' is closed");
}

} // namespace
} // namespace sm::cadhost
