// SPDX-License-Identifier: GPL-3.0-or-later
// The layers and line types of an external reference, as the drawing that it stands in shows them.
#pragma once

#include "context/PaintContext.h"

namespace sm::render {

/// Makes `inner`, the context of a run over `xref`, show the reference's layers as `host` does: its own state of
/// "PREFIX|LAYER" counts, and layer "0" is the insert's. Returns what `frame` is to the reference's own entities.
Frame EnterXref(const PaintContext& host, const References::Xref& xref, const Frame& frame, PaintContext& inner);

} // namespace sm::render
