// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing and its small objects.
#include "windows/automation/WideText.h"
#include "windows/testhost/Members.h"
#include "windows/testhost/TestHost.h"

#include <array>

namespace sm::testhost {
namespace {

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadView>& view)
{
    using Port = IAcadView;
    static const auto kMembers = std::to_array<Member<Port>>({
        SM_READ(Name),
        {"Center", kRead, 0, 0, [](Port& port, Invocation&) { return Answer3(port.Center()); }},
        SM_READ(Width),
        SM_READ(Height),
    });
    return OfferPort<Port>(view, kMembers);
}

/// By position or by name.
template <class Port> OwnedVariant Item(Port& port, Invocation& call)
{
    if (V_VT(&call.Raw(0)) == VT_BSTR)
        return Answer(Offer(port.Item(call.Text(0))));
    return Answer(Offer(port.Item(call.Integer(0))));
}

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadViews>& views)
{
    using Port = IAcadViews;
    static const auto kMembers = std::to_array<Member<Port>>({SM_READ(Count), {"Item", kRead, 1, 1, Item<IAcadViews>}});
    return OfferPort<Port>(views, kMembers);
}

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadLayouts>& layouts)
{
    using Port = IAcadLayouts;
    static const auto kMembers = std::to_array<Member<Port>>(
        {SM_READ(Count), {"Item", kRead, 1, 1, [](Port& port, Invocation& call) {
                              const bool byName = V_VT(&call.Raw(0)) == VT_BSTR;
                              return Answer(
                                  testhost::Offer(byName ? port.Item(call.Text(0)) : port.Item(call.Integer(0))));
                          }}});
    return OfferPort<Port>(layouts, kMembers);
}

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadBlocks>& blocks)
{
    using Port = IAcadBlocks;
    static const auto kMembers =
        std::to_array<Member<Port>>({{"Item", kRead, 1, 1, [](Port& port, Invocation& call) {
                                          return Answer(testhost::Offer(port.Item(call.Text(0))));
                                      }}});
    return OfferPort<Port>(blocks, kMembers);
}

/// What the drawing doesn't hold leaves both arguments as they are.
OwnedVariant GetXData(IAcadDictionaries& port, Invocation& call)
{
    const AcadXData data = port.GetXData(call.Text(0));
    if (data.codes.empty() && data.values.empty())
        return {};
    call.Answer(1, windows::FromShorts(data.codes));
    call.Answer(2, windows::FromVariants(data.values));
    return {};
}

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadDictionaries>& dictionaries)
{
    using Port = IAcadDictionaries;
    static const auto kMembers = std::to_array<Member<Port>>(
        {{"GetXData", kRead, 3, 3, GetXData}, {"SetXData", kRead, 2, 2, [](Port& port, Invocation& call) {
                                                   port.SetXData(windows::ToXData(call.Raw(0), call.Raw(1)));
                                                   return OwnedVariant();
                                               }}});
    return OfferPort<Port>(dictionaries, kMembers);
}

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadUtility>& utility)
{
    using Port = IAcadUtility;
    static const auto kMembers = std::to_array<Member<Port>>({
        {"TranslateCoordinates", kRead, 4, 5,
         [](Port& port, Invocation& call) {
             return Answer3(
                 port.TranslateCoordinates(call.Point(0), call.Integer(1), call.Integer(2), call.Integer(3)));
         }},
        {"GetPoint", kRead, 0, 2,
         [](Port& port, Invocation& call) {
             if (call.IsGiven(0))
                 throw HostError("Invalid argument");
             return Answer3(port.GetPoint(call.IsGiven(1) ? call.Text(1) : ""));
         }},
        {"GetCorner", kRead, 1, 2,
         [](Port& port, Invocation& call) {
             return Answer3(port.GetCorner(call.Point(0), call.IsGiven(1) ? call.Text(1) : ""));
         }},
    });
    return OfferPort<Port>(utility, kMembers);
}

OwnedVariant PlotToFile(IAcadPlot& port, Invocation& call)
{
    const bool plotted = port.PlotToFile(call.Text(0));
    const std::wstring from = windows::Wide(WhatIsPlotted());
    return Answer(plotted && (from.empty() || CopyFileW(from.c_str(), windows::Wide(call.Text(0)).c_str(), FALSE)));
}

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadPlot>& plot)
{
    using Port = IAcadPlot;
    static const auto kMembers = std::to_array<Member<Port>>({
        SM_WRITE(QuietErrorMode, Boolean),
        {"PlotToFile", kRead, 1, 2, PlotToFile},
    });
    return OfferPort<Port>(plot, kMembers);
}

OwnedVariant SetActiveLayout(IAcadDocument& port, Invocation& call)
{
    const ComRef<IDispatch> object = windows::ToObjectOrNull(call.Raw(0));
    const auto* const layout = dynamic_cast<PortObject<IAcadLayout>*>(TestObject::Behind(object.Get()));
    port.SetActiveLayout(layout == nullptr ? nullptr : layout->Behind());
    return {};
}

OwnedVariant Limits(IAcadDocument& port, Invocation&)
{
    const std::array<double, 4> limits = port.Limits();
    return windows::FromDoubles({limits[0], limits[1], limits[2], limits[3]});
}

} // namespace

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadDocument>& document)
{
    using Port = IAcadDocument;
    static const auto kMembers = std::to_array<Member<Port>>({
        {"Application", kRead, 0, 0,
         [](Port& port, Invocation&) { return Answer(testhost::Offer(port.Application())); }},
        SM_READ(Name),
        SM_READ(FullName),
        SM_READ(Active),
        SM_READ(HWND),
        SM_READ(WindowState),
        SM_WRITE(WindowState, Integer),
        SM_READ_OBJECT(Layouts),
        {"ActiveLayout", kRead, 0, 0,
         [](Port& port, Invocation&) { return Answer(testhost::Offer(port.ActiveLayout())); }},
        {"ActiveLayout", kWrite, 1, 1, SetActiveLayout},
        SM_WRITE(ActiveSpace, Integer),
        SM_READ_OBJECT(Blocks),
        SM_READ_OBJECT(Dictionaries),
        SM_READ_OBJECT(Views),
        SM_READ_OBJECT(Utility),
        SM_READ_OBJECT(Plot),
        {"GetVariable", kRead, 1, 1,
         [](Port& port, Invocation& call) { return windows::FromAcadVariant(port.GetVariable(call.Text(0))); }},
        {"Limits", kRead, 0, 0, Limits},
        {"Close", kRead, 0, 2,
         [](Port& port, Invocation& call) {
             port.Close(call.IsGiven(0) && call.Boolean(0));
             return OwnedVariant();
         }},
        {"AuditInfo", kRead, 1, 1,
         [](Port& port, Invocation& call) {
             port.AuditInfo(call.Boolean(0));
             return OwnedVariant();
         }},
    });
    return OfferPort<Port>(document, kMembers);
}

std::string& WhatIsPlotted()
{
    static std::string file;
    return file;
}

} // namespace sm::testhost
