// SPDX-License-Identifier: GPL-3.0-or-later
// Blocks, entities, attributes and hyperlinks.
#include "doubles/ScriptedHost.h"

#include <utility>

namespace sm {
namespace {

class ScriptedHyperlink final : public IAcadHyperlink {
public:
    ScriptedHyperlink(ScriptedHost& host, HyperlinkFacts facts) : m_host(host), m_facts(std::move(facts)) {}
    std::string URL() override
    {
        m_host.tape.Call("Hyperlink", "", "URL");
        return m_host.tape.Answer(m_facts.URL);
    }
    std::string URLDescription() override
    {
        m_host.tape.Call("Hyperlink", "", "URLDescription");
        return m_host.tape.Answer(m_facts.URLDescription);
    }

private:
    ScriptedHost& m_host;
    HyperlinkFacts m_facts;
};

class ScriptedHyperlinks final : public IAcadHyperlinks {
public:
    ScriptedHyperlinks(ScriptedHost& host, std::vector<HyperlinkFacts> facts) : m_host(host), m_facts(std::move(facts))
    {
    }
    std::int32_t Count() override
    {
        m_host.tape.Call("Hyperlinks", "", "Count");
        return static_cast<std::int32_t>(m_facts.size());
    }
    std::shared_ptr<IAcadHyperlink> Item(std::int32_t index) override
    {
        m_host.tape.Call("Hyperlinks", "", "Item", std::to_string(index));
        if (index < 0 || static_cast<std::size_t>(index) >= m_facts.size())
            throw HostError("Invalid index");
        const HyperlinkFacts& link = m_facts[static_cast<std::size_t>(index)];
        return m_host.tape.Answer(std::shared_ptr<IAcadHyperlink>(std::make_shared<ScriptedHyperlink>(m_host, link)));
    }

private:
    ScriptedHost& m_host;
    std::vector<HyperlinkFacts> m_facts;
};

class ScriptedAttribute final : public IAcadAttribute {
public:
    ScriptedAttribute(ScriptedHost& host, AttributeFacts facts) : m_host(host), m_facts(std::move(facts)) {}
    std::string TagString() override
    {
        m_host.tape.Call("Attribute", "", "TagString");
        return m_host.tape.Answer(m_facts.TagString);
    }
    std::string TextString() override
    {
        m_host.tape.Call("Attribute", "", "TextString");
        return m_host.tape.Answer(m_facts.TextString);
    }

private:
    ScriptedHost& m_host;
    AttributeFacts m_facts;
};

class ScriptedReference final : public IAcadBlockReference {
public:
    ScriptedReference(ScriptedHost& host, BlockReferenceFacts facts) : m_host(host), m_facts(std::move(facts)) {}
    bool HasAttributes() override
    {
        Call("HasAttributes");
        return !m_facts.Attributes.empty();
    }
    std::vector<std::shared_ptr<IAcadAttribute>> GetAttributes() override
    {
        Call("GetAttributes");
        return Objects(m_facts.Attributes);
    }
    std::vector<std::shared_ptr<IAcadAttribute>> GetConstantAttributes() override
    {
        Call("GetConstantAttributes");
        return Objects(m_facts.ConstantAttributes);
    }
    std::string Name() override
    {
        Call("Name");
        return m_host.tape.Answer(m_facts.Name);
    }
    AcadPoint InsertionPoint() override
    {
        Call("InsertionPoint");
        return m_facts.InsertionPoint;
    }

private:
    void Call(const std::string& operation) { m_host.tape.Call("BlockReference", m_facts.Name, operation); }
    std::vector<std::shared_ptr<IAcadAttribute>> Objects(const std::vector<AttributeFacts>& list)
    {
        std::vector<std::shared_ptr<IAcadAttribute>> objects;
        for (const AttributeFacts& attribute : list)
            objects.push_back(m_host.tape.Answer(
                std::shared_ptr<IAcadAttribute>(std::make_shared<ScriptedAttribute>(m_host, attribute))));
        return m_host.tape.Answer(objects);
    }
    ScriptedHost& m_host;
    BlockReferenceFacts m_facts;
};

class ScriptedEntity final : public IAcadEntity {
public:
    ScriptedEntity(ScriptedHost& host, EntityFacts facts) : m_host(host), m_facts(std::move(facts))
    {
        if (m_facts.Reference)
            m_reference = std::make_unique<ScriptedReference>(host, *m_facts.Reference);
    }
    std::string ObjectName() override
    {
        Call("ObjectName");
        return m_host.tape.Answer(m_facts.ObjectName);
    }
    std::shared_ptr<IAcadHyperlinks> Hyperlinks() override
    {
        Call("Hyperlinks");
        const auto links = std::make_shared<ScriptedHyperlinks>(m_host, m_facts.Hyperlinks);
        return m_host.tape.Answer(std::shared_ptr<IAcadHyperlinks>(links));
    }
    void GetBoundingBox(AcadPoint& lowerLeft, AcadPoint& upperRight) override
    {
        Call("GetBoundingBox");
        lowerLeft = m_facts.LowerLeft;
        upperRight = m_facts.UpperRight;
    }
    IAcadBlockReference* AsBlockReference() override { return m_reference.get(); }

private:
    void Call(const std::string& operation) { m_host.tape.Call("Entity", m_facts.ObjectName, operation); }
    ScriptedHost& m_host;
    EntityFacts m_facts;
    std::unique_ptr<ScriptedReference> m_reference;
};

class ScriptedBlock final : public IAcadBlock {
public:
    ScriptedBlock(ScriptedHost& host, std::shared_ptr<BlockFacts> facts) : m_host(host), m_facts(std::move(facts)) {}
    std::string Name() override
    {
        Call("Name");
        return m_host.tape.Answer(m_facts->Name);
    }
    std::int32_t Count() override
    {
        Call("Count");
        return static_cast<std::int32_t>(m_facts->Entities.size());
    }
    std::shared_ptr<IAcadEntity> Item(std::int32_t index) override
    {
        Call("Item", std::to_string(index));
        if (index < 0 || static_cast<std::size_t>(index) >= m_facts->Entities.size())
            throw HostError("Invalid index");
        const EntityFacts& entity = m_facts->Entities[static_cast<std::size_t>(index)];
        return m_host.tape.Answer(std::shared_ptr<IAcadEntity>(std::make_shared<ScriptedEntity>(m_host, entity)));
    }

private:
    void Call(const std::string& operation, const std::string& arguments = {})
    {
        m_host.tape.Call("Block", m_facts->Name, operation, arguments);
    }
    ScriptedHost& m_host;
    std::shared_ptr<BlockFacts> m_facts;
};

} // namespace

std::shared_ptr<IAcadBlock> ScriptedHost::OwnBlock(const std::shared_ptr<BlockFacts>& block)
{
    return block == nullptr ? nullptr : std::make_shared<ScriptedBlock>(*this, block);
}

} // namespace sm
