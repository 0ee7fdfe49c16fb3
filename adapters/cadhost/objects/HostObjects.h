// SPDX-License-Identifier: GPL-3.0-or-later
// The automation objects of a drawing, made when somebody asks for them.
#pragma once

#include "session/Session.h"

namespace sm::cadhost {

std::shared_ptr<IAcadLayout> MakeLayout(const SessionRef& session, const OpenDrawingRef& open, std::size_t index);
std::shared_ptr<IAcadLayouts> MakeLayouts(const SessionRef& session, const OpenDrawingRef& open);
/// Position, in the drawing's list, of a layout of `open`; throws HostError for null and for others'.
std::size_t IndexOf(const std::shared_ptr<IAcadLayout>& layout, const OpenDrawingRef& open);

std::shared_ptr<IAcadBlock> MakeBlock(const OpenDrawingRef& open, std::uint32_t block);
std::shared_ptr<IAcadBlocks> MakeBlocks(const OpenDrawingRef& open);
std::shared_ptr<IAcadEntity> MakeEntity(const OpenDrawingRef& open, const drawing::EntityRecord& record);

std::shared_ptr<IAcadDictionaries> MakeDictionaries(const OpenDrawingRef& open);
std::shared_ptr<IAcadViews> MakeViews(const OpenDrawingRef& open);
std::shared_ptr<IAcadUtility> MakeUtility(const SessionRef& session, const OpenDrawingRef& open);
std::shared_ptr<IAcadPlot> MakePlot(const SessionRef& session, const OpenDrawingRef& open);

/// Lower-left x and y, upper-right x and y of the active layout's limits.
std::array<double, 4> LimitsOf(const OpenDrawing& open);
/// Throws HostError for a name that this host doesn't know; letter case aside.
AcadVariant SystemVariable(const Session& session, OpenDrawing& open, const std::string& name);

} // namespace sm::cadhost
