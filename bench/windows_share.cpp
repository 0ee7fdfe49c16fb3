// SPDX-License-Identifier: GPL-3.0-or-later
// How much of a conversion on Windows is ours, and how much the host's and the publishing library's: 1,000 conversions
// of the tests' drawing, host and library reached over COM. The test host answers from memory, so that a real host's
// share is larger by far.
//
//     tests/windows/run-wine build/windows/wine build/windows/tests/windows/windows_share.exe
#include "doubles/TestHouse.h"
#include "plugin/cPlugin.h"
#include "windows/testhost/ComCrossing.h"
#include "windows/testhost/TestObject.h"

#include <cstdio>
#include <windows.h>

namespace {

constexpr int kConversions = 1000;

long long Ticks()
{
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

bool Convert(sm::HouseParts& house)
{
    sm::cPlugin plugin(house.context);
    plugin.Initialize(house.host.Application());
    plugin.ConvertToPDF(0);
    const auto log = house.library.TakeLog();
    return !log.empty() && log.back() == "PDF FILE SAVED";
}

} // namespace

int main()
{
    sm::CrossingInForce() = sm::testhost::MakeComCrossing(sm::testhost::Road::Direct);
    sm::HouseParts house;
    house.PutSetting("PromptForFileName", "0");
    house.PutSetting("WhatToPlot", "1");
    house.library.tape.keepsCalls = house.host.tape.keepsCalls = false;
    const long long insideBefore = sm::testhost::TestObject::TicksInside(), begun = Ticks();
    int good = 0;
    for (int i = 0; i < kConversions; ++i)
        good += Convert(house) ? 1 : 0;
    const auto whole = static_cast<double>(Ticks() - begun);
    const auto theirs = static_cast<double>(sm::testhost::TestObject::TicksInside() - insideBefore);
    LARGE_INTEGER second{};
    QueryPerformanceFrequency(&second);
    const double perMillisecond = static_cast<double>(second.QuadPart) / 1000 * kConversions;
    std::printf(
        "%d of %d conversions; each %.3f ms: host and library %.3f ms, ours with the calls' ways %.3f ms (%.0f %%)\n",
        good, kConversions, whole / perMillisecond, theirs / perMillisecond, (whole - theirs) / perMillisecond,
        100 * (whole - theirs) / whole);
    sm::CrossingInForce() = nullptr;
    return good == kConversions ? 0 : 1;
}
