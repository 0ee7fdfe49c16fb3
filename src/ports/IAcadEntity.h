// SPDX-License-Identifier: GPL-3.0-or-later
// Entities, block references, attributes, hyperlinks and the blocks that hold them.
//
// Every operation of this port may throw HostError. References are shared and never null unless a comment says so.
#pragma once

#include "ports/Variant.h"

#include <memory>
#include <string>
#include <vector>

namespace sm {

class IAcadHyperlink {
public:
    virtual ~IAcadHyperlink() = default;
    virtual std::string URL() = 0;
    virtual std::string URLDescription() = 0;
};

class IAcadHyperlinks {
public:
    virtual ~IAcadHyperlinks() = default;
    virtual std::int32_t Count() = 0;
    /// 0-based.
    virtual std::shared_ptr<IAcadHyperlink> Item(std::int32_t index) = 0;
};

class IAcadAttribute {
public:
    virtual ~IAcadAttribute() = default;
    virtual std::string TagString() = 0;
    virtual std::string TextString() = 0;
};

class IAcadBlockReference;

class IAcadEntity {
public:
    virtual ~IAcadEntity() = default;
    /// The class name of the object model, for example "AcDbLine".
    virtual std::string ObjectName() = 0;
    virtual std::shared_ptr<IAcadHyperlinks> Hyperlinks() = 0;
    /// The corners of the axis-parallel box round the entity, in world coordinates.
    virtual void GetBoundingBox(AcadPoint& lowerLeft, AcadPoint& upperRight) = 0;
    /// This entity as a block reference, or null when it is none; owned by the entity.
    virtual IAcadBlockReference* AsBlockReference() = 0;
};

class IAcadBlockReference {
public:
    virtual ~IAcadBlockReference() = default;
    virtual bool HasAttributes() = 0;
    virtual std::vector<std::shared_ptr<IAcadAttribute>> GetAttributes() = 0;
    virtual std::vector<std::shared_ptr<IAcadAttribute>> GetConstantAttributes() = 0;
    /// The name of the referenced block.
    virtual std::string Name() = 0;
    virtual AcadPoint InsertionPoint() = 0;
};

/// A collection of entities: a layout's space or a block definition.
class IAcadBlock {
public:
    virtual ~IAcadBlock() = default;
    /// "*Model_Space", "*Paper_Space", "*Paper_Space0" ... or the block's name.
    virtual std::string Name() = 0;
    virtual std::int32_t Count() = 0;
    /// 0-based.
    virtual std::shared_ptr<IAcadEntity> Item(std::int32_t index) = 0;
};

class IAcadBlocks {
public:
    virtual ~IAcadBlocks() = default;
    /// Throws HostError when no block has that name (letter case aside).
    virtual std::shared_ptr<IAcadBlock> Item(const std::string& name) = 0;
};

} // namespace sm
