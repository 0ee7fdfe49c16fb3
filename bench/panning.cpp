// SPDX-License-Identifier: GPL-3.0-or-later
// How fluent the drawing window is: milliseconds for a layout's first picture, and for steps of panning and zooming.
//
//     panning DRAWING...      one line each, of the model; needs no screen
#include "drawing/Drawing.h"
#include "render/References.h"
#include "render/TextLayout.h"
#include "view/DrawingView.h"

#include <QApplication>
#include <chrono>
#include <cstdio>

namespace {

using Clock = std::chrono::steady_clock;
using sm::qt::DrawingView;
using sm::scene::LayoutPicture;

double Since(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Until what is seen at once is there, and until it is painted whole.
struct Step {
    double shown = 0, whole = 0;
};

Step Wait(DrawingView& view, Clock::time_point start)
{
    view.repaint();
    Step step{Since(start), 0};
    while (!view.IsPainted())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    view.repaint();
    step.whole = Since(start);
    return step;
}

template <class Move> Step Mean(DrawingView& view, Move move)
{
    constexpr int kSteps = 20;
    Step sum;
    for (int i = 0; i < kSteps; ++i) {
        const auto start = Clock::now();
        move(i);
        const Step step = Wait(view, start);
        sum.shown += step.shown / kSteps;
        sum.whole += step.whole / kSteps;
    }
    return sum;
}

double SnapMicroseconds(const DrawingView& view, const LayoutPicture& picture)
{
    constexpr int kMoves = 10000;
    std::size_t found = 0;
    const auto start = Clock::now();
    for (int i = 0; i < kMoves; ++i) {
        const sm::Vec2 at = view.Map().ToScene({i * 37.0 / 29 - i / 1000 * 1200.0, i * 7 % 800 * 1.0});
        found += picture.snaps.Find(at, 10 / view.Map().scale) ? 1 : 0;
    }
    const double each = Since(start) * 1000 / kMoves;
    return found > 0 ? each : -each;
}

void Measure(const char* path)
{
    const auto drawing = sm::drawing::Drawing::Open(path);
    const auto text = sm::render::TextEngine::Create({SM_SOURCE_DIR "/share/sheetmaker-pdf", ""});
    sm::render::References references(*drawing, {});
    const std::atomic<bool> stop = false;
    DrawingView view;
    view.resize(1200, 800);
    view.show();
    QCoreApplication::processEvents();
    const auto start = Clock::now();
    const std::shared_ptr<const LayoutPicture> picture = sm::scene::RecordLayout(*drawing, 0, *text, references, stop);
    const double recorded = Since(start);
    view.SetPicture(picture);
    const double first = Wait(view, start).whole;
    const Step pan = Mean(view, [&](int i) {
        auto map = view.Map();
        map.MoveBy({i % 2 == 0 ? 31.0 : -23.0, 17});
        view.SetMap(map);
    });
    const Step zoom = Mean(view, [&](int i) { view.Zoom(i < 10 ? 1.25 : 0.8); });
    view.ShowAll();
    Wait(view, start);
    const double snap = SnapMicroseconds(view, *picture);
    std::printf(
        "%-24s %8llu entities, %8zu items: recorded %6.0f ms, first picture %6.0f ms; pan %5.1f ms seen, %6.1f ms "
        "whole; zoom %5.1f ms seen, %6.1f ms whole; snap %5.1f us; %4.0f + %4.0f MB\n",
        path, static_cast<unsigned long long>(drawing->EntityCount()), picture->list.items.size(), recorded, first,
        pan.shown, pan.whole, zoom.shown, zoom.whole, snap, static_cast<double>(picture->list.Bytes()) / 1e6,
        static_cast<double>(picture->snaps.Bytes()) / 1e6);
}

} // namespace

int main(int count, char** paths)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, paths);
    for (int i = 1; i < count; ++i)
        Measure(paths[i]);
}
