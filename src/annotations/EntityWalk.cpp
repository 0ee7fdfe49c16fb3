// SPDX-License-Identifier: GPL-3.0-or-later
#include "annotations/EntityWalk.h"

#include "plugin/Attempt.h"
#include "plugin/Present.h"
#include "plugin/mdlAcadHelper.h"
#include "ports/ISystem.h"

#include <algorithm>

namespace sm {

namespace {

/// Blocks nested deeper than this, or a walk of more entities, come from a damaged drawing.
constexpr std::size_t kMostOpen = 500;
constexpr std::uint64_t kMostVisited = 50'000'000;

bool AnySwitch(const TransferFlags& flags)
{
    return flags.TransferTextHlinks || flags.TransferDrawingHlinks || flags.TransferBlockHlinks ||
           flags.TransferVPortHlinks || flags.TransferAttributes;
}

} // namespace

EntityWalk::EntityWalk(MarkState& state, std::function<void(double)> advance)
    : m_state(state), m_advance(std::move(advance))
{
}

bool EntityWalk::WalkEntities(IAcadBlock& container, double baseX, double baseY)
{
    if (!AnySwitch(m_state.transfer))
        return true;
    return GiveUp(
        [&] {
            Walk(container, baseX, baseY);
            return true;
        },
        [&](const std::string& description) {
            m_error = description;
            return false;
        });
}

void EntityWalk::Walk(IAcadBlock& container, double baseX, double baseY)
{
    const std::int32_t count = container.Count();
    const double step = count > 0 ? 100.0 / count : 0;
    for (std::int32_t i = 0; i < count; ++i) {
        if (++m_visited > kMostVisited)
            throw HostError("The drawing nests too many entities to walk them all");
        Visit(*Present(container.Item(i), "Entity"), baseX, baseY);
        if (m_advance && m_open.empty())
            m_advance(step * (i + 1));
    }
}

void EntityWalk::Visit(IAcadEntity& entity, double baseX, double baseY)
{
    const auto links = Present(entity.Hyperlinks(), "Hyperlinks");
    if (links->Count() > 0)
        TransferHyperlink(entity, *links, baseX, baseY);
    IAcadBlockReference* reference = entity.AsBlockReference();
    if (!reference)
        return;
    if (m_state.transfer.TransferAttributes && reference->HasAttributes())
        TransferAttributes(*reference);
    Enter(*reference);
}

bool EntityWalk::Transfers(const std::string& objectName) const
{
    const TransferFlags& flags = m_state.transfer;
    if (objectName == "AcDbText" || objectName == "AcDbMText")
        return flags.TransferTextHlinks;
    if (objectName == "AcDbBlockReference")
        return flags.TransferBlockHlinks;
    if (objectName == "AcDbViewport")
        return flags.TransferVPortHlinks;
    return flags.TransferDrawingHlinks;
}

void EntityWalk::TransferHyperlink(IAcadEntity& entity, IAcadHyperlinks& links, double baseX, double baseY)
{
    AcadPoint lowerLeft, upperRight;
    entity.GetBoundingBox(lowerLeft, upperRight);
    const AcadPoint least = WorldToDisplay(m_state.document, lowerLeft);
    const AcadPoint most = WorldToDisplay(m_state.document, upperRight);
    const PageMapping& map = m_state.mapping;
    const double x1 = map.X(baseX + least.x), y1 = map.Y(baseY + least.y);
    const double x2 = map.X(baseX + most.x), y2 = map.Y(baseY + most.y);
    if (!Transfers(entity.ObjectName()))
        return;
    const std::string url = Present(links.Item(0), "Hyperlink")->URL();
    TryLogLine(m_state.context, "  '" + url + "', [" + PointText(m_state, x1) + " " + PointText(m_state, y1) + " " +
                                    PointText(m_state, x2) + " " + PointText(m_state, y2) + "]");
    CheckMark(m_state, m_state.pubDoc.AddLinkMark(0, x1, y1, x2, y2, url));
}

void EntityWalk::TransferAttributes(IAcadBlockReference& reference)
{
    CallContext& context = m_state.context;
    const std::string prefix = context.blockNames.Next(context.surroundings.locale, reference.Name()) + "/";
    for (const auto& attribute : reference.GetAttributes())
        HandOver(prefix, *Present(attribute, "Attribute"));
    for (const auto& attribute : reference.GetConstantAttributes())
        HandOver(prefix, *Present(attribute, "Attribute"));
}

void EntityWalk::HandOver(const std::string& prefix, IAcadAttribute& attribute)
{
    const std::string name = prefix + SanitizeName(m_state.context.surroundings.locale, attribute.TagString());
    const std::string value = attribute.TextString();
    CheckMark(m_state, m_state.pubDoc.AddPropertyMark(0, name, value));
    m_state.attributeList.emplace_back(name, value);
}

void EntityWalk::Enter(IAcadBlockReference& reference)
{
    const std::string name = reference.Name();
    if (std::find(m_open.begin(), m_open.end(), name) != m_open.end())
        throw HostError("Block '" + name + "' contains itself");
    if (m_open.size() >= kMostOpen)
        throw HostError("Block '" + name + "' is nested too deeply");
    const auto definition = Present(Present(m_state.document.Blocks(), "Blocks")->Item(name), "Block");
    const AcadPoint insertion = reference.InsertionPoint();
    m_open.push_back(name);
    Walk(*definition, insertion.x, insertion.y);
    m_open.pop_back();
}

} // namespace sm
