// SPDX-License-Identifier: GPL-3.0-or-later
// Annotative entities: how they look at the scale of a viewport.
#pragma once

#include "drawing/entities/Entity.h"

namespace sm::drawing {

struct InsertData;
struct MTextData;
struct TextData;

/// The annotation scale that a viewport shows its annotations at (SCALE object); 0 when the file names none, or holds
/// no annotative entity that is kept for several scales.
Handle AnnotationScaleOf(const Drawing&, const EntityRecord& viewport);

/// False for an annotative entity that has no form for `scale`.
bool SupportsScale(const Drawing&, const EntityRecord& record, Handle scale);

/// Makes an entity look as at `scale`, where its extension dictionary holds its form for it and that isn't the form the
/// entity has already. Places, turns and scales come from the file; text grows with the scale.
void AdaptTo(const Drawing&, const EntityRecord&, Handle scale, TextData&);
void AdaptTo(const Drawing&, const EntityRecord&, Handle scale, MTextData&);
void AdaptTo(const Drawing&, const EntityRecord&, Handle scale, InsertData&);
/// Other kinds keep their one form.
inline void AdaptTo(const Drawing&, const EntityRecord&, Handle, Entity&) {}

} // namespace sm::drawing
