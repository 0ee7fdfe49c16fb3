// SPDX-License-Identifier: GPL-3.0-or-later
// The way from the doubles to the plug-in. Tests that hand out a double's object through here run unchanged where it
// reaches the plug-in by another road, such as automation.
#pragma once

#include "ports/IAcadApplication.h"
#include "ports/IPubDoc.h"

namespace sm {

/// Hands every object over as it is. A derived class gives a port that ends at `own`, and null for null.
class Crossing {
public:
    virtual ~Crossing() = default;
    using Application = std::shared_ptr<IAcadApplication>;
    using Document = std::shared_ptr<IAcadDocument>;
    using Layout = std::shared_ptr<IAcadLayout>;
    using Block = std::shared_ptr<IAcadBlock>;
    using PubDoc = std::shared_ptr<IPubDoc>;
    using Log = std::shared_ptr<IConversionLog>;
    virtual Application Over(const Application& own) { return own; }
    virtual Document Over(const Document& own) { return own; }
    virtual Layout Over(const Layout& own) { return own; }
    virtual Block Over(const Block& own) { return own; }
    virtual PubDoc Over(const PubDoc& own) { return own; }
    virtual Log Over(const Log& own) { return own; }
};

/// The one in force, process-wide; an owner that is empty takes the plain one.
inline std::unique_ptr<Crossing>& CrossingInForce()
{
    static std::unique_ptr<Crossing> crossing;
    if (crossing == nullptr)
        crossing = std::make_unique<Crossing>();
    return crossing;
}

} // namespace sm
