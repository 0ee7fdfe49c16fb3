// SPDX-License-Identifier: GPL-3.0-or-later
// The application, its collection of drawings and its preferences.
#include "windows/testhost/Members.h"

#include <array>

namespace sm::testhost {
namespace {

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadDocuments>& documents)
{
    using Port = IAcadDocuments;
    static const auto kMembers = std::to_array<Member<Port>>({
        SM_READ(Count),
        {"Item", kRead, 1, 1,
         [](Port& port, Invocation& call) { return Answer(testhost::Offer(port.Item(call.Integer(0)))); }},
        {"Open", kRead, 1, 3,
         [](Port& port, Invocation& call) { return Answer(testhost::Offer(port.Open(call.Text(0)))); }},
    });
    return OfferPort<Port>(documents, kMembers);
}

/// The preferences with their parts, each part an object of its own over the same port.
struct PreferencesParts {
    std::shared_ptr<IAcadPreferences> all;
};
struct PreferencesPart {
    std::shared_ptr<IAcadPreferences> all;
    std::string DriversPath() { return all->DriversPath(); }
    std::string PrinterConfigPath() { return all->PrinterConfigPath(); }
    void SetPrinterConfigPath(const std::string& path) { all->SetPrinterConfigPath(path); }
    std::string ActiveProfile() { return all->ActiveProfile(); }
};

OwnedVariant Files(PreferencesParts& parts, Invocation&)
{
    using Port = PreferencesPart;
    static const auto kMembers = std::to_array<Member<Port>>(
        {SM_READ(DriversPath), SM_READ(PrinterConfigPath), SM_WRITE(PrinterConfigPath, Text)});
    return Answer(OfferPort<Port>(std::make_shared<PreferencesPart>(parts.all), kMembers));
}

OwnedVariant Profiles(PreferencesParts& parts, Invocation&)
{
    using Port = PreferencesPart;
    static const auto kMembers = std::to_array<Member<Port>>({SM_READ(ActiveProfile)});
    return Answer(OfferPort<Port>(std::make_shared<PreferencesPart>(parts.all), kMembers));
}

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadPreferences>& preferences)
{
    if (preferences == nullptr)
        return {};
    using Port = PreferencesParts;
    static const auto kMembers =
        std::to_array<Member<Port>>({{"Files", kRead, 0, 0, Files}, {"Profiles", kRead, 0, 0, Profiles}});
    return OfferPort<Port>(std::make_shared<PreferencesParts>(preferences), kMembers);
}

} // namespace

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadApplication>& application)
{
    using Port = IAcadApplication;
    static const auto kMembers = std::to_array<Member<Port>>({
        {"ActiveDocument", kRead, 0, 0,
         [](Port& port, Invocation&) { return Answer(testhost::Offer(port.ActiveDocument())); }},
        SM_READ_OBJECT(Documents),
        SM_READ_OBJECT(Preferences),
    });
    return OfferPort<Port>(application, kMembers);
}

} // namespace sm::testhost
