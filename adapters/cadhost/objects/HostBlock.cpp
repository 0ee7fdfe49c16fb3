// SPDX-License-Identifier: GPL-3.0-or-later
// Blocks and the collection of blocks. An entity's object is made when it is asked for and kept nowhere, so that a walk
// over a million of them holds one at a time.
#include "answers/HostErrors.h"
#include "objects/HostObjects.h"

namespace sm::cadhost {
namespace {

class HostBlock final : public IAcadBlock {
public:
    HostBlock(OpenDrawingRef open, std::uint32_t block) : m_open(std::move(open)), m_block(block) {}
    std::string Name() override { return m_open->File().Blocks().at(m_block).name; }
    std::int32_t Count() override { return static_cast<std::int32_t>(Entities().size()); }
    std::shared_ptr<IAcadEntity> Item(std::int32_t index) override
    {
        const auto entities = Entities();
        if (index < 0 || static_cast<std::size_t>(index) >= entities.size())
            throw HostError("Block '" + Name() + "': there is no item " + std::to_string(index));
        return MakeEntity(m_open, entities[static_cast<std::size_t>(index)]);
    }

private:
    [[nodiscard]] std::span<const drawing::EntityRecord> Entities() const { return m_open->File().EntitiesOf(m_block); }
    OpenDrawingRef m_open;
    std::uint32_t m_block;
};

class HostBlocks final : public IAcadBlocks {
public:
    explicit HostBlocks(OpenDrawingRef open) : m_open(std::move(open)) {}
    std::shared_ptr<IAcadBlock> Item(const std::string& name) override
    {
        const std::uint32_t block = m_open->File().FindBlock(name);
        if (block == drawing::kNoBlock)
            throw HostError("Blocks: there is no block '" + name + "'");
        return MakeBlock(m_open, block);
    }

private:
    OpenDrawingRef m_open;
};

} // namespace

std::shared_ptr<IAcadBlock> MakeBlock(const OpenDrawingRef& open, std::uint32_t block)
{
    if (block >= open->File().Blocks().size())
        throw HostError("a layout of '" + open->FileName() + "' has no block");
    return std::make_shared<HostBlock>(open, block);
}

std::shared_ptr<IAcadBlocks> MakeBlocks(const OpenDrawingRef& open)
{
    return std::make_shared<HostBlocks>(open);
}

} // namespace sm::cadhost
