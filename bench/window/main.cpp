// SPDX-License-Identifier: GPL-3.0-or-later
// How fluent the drawing window is with a large drawing: the real window, driven by events.
//
//     window [COUNT]              measures with COUNT entities (400000) and says which figures miss their target
//     window --write PATH [COUNT] writes the drawing
//
// QT_QPA_PLATFORM says on which screen; "offscreen" without it. Times are of the clock, and of the screen's thread
// where it says so. Exit code 1: something misses its target.
#include "Crowd.h"
#include "Preview.h"
#include "User.h"

#include "drawing/Drawing.h"
#include "qt/DrawingWindow.h"

#include <QTimer>

namespace {

using sm::bench::Clock;
using sm::bench::Frames;
using sm::bench::Mean;
using sm::bench::Memory;
using sm::bench::Since;
using sm::bench::Tell;
using sm::bench::Used;
using sm::bench::User;
using sm::bench::Worst;

bool TellFrames(const char* what, const Frames& frames, bool isFollowed = true)
{
    constexpr double kFrame = 16, kSharp = 300; // ms
    bool good = Tell(std::string(what) + ", a frame, mean", {Mean(frames.wall), Mean(frames.cpu)}, kFrame);
    good &= Tell(std::string(what) + ", a frame, longest", {Worst(frames.wall), Worst(frames.cpu)}, kFrame);
    if (isFollowed)
        good &= Tell(std::string(what) + ", sharp", frames.sharp, kSharp);
    return good;
}

bool MeasureIn(Clock::time_point asked, double used)
{
    constexpr double kFirst = 1500, kAgain = 500; // ms
    constexpr int kSteps = 60;
    bool good = Tell("first picture of the model", User::Settle(asked, used), kFirst);
    good &= TellFrames("pan, all of it", User::Pan(kSteps));
    good &= TellFrames("zoom in", User::Zoom(1, 12));
    good &= TellFrames("pan, a part", User::Pan(kSteps));
    good &= TellFrames("cursor", User::Move(kSteps), false);
    good &= TellFrames("zoom out", User::Zoom(-1, 12));
    good &= TellFrames("a notch in", User::Zoom(1, 1));
    good &= Tell("first picture of the sheet", User::Turn(1), kFirst);
    good &= TellFrames("zoom in the sheet", User::Zoom(1, 8));
    good &= Tell("back to the model", User::Turn(0), kAgain);
    good &= Tell("the sheet again", User::Turn(1), kAgain);
    return good;
}

/// The page beside the settings dialog, of a drawing of 20,000 entities.
bool MeasurePreview()
{
    constexpr std::size_t kEntities = 20000;
    constexpr double kFirst = 1500, kAgain = 100; // ms
    const double before = Used(CLOCK_PROCESS_CPUTIME_ID);
    const std::vector<double> times = sm::bench::PreviewTimes(kEntities);
    const double used = (Used(CLOCK_PROCESS_CPUTIME_ID) - before) / static_cast<double>(times.size());
    const std::vector<double> later(times.begin() + 1, times.end());
    bool good = Tell("preview of 20000, first", {times.front(), times.front()}, kFirst);
    good &= Tell("preview of 20000, after a change, mean", {Mean(later), used}, kAgain);
    return good;
}

bool Measure(const sm::drawing::Drawing& drawing)
{
    const auto window = sm::qt::CreateDrawingWindow({{}, SM_SOURCE_DIR "/share/sheetmaker-pdf"});
    const double before = Memory("VmRSS");
    bool good = false;
    const auto asked = Clock::now();
    const double used = Used(CLOCK_PROCESS_CPUTIME_ID);
    QTimer::singleShot(1, qApp, [&] {
        good = MeasureIn(asked, used);
        User::Window().close();
    });
    std::size_t layout = 0;
    window->PickPoint(drawing, layout, "Enter a point: ");
    std::printf("memory: %.0f MB before the window, %.0f with it, %.0f at most\n", before, Memory("VmRSS"),
                Memory("VmHWM"));
    return good;
}

} // namespace

int main(int count, char** words)
{
    const std::vector<std::string> given(words + 1, words + count);
    const bool writes = given.size() > 1 && given[0] == "--write";
    const std::size_t at = writes ? 2 : 0;
    const std::size_t entities = given.size() > at ? std::stoul(given[at]) : 400000;
    if (writes) {
        std::ofstream(given[1], std::ios::binary) << sm::bench::Crowd(entities);
        return 0;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, words);
    const auto start = Clock::now();
    const auto drawing = sm::drawing::Drawing::FromBytes(sm::bench::Crowd(entities), "crowd.dxf");
    std::printf("%zu entities, made and read in %.0f ms, on \"%s\"\n", entities, Since(start),
                QApplication::platformName().toUtf8().constData());
    const bool isFluent = Measure(*drawing);
    return MeasurePreview() && isFluent ? 0 : 1;
}
