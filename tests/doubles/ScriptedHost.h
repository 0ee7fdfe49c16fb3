// SPDX-License-Identifier: GPL-3.0-or-later
// A CAD host over plain structs: records every call and can fail any of them.
//
//     ScriptedHost host;
//     host.AddDocument(DocumentFacts{});
//     host.tape.FailCall("Layout.SetPlotType", "Invalid input");
//     plugin.Initialize(host.Application());
//
// Objects handed out stay valid for as long as the host lives.
#pragma once

#include "doubles/CallTape.h"
#include "doubles/Crossing.h"
#include "doubles/HostFacts.h"
#include "ports/IAcadApplication.h"

namespace sm {

class ScriptedHost {
public:
    CallTape tape;
    SessionFacts facts;

    /// Adds an open drawing; the first one is the active one.
    std::shared_ptr<DocumentFacts> AddDocument(const DocumentFacts& document);

    /// The ports over `facts`, by the crossing in force; null for null.
    std::shared_ptr<IAcadApplication> Application() { return CrossingInForce()->Over(OwnApplication()); }
    std::shared_ptr<IAcadDocument> Document(const std::shared_ptr<DocumentFacts>& document)
    {
        return CrossingInForce()->Over(OwnDocument(document));
    }
    std::shared_ptr<IAcadLayout> Layout(const std::shared_ptr<LayoutFacts>& layout)
    {
        return CrossingInForce()->Over(OwnLayout(layout));
    }
    std::shared_ptr<IAcadBlock> Block(const std::shared_ptr<BlockFacts>& block)
    {
        return CrossingInForce()->Over(OwnBlock(block));
    }
    /// The same as this host's own objects hand them out.
    std::shared_ptr<IAcadApplication> OwnApplication();
    std::shared_ptr<IAcadDocument> OwnDocument(const std::shared_ptr<DocumentFacts>& document);
    std::shared_ptr<IAcadLayout> OwnLayout(const std::shared_ptr<LayoutFacts>& layout);
    std::shared_ptr<IAcadBlock> OwnBlock(const std::shared_ptr<BlockFacts>& block);
    /// The facts behind a layout of this host; null for null or another host's.
    static std::shared_ptr<LayoutFacts> FactsOf(const std::shared_ptr<IAcadLayout>& layout);
};

} // namespace sm
