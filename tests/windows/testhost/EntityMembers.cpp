// SPDX-License-Identifier: GPL-3.0-or-later
// Blocks, entities, block references, attributes and hyperlinks.
#include "windows/testhost/Members.h"

#include <array>

namespace sm::testhost {
namespace {

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadHyperlink>& link)
{
    using Port = IAcadHyperlink;
    static const auto kMembers = std::to_array<Member<Port>>({SM_READ(URL), SM_READ(URLDescription)});
    return OfferPort<Port>(link, kMembers);
}

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadHyperlinks>& links)
{
    using Port = IAcadHyperlinks;
    static const auto kMembers = std::to_array<Member<Port>>({
        SM_READ(Count),
        {"Item", kRead, 1, 1, [](Port& port, Invocation& call) { return Answer(Offer(port.Item(call.Integer(0)))); }},
    });
    return OfferPort<Port>(links, kMembers);
}

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadAttribute>& attribute)
{
    using Port = IAcadAttribute;
    static const auto kMembers = std::to_array<Member<Port>>({SM_READ(TagString), SM_READ(TextString)});
    return OfferPort<Port>(attribute, kMembers);
}

OwnedVariant AnswerList(const std::vector<std::shared_ptr<IAcadAttribute>>& attributes)
{
    std::vector<ComRef<IDispatch>> objects;
    for (const auto& attribute : attributes)
        objects.push_back(Offer(attribute));
    return windows::FromObjects(objects);
}

OwnedVariant BoundingBox(IAcadEntity& entity, Invocation& call)
{
    AcadPoint lowerLeft, upperRight;
    entity.GetBoundingBox(lowerLeft, upperRight);
    call.Answer(0, Answer3(lowerLeft));
    call.Answer(1, Answer3(upperRight));
    return {};
}

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadEntity>& entity)
{
    using Port = IAcadEntity;
    // The first three belong to every entity, the others to block references alone.
    static const auto kMembers = std::to_array<Member<Port>>({
        SM_READ(ObjectName),
        SM_READ_OBJECT(Hyperlinks),
        {"GetBoundingBox", kRead, 2, 2, BoundingBox},
        {"HasAttributes", kRead, 0, 0,
         [](Port& port, Invocation&) { return Answer(port.AsBlockReference()->HasAttributes()); }},
        {"GetAttributes", kRead, 0, 0,
         [](Port& port, Invocation&) { return AnswerList(port.AsBlockReference()->GetAttributes()); }},
        {"GetConstantAttributes", kRead, 0, 0,
         [](Port& port, Invocation&) { return AnswerList(port.AsBlockReference()->GetConstantAttributes()); }},
        {"Name", kRead, 0, 0, [](Port& port, Invocation&) { return Answer(port.AsBlockReference()->Name()); }},
        {"InsertionPoint", kRead, 0, 0,
         [](Port& port, Invocation&) { return Answer3(port.AsBlockReference()->InsertionPoint()); }},
    });
    const std::span<const Member<Port>> all = kMembers;
    const bool isReference = entity != nullptr && entity->AsBlockReference() != nullptr;
    return OfferPort<Port>(entity, isReference ? all : all.first(3));
}

} // namespace

ComRef<IDispatch> Offer(const std::shared_ptr<IAcadBlock>& block)
{
    using Port = IAcadBlock;
    static const auto kMembers = std::to_array<Member<Port>>({
        SM_READ(Name),
        SM_READ(Count),
        {"Item", kRead, 1, 1, [](Port& port, Invocation& call) { return Answer(Offer(port.Item(call.Integer(0)))); }},
    });
    return OfferPort<Port>(block, kMembers);
}

} // namespace sm::testhost
