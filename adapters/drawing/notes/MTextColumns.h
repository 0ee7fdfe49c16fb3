// SPDX-License-Identifier: GPL-3.0-or-later
// The columns of an MTEXT where they stand outside of its own groups.
#pragma once

#include "drawing/entities/Texts.h"
#include "tags/TagCursor.h"

namespace sm::drawing {

/// More columns than this are damage.
inline constexpr std::size_t kMostTextColumns = 1000;

/// The embedded object of files from R2018 on; `tags` stands on its group 101.
void TakeEmbeddedColumns(TagCursor tags, MTextData& data);
/// The extended data of application ACAD, as files of R2000 to R2013 have it: pairs of a group (1070) and its value.
/// `tags` stands on the entity's first 1001. Where the other columns are MTEXTs of their own, which the list of their
/// handles tells, the entity holds the first one alone: then only its width counts.
void TakeExtendedColumns(TagCursor tags, MTextData& data);

} // namespace sm::drawing
