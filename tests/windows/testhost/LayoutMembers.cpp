// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/testhost/Members.h"

#include <array>

namespace sm::testhost {
namespace {

using Port = IAcadLayout;

template <void (IAcadLayout::*read)(AcadPoint&, AcadPoint&)> OwnedVariant Corners(Port& port, Invocation& call)
{
    AcadPoint lowerLeft, upperRight;
    (port.*read)(lowerLeft, upperRight);
    call.Answer(0, Answer2(lowerLeft));
    call.Answer(1, Answer2(upperRight));
    return {};
}

template <void (IAcadLayout::*read)(double&, double&)> OwnedVariant Numbers(Port& port, Invocation& call)
{
    double first = 0, second = 0;
    (port.*read)(first, second);
    call.Answer(0, Answer(first));
    call.Answer(1, Answer(second));
    return {};
}

const std::array kMembers = std::to_array<Member<Port>>({
    SM_READ(Name),
    SM_READ(TabOrder),
    SM_READ(ModelType),
    SM_READ_OBJECT(Block),
    SM_READ(ConfigName),
    SM_WRITE(ConfigName, Text),
    SM_READ(CanonicalMediaName),
    SM_WRITE(CanonicalMediaName, Text),
    SM_READ(StyleSheet),
    SM_WRITE(StyleSheet, Text),
    SM_READ(PlotRotation),
    SM_WRITE(PlotRotation, Integer),
    SM_READ(PlotType),
    SM_WRITE(PlotType, Integer),
    SM_READ(ViewToPlot),
    SM_WRITE(ViewToPlot, Text),
    SM_READ(CenterPlot),
    SM_WRITE(CenterPlot, Boolean),
    SM_READ(PaperUnits),
    SM_WRITE(PaperUnits, Integer),
    SM_READ(UseStandardScale),
    SM_WRITE(UseStandardScale, Boolean),
    SM_READ(StandardScale),
    SM_WRITE(StandardScale, Integer),
    SM_READ(PlotWithPlotStyles),
    SM_WRITE(PlotWithPlotStyles, Boolean),
    SM_READ(ShowPlotStyles),
    SM_WRITE(ShowPlotStyles, Boolean),
    SM_READ(PlotHidden),
    SM_WRITE(PlotHidden, Boolean),
    SM_READ(PlotViewportBorders),
    SM_WRITE(PlotViewportBorders, Boolean),
    SM_READ(PlotWithLineweights),
    SM_WRITE(PlotWithLineweights, Boolean),
    SM_READ(ScaleLineweights),
    SM_WRITE(ScaleLineweights, Boolean),
    SM_READ(PlotViewportsFirst),
    SM_WRITE(PlotViewportsFirst, Boolean),
    SM_READ(GetPlotDeviceNames),
    SM_READ(GetCanonicalMediaNames),
    SM_READ(GetPlotStyleTableNames),
    {"PlotOrigin", kRead, 0, 0, [](Port& port, Invocation&) { return Answer2(port.PlotOrigin()); }},
    {"PlotOrigin", kWrite, 1, 1,
     [](Port& port, Invocation& call) {
         port.SetPlotOrigin(call.Point(0));
         return OwnedVariant();
     }},
    {"GetLocaleMediaName", kRead, 1, 1,
     [](Port& port, Invocation& call) { return Answer(port.GetLocaleMediaName(call.Text(0))); }},
    {"GetWindowToPlot", kRead, 2, 2, Corners<&IAcadLayout::GetWindowToPlot>},
    {"SetWindowToPlot", kRead, 2, 2,
     [](Port& port, Invocation& call) {
         port.SetWindowToPlot(call.Point(0), call.Point(1));
         return OwnedVariant();
     }},
    {"GetPaperMargins", kRead, 2, 2, Corners<&IAcadLayout::GetPaperMargins>},
    {"GetPaperSize", kRead, 2, 2, Numbers<&IAcadLayout::GetPaperSize>},
    {"GetCustomScale", kRead, 2, 2, Numbers<&IAcadLayout::GetCustomScale>},
    {"SetCustomScale", kRead, 2, 2,
     [](Port& port, Invocation& call) {
         port.SetCustomScale(call.Number(0), call.Number(1));
         return OwnedVariant();
     }},
    {"RefreshPlotDeviceInfo", kRead, 0, 0,
     [](Port& port, Invocation&) {
         port.RefreshPlotDeviceInfo();
         return OwnedVariant();
     }},
});

} // namespace

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadLayout>& layout)
{
    return OfferPort<IAcadLayout>(layout, kMembers);
}

} // namespace sm::testhost
