// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/MarkState.h"

#include "plugin/Present.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/HostError.h"
#include "ports/IRunObserver.h"
#include "settings/mdlUtilities.h"

#include <cmath>

namespace sm {

AcadPoint WorldToDisplay(IAcadDocument& document, const AcadPoint& point)
{
    constexpr std::int32_t kWorld = 0, kDisplay = 2, kPoint = 0;
    return Present(document.Utility(), "Utility")->TranslateCoordinates(point, kWorld, kDisplay, kPoint);
}

double WholePoint(double value)
{
    const double floor = std::floor(value), rest = value - floor;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(floor, 2) != 0);
    return (up ? floor + 1 : floor) + 0.0;
}

std::string PointText(MarkState& state, double value)
{
    return BoolToText(state.context.surroundings.locale, AcadVariant(value));
}

void CheckMark(MarkState& state, std::int32_t status)
{
    if (status < 0)
        throw HostError(state.pubDoc.LastErrorText());
}

bool Lose(MarkState& state, const char* prefix, const std::string& description) noexcept
{
    TryLogLine(state.context, prefix + description);
    state.context.surroundings.observer.AnnotationsLost(description);
    return false;
}

} // namespace sm
